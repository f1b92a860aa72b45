# Sets TOLVANE_COMMIT and TOLVANE_DATE_STAMP for the build record, and has CMake run again when
# another commit is checked out. Where there is no repository the record has fixed values of the
# same form, so that two builds of one source archive are equal.
set(TOLVANE_COMMIT 0000000000000000000000000000000000000000)
set(TOLVANE_DATE_STAMP "Thu 01/01/1970, 197001010000")

function(tolvane_git result)
    find_program(GIT_EXECUTABLE git)
    set(output "")
    if(GIT_EXECUTABLE)
        execute_process(COMMAND ${GIT_EXECUTABLE} ${ARGN}
            WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
            OUTPUT_VARIABLE output OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    endif()
    set(${result} "${output}" PARENT_SCOPE)
endfunction()

tolvane_git(top rev-parse --show-toplevel)
file(REAL_PATH ${PROJECT_SOURCE_DIR} source_dir)
if(top STREQUAL source_dir)
    tolvane_git(commit rev-parse --verify HEAD)
    # Checking out another branch writes HEAD. A commit writes the branch, by a new file in its
    # folder, which is there before the first commit is.
    tolvane_git(head rev-parse --path-format=absolute --git-path HEAD)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${head})
    tolvane_git(branch symbolic-ref --quiet HEAD)
    if(branch)
        tolvane_git(branch_file rev-parse --path-format=absolute --git-path ${branch})
        cmake_path(GET branch_file PARENT_PATH branch_folder)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${branch_folder})
    endif()
endif()

string(TIMESTAMP now "%a %m/%d/%Y, %Y%m%d%H%M" UTC)  # SOURCE_DATE_EPOCH, where it is set
if(commit)
    string(SUBSTRING ${commit} 0 40 TOLVANE_COMMIT)
    # The date is that of the first configuration at this commit: a later one would otherwise build
    # the library anew for nothing.
    if(NOT commit STREQUAL TOLVANE_RECORDED_COMMIT)
        set(TOLVANE_RECORDED_COMMIT ${commit} CACHE INTERNAL "The commit of the build record")
        set(TOLVANE_RECORDED_DATE_STAMP ${now} CACHE INTERNAL "The date of the build record")
    endif()
    set(TOLVANE_DATE_STAMP ${TOLVANE_RECORDED_DATE_STAMP})
endif()
if(DEFINED ENV{SOURCE_DATE_EPOCH})
    set(TOLVANE_DATE_STAMP ${now})
endif()
