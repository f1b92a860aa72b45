# Each platform comes from its folder of this tree or, if TOLVANE_PLATFORM_PACKAGES names it, from a
# package that CMake finds. Of a platform from a package nothing in this tree is read.
include(${CMAKE_CURRENT_LIST_DIR}/CheckPlatform.cmake)

set(TOLVANE_PLATFORMS Pelmor OpenVornik TavrikGraph)
set(Pelmor_folder graph)
set(OpenVornik_folder host)
set(TavrikGraph_folder executor)

foreach(platform IN LISTS TOLVANE_PLATFORM_PACKAGES)
    if(NOT platform IN_LIST TOLVANE_PLATFORMS)
        list(JOIN TOLVANE_PLATFORMS ", " known)
        message(FATAL_ERROR
            "TOLVANE_PLATFORM_PACKAGES: there is no platform ${platform}; there are ${known}")
    endif()
endforeach()

set(TOLVANE_PLATFORMS_OF_TREE ${TOLVANE_PLATFORMS})
list(REMOVE_ITEM TOLVANE_PLATFORMS_OF_TREE "" ${TOLVANE_PLATFORM_PACKAGES})
foreach(platform IN LISTS TOLVANE_PLATFORMS)
    if(platform IN_LIST TOLVANE_PLATFORM_PACKAGES)
        # A project that this one is a part of links the platforms, too.
        find_package(${platform} REQUIRED GLOBAL)
        tolvane_check_platform(${platform})
    else()
        add_subdirectory(${${platform}_folder})
    endif()
endforeach()

# Whether host calls can be watched, which is nothing that the product needs, but many of its tests.
if(NOT OpenVornik IN_LIST TOLVANE_PLATFORM_PACKAGES)
    set(OpenVornik_OBSERVATION ${OPENVORNIK_OBSERVATION})
endif()
