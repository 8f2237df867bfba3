# plexorn_add_import_library(target def): a library to link the module against, made from the list of the
# host's operations alone, so that no host is needed to build the module.
#
# Windows: an import library made from the .def file. Elsewhere: a shared library of that soname whose
# operations are empty; it serves the linker only and is never installed or loaded.
function(plexorn_add_import_library target def)
    add_library(${target} INTERFACE)
    if(WIN32)
        set(library ${CMAKE_BINARY_DIR}/lib/libQuillmarLib.import.a)
        if(MSVC)
            set(command ${CMAKE_AR} /def:${def} /machine:x64 /out:${library})
        else()
            set(command ${CMAKE_DLLTOOL} --machine i386:x86-64 --input-def ${def} --output-lib ${library})
        endif()
        add_custom_command(OUTPUT ${library}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/lib
            COMMAND ${command} DEPENDS ${def} VERBATIM)
        add_custom_target(${target}_file DEPENDS ${library})
        add_dependencies(${target} ${target}_file)
        target_link_libraries(${target} INTERFACE ${library})
    else()
        file(STRINGS ${def} names REGEX "^ +qlm")
        set(source "")
        foreach(name IN LISTS names)
            string(STRIP "${name}" name)
            string(APPEND source "__attribute__((visibility(\"default\"))) void ${name}(void);\nvoid ${name}(void) {}\n")
        endforeach()
        file(GENERATE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${target}.c CONTENT "${source}")
        add_library(${target}_file SHARED ${CMAKE_CURRENT_BINARY_DIR}/${target}.c)
        set_target_properties(${target}_file PROPERTIES
            OUTPUT_NAME QuillmarLib
            LIBRARY_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/import)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${def})
        target_link_libraries(${target} INTERFACE ${target}_file)
    endif()
endfunction()
