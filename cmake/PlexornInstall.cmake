# What "cmake --install" puts where. Everything finds the rest from its own place, so an installed tree can be
# moved as a whole.
#
# The module's name and its host's carry no version, because hosts load them by these names: they stay out of
# the folders where the system looks for libraries. Each has a folder of its own: who looks for the module must
# not find the reference host in place of his own. On Windows both lie beside the command, where the system
# looks for them.
set(CMAKE_INSTALL_LIBDIR lib CACHE PATH "Folder of libraries, in the prefix")
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
include(PlexornSymbols)

set(PLEXORN_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/plexorn)
if(WIN32)
    set(PLEXORN_INSTALL_MODULEDIR ${CMAKE_INSTALL_BINDIR})
    set(PLEXORN_INSTALL_HOSTDIR ${CMAKE_INSTALL_BINDIR})
    set(PLEXORN_INSTALL_PREPAREDIR ${CMAKE_INSTALL_BINDIR})
    set(PLEXORN_INSTALL_DOCDIR doc)
else()
    set(PLEXORN_INSTALL_MODULEDIR ${CMAKE_INSTALL_LIBDIR}/plexorn/module)
    set(PLEXORN_INSTALL_HOSTDIR ${CMAKE_INSTALL_LIBDIR}/plexorn/svghost)
    set(PLEXORN_INSTALL_PREPAREDIR ${CMAKE_INSTALL_LIBDIR}/plexorn/prepare)
    set(PLEXORN_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/plexorn)
endif()

