# What builds say of their commit: cmake -D GENERATOR=<script> -D FOLDER=<to work in> -P BuildIdentifiersChecks.cmake
cmake_minimum_required(VERSION 3.25)
set(ENV{GIT_CONFIG_GLOBAL} /dev/null)
set(ENV{GIT_CEILING_DIRECTORIES} ${FOLDER})

function(expect project sha description)
    execute_process(COMMAND ${CMAKE_COMMAND} -D SOURCE=${FOLDER}/${project} -D PRODUCT=hmi -D VERSION=1.2
        -D HEADER=${FOLDER}/header.h -P ${GENERATOR} COMMAND_ERROR_IS_FATAL ANY)
    file(READ ${FOLDER}/header.h header)
    if(NOT header MATCHES "= \"${sha}\";.*= \"${description}\";")
        message(SEND_ERROR "${project}: not ${description} but\n${header}")
    endif()
endfunction()

function(git)
    execute_process(COMMAND git -c user.name=a -c user.email=a@b -C ${FOLDER}/project ${ARGN}
        OUTPUT_QUIET ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER}/project/vendored)
expect(project unknown unknown)
git(init -b "a/\"b")
expect(project unknown unknown)
git(commit --allow-empty -m 1)
expect(project/vendored unknown unknown)
set(sha "[0-9a-f]+")
set(ENV{GIT_DIR} /of/a/hook)
expect(project ${sha} "a/.\"b/hmi/1.2-1-g${sha}")
unset(ENV{GIT_DIR})
git(clone --depth 1 file://${FOLDER}/project ../shallow)
expect(shallow ${sha} "a/.\"b/hmi/1.2-0-g${sha}")
git(checkout --detach)
expect(project ${sha} detached/hmi/1.2-1-g${sha})
