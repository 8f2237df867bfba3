# What CPack makes of the installed tree: an archive, one of what programs are built with, one of what debuggers need,
# and for Debian two packages, plexorn and plexorn-dev. scripts/package runs it.
set(PLEXORN_MAINTAINER "The Plexorn authors <plexorn@plexorn.invalid>" CACHE STRING
    "Whom the Debian package names as its maintainer: a name and an address")

set(CPACK_PACKAGE_NAME plexorn)
set(CPACK_PACKAGE_VENDOR "The Plexorn authors")
# The first line is the summary, see cpack_generator.cmake.
set(CPACK_COMPONENT_PLEXORN_DESCRIPTION
    "draws DXF drawings as SVG pictures
Plexorn reads DXF drawings and draws them through the operations of
a host program. This package has the module for such hosts, a library
that prepares drawings for it, a reference host that makes an SVG
document, the command plexorn, which uses all of them, and what file
managers need to show drawings as small pictures.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "draws DXF drawings as SVG pictures (development files)
Plexorn reads DXF drawings and draws them through the operations of
a host program. This package has what such programs
are built with: headers, files for CMake and pkg-config, a page for
their authors, and examples.")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_THREADS 2)

if(WIN32)
    set(system windows)
    set(CPACK_GENERATOR ZIP)
else()
    string(TOLOWER "${CMAKE_SYSTEM_NAME}" system)
    set(CPACK_GENERATOR TGZ DEB)
endif()
string(TOLOWER "${CMAKE_SYSTEM_PROCESSOR}" processor)
set(CPACK_PACKAGE_FILE_NAME plexorn-${PROJECT_VERSION}-${system}-${processor})

# Archives of one folder's name: they unpack into the same place.
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_ARCHIVE_PLEXORN_FILE_NAME ${CPACK_PACKAGE_FILE_NAME})
set(CPACK_ARCHIVE_DEVELOPMENT_FILE_NAME ${CPACK_PACKAGE_FILE_NAME}-dev)
set(CPACK_ARCHIVE_SYMBOLS_FILE_NAME ${CPACK_PACKAGE_FILE_NAME}-symbols)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/install/cpack_generator.cmake)
set(plexorn_components module prepare documentation)
if(PLEXORN_HOST)
    list(APPEND plexorn_components host)
endif()
if(PLEXORN_CLI)
    list(APPEND plexorn_components command)
endif()
set(CPACK_PLEXORN_ARCHIVE_COMPONENTS ${plexorn_components} development)
if(PLEXORN_CLI AND NOT WIN32)
    list(APPEND CPACK_PLEXORN_ARCHIVE_COMPONENTS zsh)
endif()
if(PLEXORN_SPLIT_SYMBOLS)
    list(APPEND CPACK_PLEXORN_ARCHIVE_COMPONENTS symbols)
endif()
set(CPACK_PLEXORN_DEB_COMPONENTS ${plexorn_components} development debian debian_development)
set(CPACK_COMPONENTS_ALL ${CPACK_PLEXORN_ARCHIVE_COMPONENTS} debian debian_development)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_PLEXORN_PACKAGE_NAME plexorn)
set(CPACK_DEBIAN_PLEXORN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${PLEXORN_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PLEXORN_PACKAGE_RECOMMENDS librsvg2-bin)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME plexorn-dev)
set(CPACK_DEBIAN_DEVELOPMENT_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "plexorn (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

# The files that Debian asks of a package, and no other system.
if(NOT WIN32)
    string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
    configure_file(packaging/debian/changelog.in ${CMAKE_BINARY_DIR}/install/changelog.Debian @ONLY)
    configure_file(packaging/debian/copyright.in ${CMAKE_BINARY_DIR}/install/copyright @ONLY)
    set(all_documents ${CMAKE_INSTALL_DATAROOTDIR}/doc)
    set(documents ${all_documents}/plexorn)
    install(FILES ${CMAKE_BINARY_DIR}/install/copyright DESTINATION ${documents}
        COMPONENT debian EXCLUDE_FROM_ALL)
    if(PLEXORN_CLI)
        install(FILES cli/share/_plexorn DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/zsh/vendor-completions
            COMPONENT debian EXCLUDE_FROM_ALL)
    endif()
    set(overrides ${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides)
    install(FILES packaging/debian/plexorn.lintian-overrides DESTINATION ${overrides}
        RENAME plexorn COMPONENT debian EXCLUDE_FROM_ALL)
    install(FILES packaging/debian/plexorn-dev.lintian-overrides DESTINATION ${overrides}
        RENAME plexorn-dev COMPONENT debian_development EXCLUDE_FROM_ALL)
    install(CODE "
        set(file \"${CMAKE_BINARY_DIR}/install/changelog.Debian\")
        set(compressed \"${CMAKE_BINARY_DIR}/install/changelog.Debian.gz\")
        include(\"${CMAKE_SOURCE_DIR}/cmake/install/compress.cmake\")
        file(INSTALL \"\${compressed}\" DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${documents}\")"
        COMPONENT debian EXCLUDE_FROM_ALL)
    # plexorn-dev comes with plexorn of the same version, whose copyright and changelog are its own.
    install(CODE "
        set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${all_documents}\")
        file(MAKE_DIRECTORY \"\${folder}\")
        file(CREATE_LINK plexorn \"\${folder}/plexorn-dev\" SYMBOLIC)"
        COMPONENT debian_development EXCLUDE_FROM_ALL)
endif()

include(CPack)
foreach(component ${plexorn_components} zsh debian)
    cpack_add_component(${component} GROUP plexorn)
endforeach()
foreach(component development debian_development)
    cpack_add_component(${component} GROUP development)
endforeach()
cpack_add_component(symbols GROUP symbols)
foreach(group plexorn development symbols)
    cpack_add_component_group(${group})
endforeach()
