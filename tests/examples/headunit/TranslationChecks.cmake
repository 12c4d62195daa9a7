# Whether every text of the product has its translation: cmake -D LUPDATE=<program> -D PRODUCT=<its sources>
# -D FOLDER=<to work in> -P TranslationChecks.cmake
file(REMOVE_RECURSE ${FOLDER})
file(COPY ${PRODUCT}/translations/ DESTINATION ${FOLDER})
file(GLOB translations ${FOLDER}/*.ts)
foreach(translation ${translations})
    execute_process(COMMAND ${LUPDATE} -silent -no-obsolete ${PRODUCT} -ts ${translation} COMMAND_ERROR_IS_FATAL ANY)
    file(READ ${translation} content)
    string(REGEX MATCHALL "<source>[^<]*</source>[^<]*<translation type=\"unfinished\"" missing "${content}")
    foreach(text ${missing})
        string(REGEX REPLACE "<source>([^<]*)<.*" "\\1" text "${text}")
        message(SEND_ERROR "${translation}: not translated: ${text}")
    endforeach()
endforeach()
