# Writes the header that tells which commit a build is made of:
#   cmake -D SOURCE=<project folder> -D PRODUCT=<name> -D VERSION=<version> -D HEADER=<file> -P BuildIdentifiers.cmake
# It tells "unknown" without git, outside a repository and inside that of another project. It runs on every build; the
# file is touched only when its content changes.
cmake_minimum_required(VERSION 3.25)

# A build that a git hook starts has the hook's repository in its environment.
foreach(variable GIT_DIR GIT_WORK_TREE GIT_INDEX_FILE GIT_COMMON_DIR GIT_OBJECT_DIRECTORY)
    unset(ENV{${variable}})
endforeach()

# git_line(<variable> <argument>...): what git prints. When git fails, false, and the reason is in "failure".
function(git_line variable)
    execute_process(COMMAND git -C "${SOURCE}" ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE line ERROR_VARIABLE error
        OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_STRIP_TRAILING_WHITESPACE)
    if(NOT status STREQUAL "0")
        set(line FALSE)
        set(failure "${status} ${error}" PARENT_SCOPE)
    endif()
    set(${variable} "${line}" PARENT_SCOPE)
endfunction()

set(BUILD_SHA unknown)
set(BUILD_DESCRIPTION unknown)
git_line(sha rev-parse --verify HEAD)
git_line(folder rev-parse --show-prefix)
if(sha AND NOT folder STREQUAL "")
    set(sha FALSE)
    set(failure "the commits of the repository around ${SOURCE} are not this project's")
endif()

if(sha)
    git_line(abbreviation rev-parse --short=7 HEAD)
    git_line(branch symbolic-ref --short HEAD)
    if(branch STREQUAL "FALSE")
        set(branch detached)
    endif()
    git_line(count rev-list --count HEAD)
    git_line(shallow rev-parse --is-shallow-repository)
    if(shallow STREQUAL "true")
        set(count 0)
    endif()
    set(BUILD_SHA ${sha})
    set(BUILD_DESCRIPTION "${branch}/${PRODUCT}/${VERSION}-${count}-g${abbreviation}")
    string(REPLACE "\"" "\\\"" BUILD_DESCRIPTION "${BUILD_DESCRIPTION}")
else()
    message(STATUS "The build identifiers are unknown: ${failure}")
endif()

file(CONFIGURE OUTPUT "${HEADER}" @ONLY CONTENT [[#pragma once

namespace Hmi::Shared {

constexpr char BuildSha[] = "@BUILD_SHA@";
constexpr char BuildDescription[] = "@BUILD_DESCRIPTION@";

} // namespace Hmi::Shared
]])
