# The target `package`: a Debian package for each component, and one archive of all.
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME tolvane)
# CPack by itself takes three of the four numbers.
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The TolvanePlugin developers <developers@tolvane.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Rigging data between Vornik and the Tavrik graph")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_COMPONENTS_ALL plugin translation)
if(TOLVANE_TOOLS)
    list(APPEND CPACK_COMPONENTS_ALL tools)
endif()
if(TOLVANE_PLATFORMS_OF_TREE)
    list(APPEND CPACK_COMPONENTS_ALL platforms)
    set(platforms platforms)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
# What the files link is looked up, but for the platforms, which are packages of this build or a
# studio's own.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
foreach(platform IN LISTS TOLVANE_PLATFORM_PACKAGES)
    get_target_property(type ${${platform}_target} TYPE)
    if(NOT type STREQUAL "INTERFACE_LIBRARY")
        get_target_property(library ${${platform}_target} LOCATION)
        cmake_path(GET library PARENT_PATH folder)
        list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${folder})
    endif()
endforeach()
set(CPACK_DEBIAN_PLATFORMS_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_TRANSLATION_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME tolvane)
set(CPACK_DEBIAN_TRANSLATION_PACKAGE_RECOMMENDS "cmake, g++ | clang")

include(CPack)
if(TOLVANE_PLATFORMS_OF_TREE)
    cpack_add_component(platforms
        DESCRIPTION "The interfaces of host, graph library and executor, with in-memory stand-ins.")
endif()
cpack_add_component(plugin DEPENDS ${platforms}
    DESCRIPTION "The plugin that carries the rigging records.")
cpack_add_component(translation DEPENDS ${platforms}
    DESCRIPTION "What a translation library of one's own is built with.")
if(TOLVANE_TOOLS)
    cpack_add_component(tools DEPENDS plugin ${platforms}
        DESCRIPTION "The command line that evaluates rigs through a translation library.")
endif()
