# Packs all files of FOLDER into the Java archive ARCHIVE. The same files give the same bytes, whenever and wherever.
file(GLOB_RECURSE files RELATIVE ${FOLDER} ${FOLDER}/*)
list(SORT files)
execute_process(COMMAND ${CMAKE_COMMAND} -E tar cf ${ARCHIVE} --format=zip "--mtime=2020-01-01 UTC" ${files}
                WORKING_DIRECTORY ${FOLDER} COMMAND_ERROR_IS_FATAL ANY)
