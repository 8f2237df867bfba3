# plexorn_runtime: puts the compiler's runtime (libstdc++, libgcc) into each binary that links it, so that what is
# shipped needs nothing of the system but its C library, and starts on a machine without a C++ runtime or with an older
# one. Each binary keeps its copy to itself: the lists of exported names hide it, and no exception crosses from one
# binary into another. On Windows, PlexornCompile does the same for everything.

include(CheckCXXSourceCompiles)

add_library(plexorn_runtime INTERFACE)
if(MSVC OR WIN32 OR PLEXORN_SANITIZE OR PLEXORN_COVERAGE)
    return()
endif()

set(release_only OFF)
if(CMAKE_BUILD_TYPE STREQUAL "Release")
    set(release_only ON)
endif()
option(PLEXORN_STATIC_RUNTIME "Link the C++ runtime into what is shipped" ${release_only})
if(NOT PLEXORN_STATIC_RUNTIME)
    return()
endif()

# Some systems have the runtime as a shared library alone.
set(static_runtime -static-libstdc++ -static-libgcc)
set(CMAKE_REQUIRED_LINK_OPTIONS ${static_runtime})
check_cxx_source_compiles("#include <string>\nint main() { return static_cast<int>(std::string(9, 'a').size()) - 9; }"
    PLEXORN_HAS_STATIC_RUNTIME)
unset(CMAKE_REQUIRED_LINK_OPTIONS)
if(PLEXORN_HAS_STATIC_RUNTIME)
    # What nothing calls is left out, and with it what it would ask of a newer C library.
    target_link_options(plexorn_runtime INTERFACE ${static_runtime} -Wl,--gc-sections)
else()
    message(STATUS "No static C++ runtime: what is built needs the shared one.")
endif()
