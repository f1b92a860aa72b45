# The manual pages, made of what the program's own --help prints: tolvane(1), and tolvane-COMMAND(1)
# for each of its commands.
find_program(HELP2MAN help2man)
if(NOT HELP2MAN)
    message(STATUS "Without help2man there are no manual pages")
    return()
endif()

set(pages "")
function(tolvane_manual_page name command what)
    set(page ${PROJECT_BINARY_DIR}/share/man/man1/${name}.1)
    # By itself the page of a command would bear the name of the program.
    set(heading ${CMAKE_CURRENT_BINARY_DIR}/${name}.h2m)
    file(CONFIGURE OUTPUT ${heading} CONTENT "[NAME]\n${name} \\- ${what}\n" @ONLY)
    add_custom_command(OUTPUT ${page} DEPENDS tolvane ${heading}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/share/man/man1
        COMMAND ${HELP2MAN} --no-info --no-discard-stderr --version-string=${PROJECT_VERSION}
            --manual=TolvanePlugin --source=TolvanePlugin --include=${heading} --output=${page}
            "$<TARGET_FILE:tolvane> ${command}"
        VERBATIM)
    set(pages ${pages} ${page} PARENT_SCOPE)
endfunction()

tolvane_manual_page(tolvane "" "carry rigs through a translation library")
tolvane_manual_page(tolvane-run run "carry a rig through a translation library and compare")
tolvane_manual_page(tolvane-info info "say what a rig file holds")
tolvane_manual_page(tolvane-check check "tell whether a translation library is fit to be loaded")
tolvane_manual_page(tolvane-inspect inspect "show what a translation library makes of its types")
tolvane_manual_page(tolvane-trace trace "list the host calls of an evaluation and their cost")
tolvane_manual_page(tolvane-show show "show the values of an attribute after an evaluation")
add_custom_target(tolvane_manual ALL DEPENDS ${pages})
install(FILES ${pages} DESTINATION share/man/man1 COMPONENT tools)
