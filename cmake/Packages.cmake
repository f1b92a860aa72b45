# The target `package`: a Debian package for each component, and one archive of all.
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME tolvane)
set(CPACK_PACKAGE_CONTACT "The TolvanePlugin developers <developers@tolvane.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Rigging data between Vornik and the Tavrik graph")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_COMPONENTS_ALL platforms plugin translation)
if(TOLVANE_TOOLS)
    list(APPEND CPACK_COMPONENTS_ALL tools)
endif()
if(NOT TOLVANE_PLATFORM_PACKAGES STREQUAL "")
    list(REMOVE_ITEM CPACK_COMPONENTS_ALL platforms)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
# What the files link is looked up, but for the platforms, which are packages of this build.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
set(CPACK_DEBIAN_PLATFORMS_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_TRANSLATION_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME tolvane)
set(CPACK_DEBIAN_TRANSLATION_PACKAGE_RECOMMENDS "cmake, g++ | clang")

include(CPack)
cpack_add_component(platforms
    DESCRIPTION "The interfaces of host, graph library and executor, with in-memory stand-ins.")
cpack_add_component(plugin DEPENDS platforms
    DESCRIPTION "The plugin that carries the rigging records.")
cpack_add_component(translation DEPENDS platforms
    DESCRIPTION "What a translation library of one's own is built with.")
cpack_add_component(tools DEPENDS plugin platforms
    DESCRIPTION "The command line that evaluates rigs through a translation library.")
