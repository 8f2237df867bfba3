# Installs ${file} in ${destination}, compressed into ${compressed} if that is set; nothing if it does not exist.
if(EXISTS "${file}")
    if(DEFINED compressed)
        include("${CMAKE_CURRENT_LIST_DIR}/compress.cmake")
        set(file "${compressed}")
    endif()
    file(INSTALL "${file}" DESTINATION "${destination}")
endif()
unset(compressed)