# plexorn_install_library(target component destination): a library and, on Windows, what one links in its place.
function(plexorn_install_library target component destination)
    install(TARGETS ${target}
        RUNTIME DESTINATION ${destination} COMPONENT ${component}
        LIBRARY DESTINATION ${destination} COMPONENT ${component}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
    plexorn_split_symbols(${target} ${component} ${destination})
endfunction()

plexorn_keep_symbols(plexorn_core)
plexorn_install_library(plexorn_module module ${PLEXORN_INSTALL_MODULEDIR})
plexorn_keep_symbols(plexorn_prepare_core)
plexorn_install_library(plexorn_prepare prepare ${PLEXORN_INSTALL_PREPAREDIR})
install(FILES prepare/Prepare.h DESTINATION ${PLEXORN_INSTALL_INCLUDEDIR}/prepare COMPONENT development)
if(PLEXORN_HOST)
    plexorn_install_library(svghost host ${PLEXORN_INSTALL_HOSTDIR})
    install(FILES svghost/SvgHost.h DESTINATION ${PLEXORN_INSTALL_INCLUDEDIR}/svghost COMPONENT development)
endif()
if(PLEXORN_CLI)
    if(NOT WIN32)
        file(RELATIVE_PATH to_module /${CMAKE_INSTALL_BINDIR} /${PLEXORN_INSTALL_MODULEDIR})
        file(RELATIVE_PATH to_host /${CMAKE_INSTALL_BINDIR} /${PLEXORN_INSTALL_HOSTDIR})
        # The build tree keeps its libraries in ../lib. It has the installed path, as CMake would end one of its own
        # with an empty entry, and that is the working directory.
        set_target_properties(plexorn_cli PROPERTIES BUILD_WITH_INSTALL_RPATH ON
            INSTALL_RPATH "$ORIGIN/${to_module};$ORIGIN/${to_host};$ORIGIN/../lib")
    endif()
    install(TARGETS plexorn_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT command)
    plexorn_split_symbols(plexorn_cli command ${CMAKE_INSTALL_BINDIR})
endif()

# The folders of the headers are those of the sources, and so are the lines that include them.
install(FILES src/entry/dxfFileOpen.h DESTINATION ${PLEXORN_INSTALL_INCLUDEDIR}/entry COMPONENT development)
install(FILES src/host/QuillmarLib.h src/host/ReportKinds.h
    DESTINATION ${PLEXORN_INSTALL_INCLUDEDIR}/host COMPONENT development)
if(WIN32)
    # Other linkers make their own import libraries of these.
    install(FILES src/entry/Plexorn.def src/host/QuillmarLib.def prepare/PlexornPrepare.def
        DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
endif()

# plexorn_install_built(component folder file [compressed-name]): a file that a build may have made or not; under
# compressed-name, it is installed compressed.
function(plexorn_install_built component folder file)
    set(code "
        set(file \"${file}\")")
    if(ARGC GREATER 3)
        string(APPEND code "
        set(compressed \"${CMAKE_BINARY_DIR}/install/${ARGV3}\")")
    endif()
    install(CODE "${code}
        set(destination \"\${CMAKE_INSTALL_PREFIX}/${folder}\")
        include(\"${PROJECT_SOURCE_DIR}/cmake/install/install_built.cmake\")" COMPONENT ${component})
endfunction()

# The pages for people with drawings, and that for authors of programs. Each links only to what is installed with it.
install(FILES LICENSE docs/manual.md docs/many-drawings.md
    DESTINATION ${PLEXORN_INSTALL_DOCDIR} COMPONENT documentation)
install(FILES docs/images/part-sheet.png DESTINATION ${PLEXORN_INSTALL_DOCDIR}/images COMPONENT documentation)
install(FILES docs/hosting.md DESTINATION ${PLEXORN_INSTALL_DOCDIR} COMPONENT development)
if(WIN32)
    install(FILES CHANGELOG.md DESTINATION ${PLEXORN_INSTALL_DOCDIR} COMPONENT documentation)
else()
    plexorn_install_built(documentation ${PLEXORN_INSTALL_DOCDIR} ${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog.gz)
endif()

# What of others goes into the binaries, under their own licences. Debian keeps the texts with its packages.
if(PLEXORN_CLI)
    set(licences "CLI11=/usr/share/doc/libcli11-dev/copyright")
endif()
if(PLEXORN_HAS_STATIC_RUNTIME)
    list(APPEND licences "libstdc++=/usr/share/doc/libstdc++6/copyright")
endif()
if(WIN32)
    list(APPEND licences "mingw-w64=/usr/share/doc/mingw-w64-x86-64-dev/copyright")
endif()
foreach(licence IN LISTS licences)
    string(REGEX MATCH "^([^=]+)=(.+)$" licence "${licence}")
    install(FILES ${CMAKE_MATCH_2} DESTINATION ${PLEXORN_INSTALL_DOCDIR}/licences RENAME ${CMAKE_MATCH_1}.txt
        COMPONENT documentation OPTIONAL)
endforeach()

install(DIRECTORY examples/ DESTINATION ${PLEXORN_INSTALL_DOCDIR}/examples COMPONENT documentation
    FILES_MATCHING PATTERN "*.dxf" PATTERN "own_host" EXCLUDE PATTERN "__pycache__" EXCLUDE)
install(DIRECTORY examples/ DESTINATION ${PLEXORN_INSTALL_DOCDIR}/examples COMPONENT development
    FILES_MATCHING PATTERN "*.[ch]" PATTERN "CMakeLists.txt" PATTERN "__pycache__" EXCLUDE)

# For find_package(Plexorn) and for pkg-config.
if(WIN32)
    set(library_prefix "")
else()
    set(library_prefix ${CMAKE_SHARED_LIBRARY_PREFIX})
endif()
set(PLEXORN_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/Plexorn)
configure_package_config_file(cmake/install/PlexornConfig.cmake.in
    ${CMAKE_BINARY_DIR}/install/PlexornConfig.cmake INSTALL_DESTINATION ${PLEXORN_INSTALL_CMAKEDIR}
    PATH_VARS PLEXORN_INSTALL_INCLUDEDIR PLEXORN_INSTALL_MODULEDIR PLEXORN_INSTALL_HOSTDIR
              PLEXORN_INSTALL_PREPAREDIR CMAKE_INSTALL_LIBDIR
    NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/install/PlexornConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/install/PlexornConfig.cmake ${CMAKE_BINARY_DIR}/install/PlexornConfigVersion.cmake
    DESTINATION ${PLEXORN_INSTALL_CMAKEDIR} COMPONENT development)

# The folder that is linked from, and what a program needs to find the library again when it runs.
if(WIN32)
    set(module_link "-L\${prefix}/${CMAKE_INSTALL_LIBDIR}")
    set(host_link "")
    set(prepare_link "-L\${prefix}/${CMAKE_INSTALL_LIBDIR}")
else()
    set(module_link "-L\${prefix}/${PLEXORN_INSTALL_MODULEDIR} -Wl,-rpath,\${prefix}/${PLEXORN_INSTALL_MODULEDIR}")
    set(host_link "-L\${prefix}/${PLEXORN_INSTALL_HOSTDIR} -Wl,-rpath,\${prefix}/${PLEXORN_INSTALL_HOSTDIR} ")
    set(prepare_link "-L\${prefix}/${PLEXORN_INSTALL_PREPAREDIR} -Wl,-rpath,\${prefix}/${PLEXORN_INSTALL_PREPAREDIR}")
endif()
foreach(package plexorn plexorn-prepare plexorn-svghost)
    if(NOT package STREQUAL plexorn-svghost OR PLEXORN_HOST)
        configure_file(cmake/install/${package}.pc.in ${CMAKE_BINARY_DIR}/install/${package}.pc @ONLY)
        install(FILES ${CMAKE_BINARY_DIR}/install/${package}.pc
            DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
    endif()
endforeach()

# The command's manual page and what shells complete it with.
if(PLEXORN_CLI AND NOT WIN32)
    set(share ${CMAKE_INSTALL_DATAROOTDIR})
    install(FILES cli/share/plexorn.bash DESTINATION ${share}/bash-completion/completions RENAME plexorn
        COMPONENT command)
    # Debian's zsh reads this folder in /usr/local alone; PlexornPackages has the one that it reads in /usr.
    install(FILES cli/share/_plexorn DESTINATION ${share}/zsh/site-functions COMPONENT zsh)
    install(FILES cli/share/plexorn.fish DESTINATION ${share}/fish/vendor_completions.d COMPONENT command)
    plexorn_install_built(command ${share}/man/man1 ${CMAKE_BINARY_DIR}/share/plexorn.1 plexorn.1.gz)
    plexorn_install_built(command ${share}/man/man1 ${PROJECT_SOURCE_DIR}/packaging/linux/plexorn-thumbnailer.1
        plexorn-thumbnailer.1.gz)
    install(PROGRAMS packaging/linux/plexorn-thumbnailer DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT command)
    install(FILES packaging/linux/plexorn.thumbnailer DESTINATION ${share}/thumbnailers COMPONENT command)
endif()
