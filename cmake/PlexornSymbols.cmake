# What a debugger needs is made with every release, and shipped apart from it: FILE.debug belongs next to FILE,
# which names it.
if(MSVC OR PLEXORN_SANITIZE OR NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    set(PLEXORN_SPLIT_SYMBOLS OFF)
else()
    set(PLEXORN_SPLIT_SYMBOLS ON)
endif()

# plexorn_keep_symbols(target): compiles target with debug information. It names sources by their
# path within the project, so that the bytes do not depend on where the project is built.
function(plexorn_keep_symbols target)
    if(PLEXORN_SPLIT_SYMBOLS)
        target_compile_options(${target} PRIVATE -g1 -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
    endif()
endfunction()

# plexorn_split_symbols(target component destination): call it after the rule that installs target in
# destination. The build's own file keeps everything.
function(plexorn_split_symbols target component destination)
    plexorn_keep_symbols(${target})
    if(NOT PLEXORN_SPLIT_SYMBOLS)
        return()
    endif()
    set(split "
        set(built \"$<TARGET_FILE:${target}>\")
        set(debug \"${CMAKE_BINARY_DIR}/install/$<TARGET_FILE_NAME:${target}>.debug\")
        set(objcopy \"${CMAKE_OBJCOPY}\")
        set(destination \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${destination}\")")
    install(CODE "${split}
        set(installed \"\${destination}/$<TARGET_FILE_NAME:${target}>\")
        include(\"${PROJECT_SOURCE_DIR}/cmake/install/split_symbols.cmake\")" COMPONENT ${component})
    install(CODE "${split}
        set(installed \"\")
        include(\"${PROJECT_SOURCE_DIR}/cmake/install/split_symbols.cmake\")
        file(INSTALL \"\${debug}\" DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${destination}\")"
        COMPONENT symbols EXCLUDE_FROM_ALL)
endfunction()
