set(Pelmor_target Pelmor::Pelmor)
set(OpenVornik_target OpenVornik::OpenVornik)
set(TavrikGraph_target TavrikGraph::Executor)

# tolvane_check_platform(NAME) stops with a list of what the package lacks. What is needed of it is
# in cmake/needs/.
function(tolvane_check_platform platform)
    set(target ${${platform}_target})
    if(NOT TARGET ${target})
        message(FATAL_ERROR "The package ${platform} (${${platform}_DIR}) has no target ${target}")
    endif()
    tolvane_check_needs(${platform} ${platform} "what the plugin needs")
    if(TOLVANE_TOOLS)
        tolvane_check_needs(${platform} ${platform}Tools
            "what the command line needs, without which TOLVANE_TOOLS=OFF builds")
    endif()
endfunction()

function(tolvane_check_needs platform needs what)
    if(${needs}_HAS_ALL)
        return()
    endif()
    set(source ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/needs/${needs}.cpp)
    cmake_path(GET CMAKE_CURRENT_FUNCTION_LIST_DIR PARENT_PATH root)
    tolvane_include_folders(folders ${${platform}_target})
    set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
    # All errors are looked at, and in English.
    set(ENV{LC_ALL} C)
    if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
        set(all_errors COMPILE_DEFINITIONS -ferror-limit=0)
    endif()
    try_compile(${needs}_HAS_ALL ${CMAKE_BINARY_DIR}/CMakeFiles/${needs}_needs ${source}
        CMAKE_FLAGS "-DINCLUDE_DIRECTORIES=${root};${folders}"
        ${all_errors}
        OUTPUT_VARIABLE output
        CXX_STANDARD 17 CXX_STANDARD_REQUIRED ON)
    if(${needs}_HAS_ALL)
        return()
    endif()
    unset(${needs}_HAS_ALL CACHE)
    tolvane_lines_at_fault(lacking ${source} "${output}")
    if(lacking STREQUAL "")
        message(FATAL_ERROR
            "The package ${platform} (${${platform}_DIR}) does not compile:\n${output}")
    endif()
    message(FATAL_ERROR
        "The package ${platform} (${${platform}_DIR}) lacks ${what}:${lacking}")
endfunction()

# The comments behind those lines of a source that a compiler has found errors in; of lines that
# include a header, all of it.
function(tolvane_lines_at_fault result source output)
    file(READ ${source} lines)
    # Of an item of a list, these would be more than characters.
    string(REGEX REPLACE "[][;]" "" lines "${lines}")
    string(REPLACE "\n" ";" lines "${lines}")
    cmake_path(GET source FILENAME name)
    set(error "${name}:[0-9]+:[0-9]+:( fatal)? (error|required from here|note: in instantiation)")
    string(REGEX MATCHALL "${error}" errors "${output}")
    set(faults "")
    foreach(error IN LISTS errors)
        string(REGEX MATCH ":([0-9]+):" ignored "${error}")
        math(EXPR index "${CMAKE_MATCH_1} - 1")
        list(GET lines ${index} line)
        string(REGEX REPLACE "^.*  // " "" line "${line}")
        string(REGEX REPLACE "^#include " "" line "${line}")
        list(APPEND faults "\n  ${line}")
    endforeach()
    list(REMOVE_DUPLICATES faults)
    list(JOIN faults "" faults)
    set(${result} "${faults}" PARENT_SCOPE)
endfunction()

# Where the headers of a target are, and of what it links: a target of this project cannot be linked
# while it is still being configured.
function(tolvane_include_folders result target)
    get_target_property(is_imported ${target} IMPORTED)
    if(is_imported)
        get_target_property(folders ${target} INTERFACE_INCLUDE_DIRECTORIES)
    else()
        get_target_property(folders ${target} SOURCE_DIR)
    endif()
    get_target_property(links ${target} INTERFACE_LINK_LIBRARIES)
    foreach(link IN LISTS links)
        if(TARGET ${link})
            tolvane_include_folders(further ${link})
            list(APPEND folders ${further})
        endif()
    endforeach()
    list(FILTER folders EXCLUDE REGEX "-NOTFOUND$")
    set(${result} "${folders}" PARENT_SCOPE)
endfunction()
