# tolvane_install_package(NAME COMPONENT TARGETS target... HEADERS folder... [CMAKE_FILES file...])
#
# Installs a package that `find_package(NAME)` finds: the targets, the headers of these folders
# (each under its last name) and NAMEConfig.cmake, made of cmake/NAMEConfig.cmake.in, with the
# CMake files beside it. It can be moved to another place together with what it depends on.
function(tolvane_install_package name component)
    cmake_parse_arguments(package "" "" "TARGETS;HEADERS;CMAKE_FILES" ${ARGN})
    set(folder lib/cmake/${name})
    foreach(target IN LISTS package_TARGETS)
        target_include_directories(${target} INTERFACE $<INSTALL_INTERFACE:include>)
    endforeach()
    install(TARGETS ${package_TARGETS} EXPORT ${name}Targets
        LIBRARY DESTINATION lib COMPONENT ${component}
        ARCHIVE DESTINATION lib COMPONENT ${component})
    install(EXPORT ${name}Targets NAMESPACE ${name}:: DESTINATION ${folder} COMPONENT ${component})
    list(TRANSFORM package_HEADERS PREPEND ${PROJECT_SOURCE_DIR}/)
    install(DIRECTORY ${package_HEADERS} DESTINATION include COMPONENT ${component}
        FILES_MATCHING PATTERN "*.h")

    include(CMakePackageConfigHelpers)
    set(made ${PROJECT_BINARY_DIR}/cmake)
    configure_package_config_file(
        ${PROJECT_SOURCE_DIR}/cmake/${name}Config.cmake.in ${made}/${name}Config.cmake
        INSTALL_DESTINATION ${folder})
    write_basic_package_version_file(${made}/${name}ConfigVersion.cmake
        VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
    install(
        FILES ${made}/${name}Config.cmake ${made}/${name}ConfigVersion.cmake ${package_CMAKE_FILES}
        DESTINATION ${folder} COMPONENT ${component})
endfunction()
