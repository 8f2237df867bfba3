# How everything of ours is compiled: warnings, sanitizers, arithmetic that is the same everywhere.

include(PlexornHardening)

add_library(plexorn_compile INTERFACE)

if(MSVC)
    target_compile_options(plexorn_compile INTERFACE /W4 /utf-8 /permissive-)
else()
    target_compile_options(plexorn_compile INTERFACE
        -Wall -Wextra -Wpedantic -Wconversion -Wshadow
        # A product and a sum stay two roundings on machines with a fused operation too: numbers in the
        # output are the same on every platform.
        -ffp-contract=off)
endif()

if(PLEXORN_UNITY)
    # Seen together, sources let g++ inline the reading of every kind of field into records that have no such field.
    target_compile_options(plexorn_compile INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds>)
    # A local name of one source may be that of a constant in another; alone, each is checked by other builds.
    target_compile_options(plexorn_compile INTERFACE $<$<NOT:$<CXX_COMPILER_ID:MSVC>>:-Wno-shadow>)
endif()

if(PLEXORN_SANITIZE)
    target_compile_options(plexorn_compile INTERFACE
        -fsanitize=${PLEXORN_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(plexorn_compile INTERFACE -fsanitize=${PLEXORN_SANITIZE})
endif()

if(PLEXORN_COVERAGE)
    set(coverage -fprofile-instr-generate -fcoverage-mapping -fcoverage-mcdc)
    target_compile_options(plexorn_compile INTERFACE ${coverage})
    target_link_options(plexorn_compile INTERFACE ${coverage})
endif()

if(MINGW)
    # The runtime goes into each binary: a DLL of ours needs nothing that Windows does not have.
    target_link_options(plexorn_compile INTERFACE -static)
endif()

# plexorn_compile_by_folder(target [ALONE folder...]): compiles the sources of each folder of target's as one, in a
# third of the time. Helpers of tests in one folder have names of their own; ALONE are those where they have not. The
# headers of Windows define words such as near: what includes them is compiled alone, too.
function(plexorn_compile_by_folder target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "ALONE")
    get_target_property(sources ${target} SOURCES)
    foreach(source IN LISTS sources)
        cmake_path(GET source PARENT_PATH folder)
        cmake_path(GET folder FILENAME group)
        if(NOT group IN_LIST arg_ALONE AND NOT source MATCHES "_windows\\.cpp$")
            set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${group})
        endif()
    endforeach()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    # g++ takes a source that another includes for a header, whose classes others might see.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endfunction()
