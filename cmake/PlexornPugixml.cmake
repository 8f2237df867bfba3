# plexorn_pugixml: what the tests read a written picture with. Debian has it for the machine itself; for Windows
# it is built from the sources of Debian's package.
include_guard(GLOBAL)

set(PLEXORN_PUGIXML_SOURCE ${PROJECT_SOURCE_DIR}/build/deps/pugixml CACHE PATH
    "Unpacked pugixml (src/pugixml.cpp in it), for builds that have no pugixml installed")
find_package(pugixml CONFIG QUIET GLOBAL)
add_library(plexorn_pugixml INTERFACE)
if(TARGET pugixml::pugixml)
    target_link_libraries(plexorn_pugixml INTERFACE pugixml::pugixml)
elseif(EXISTS ${PLEXORN_PUGIXML_SOURCE}/src/pugixml.cpp)
    add_library(plexorn_pugixml_objects STATIC ${PLEXORN_PUGIXML_SOURCE}/src/pugixml.cpp)
    target_include_directories(plexorn_pugixml_objects SYSTEM PUBLIC ${PLEXORN_PUGIXML_SOURCE}/src)
    target_link_libraries(plexorn_pugixml_objects PRIVATE plexorn_hardening)
    target_link_libraries(plexorn_pugixml INTERFACE plexorn_pugixml_objects)
else()
    message(FATAL_ERROR
        "pugixml is missing; run scripts/setup, or unpack its sources to ${PLEXORN_PUGIXML_SOURCE}.")
endif()
