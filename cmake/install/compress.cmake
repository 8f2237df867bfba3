# Compresses ${file} into ${compressed}, without its name and time, so that the same text gives the same bytes.
# Readers of manuals and changelogs take them so, and Debian wants them so.
execute_process(COMMAND gzip -9nc INPUT_FILE "${file}" OUTPUT_FILE "${compressed}" COMMAND_ERROR_IS_FATAL ANY)
