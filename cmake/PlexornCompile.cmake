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
