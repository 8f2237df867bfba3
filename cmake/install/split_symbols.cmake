# Writes what a debugger needs of the file ${built} into ${debug}, and takes it out of ${installed}, if given,
# which is the same file but for its search path.
#
# It is written once for each build: for Windows its bytes hold the time, and ${installed} names it with a sum of
# its bytes.
if("${built}" IS_NEWER_THAN "${debug}")
    execute_process(COMMAND "${objcopy}" --only-keep-debug "${built}" "${debug}" COMMAND_ERROR_IS_FATAL ANY)
endif()
if(installed)
    execute_process(COMMAND "${objcopy}" --strip-unneeded --remove-section=.comment "--add-gnu-debuglink=${debug}"
        "${installed}" COMMAND_ERROR_IS_FATAL ANY)
endif()
