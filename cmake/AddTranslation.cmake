# tolvane_add_translation(TARGET source...)
#
# A translation library, which exports its factory and nothing else. Without a factory it does not
# link: a symbol that is set to it, and not exported, needs it.
function(tolvane_add_translation target)
    set(exports ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/exports.map)
    add_library(${target} MODULE ${ARGN})
    target_link_libraries(${target} PRIVATE Tolvane::Translation)
    set_target_properties(${target} PROPERTIES
        PREFIX ""
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        LINK_DEPENDS ${exports})
    target_link_options(${target} PRIVATE
        LINKER:--version-script=${exports}
        LINKER:--defsym=tolvane_factory=createTavrikTypeTranslation)
    # Clang links the sanitizers' own symbols into programs alone.
    string(TOUPPER "${CMAKE_BUILD_TYPE}" build)
    if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang
            OR NOT "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${build}}" MATCHES "-fsanitize=")
        target_link_options(${target} PRIVATE LINKER:--no-undefined)
    endif()
endfunction()
