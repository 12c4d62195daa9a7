# Installs the build into an empty folder and moves that; nothing in there may name the build or the sources.
#   cmake -D BINARY=<build> -D SOURCE=<project> -D PREFIX=<folder> -P InstallPrefix.cmake

set(first ${PREFIX}.first)
file(REMOVE_RECURSE ${first} ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BINARY} --prefix ${first} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${first} ${PREFIX})

# Programs may: debug information and __FILE__ do.
file(GLOB_RECURSE files ${PREFIX}/*.cmake ${PREFIX}/*.pc ${PREFIX}/*.h ${PREFIX}/*qmldir ${PREFIX}/*.qmltypes ${PREFIX}/*.service
    ${PREFIX}/*.txt ${PREFIX}/share/man/*)
foreach(file IN LISTS files)
    file(READ ${file} text)
    foreach(folder ${first} ${BINARY} ${SOURCE})
        string(FIND "${text}" "${folder}" place)
        if(NOT place EQUAL -1)
            message(SEND_ERROR "${file} names ${folder}.")
        endif()
    endforeach()
endforeach()
