# plexorn_hardening: what makes a mistake in code that reads strangers' files hard to use; everything that is
# shipped links it. The test abi.hardening looks for each of these in the built binaries.

add_library(plexorn_hardening INTERFACE)
if(MSVC)
    target_compile_options(plexorn_hardening INTERFACE /GS /guard:cf)
    target_link_options(plexorn_hardening INTERFACE /guard:cf /DYNAMICBASE /NXCOMPAT /HIGHENTROPYVA)
    return()
endif()

# Landing pads for indirect jumps (-fcf-protection) are left out: they cost 1.3 % of an import's instructions, and
# nothing uses them as long as the distribution's start files, linked into everything, have none.
target_compile_options(plexorn_hardening INTERFACE -fstack-protector-strong)
if(NOT PLEXORN_SANITIZE)
    # The C library checks sizes in optimised code only; a sanitizer has checks of its own in the same places.
    target_compile_options(plexorn_hardening INTERFACE
        $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE> $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=3>)
endif()

if(WIN32)
    # The stack is probed page by page on Windows anyway.
    # An image base above 4 GiB is what lets addresses be chosen from the whole address space.
    target_link_options(plexorn_hardening INTERFACE
        -fstack-protector-strong # links the guard and the checked calls, which the C library has elsewhere
        -Wl,--dynamicbase,--nxcompat,--high-entropy-va
        -Wl,--image-base,$<IF:$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>,0x140000000,0x180000000>)
else()
    target_compile_options(plexorn_hardening INTERFACE -fstack-clash-protection)
    target_link_options(plexorn_hardening INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
    include(CheckPIESupported)
    check_pie_supported(LANGUAGES C CXX)
endif()
