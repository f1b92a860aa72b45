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
    get_target_property(is_imported ${target} IMPORTED)
    if(TOLVANE_INSTALL AND NOT is_imported)
        message(FATAL_ERROR "The target ${target} of the package ${platform} (${${platform}_DIR}) "
            "is not IMPORTED, so nothing that links it can be installed")
    endif()
    tolvane_check_needs(${platform} ${platform} "what the plugin needs")
    if(TOLVANE_TOOLS)
        tolvane_check_needs(${platform} ${platform}Tools
            "what the command line needs, without which TOLVANE_TOOLS=OFF builds")
    endif()
endfunction()

function(tolvane_check_needs platform needs what)
    if(${needs}_FOUND_IN STREQUAL ${platform}_DIR)
        return()
    endif()
    set(source ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/needs/${needs}.cpp)
    cmake_path(GET CMAKE_CURRENT_FUNCTION_LIST_DIR PARENT_PATH root)
    set(target ${${platform}_target})
    tolvane_usage(folders ${target} INTERFACE_INCLUDE_DIRECTORIES)
    tolvane_usage(definitions ${target} INTERFACE_COMPILE_DEFINITIONS)
    tolvane_usage(options ${target} INTERFACE_COMPILE_OPTIONS)
    list(TRANSFORM definitions PREPEND -D)
    set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
    # All errors are looked at, and in English.
    set(ENV{LC_ALL} C)
    if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
        list(APPEND options -ferror-limit=0)
    endif()
    unset(${needs}_HAS_ALL CACHE)
    try_compile(${needs}_HAS_ALL ${CMAKE_BINARY_DIR}/CMakeFiles/${needs}_needs ${source}
        CMAKE_FLAGS "-DINCLUDE_DIRECTORIES=${root};${folders}"
        COMPILE_DEFINITIONS ${definitions} ${options}
        OUTPUT_VARIABLE output
        CXX_STANDARD 17 CXX_STANDARD_REQUIRED ON)
    if(${needs}_HAS_ALL)
        set(${needs}_FOUND_IN ${${platform}_DIR} CACHE INTERNAL "The package that has all of it")
        return()
    endif()
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

# What a target and all that it links ask of whoever uses them, by a property: a target of this
# project cannot be linked while it is still being configured.
function(tolvane_usage result target property)
    get_target_property(values ${target} ${property})
    get_target_property(links ${target} INTERFACE_LINK_LIBRARIES)
    foreach(link IN LISTS links)
        if(TARGET ${link})
            tolvane_usage(further ${link} ${property})
            list(APPEND values ${further})
        endif()
    endforeach()
    list(FILTER values EXCLUDE REGEX "-NOTFOUND$")
    string(REGEX REPLACE "\\$<BUILD_INTERFACE:([^>]*)>" "\\1" values "${values}")
    string(GENEX_STRIP "${values}" values)
    set(${result} "${values}" PARENT_SCOPE)
endfunction()
