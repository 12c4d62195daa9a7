# Compiler settings and target helpers shared by every folder.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

add_library(hmi_settings INTERFACE)
target_compile_options(hmi_settings INTERFACE
    -Wall -Wextra -Wshadow -Wconversion
    # 32-bit ARM and x86-64 must compute the same doubles.
    -ffp-contract=off
    $<$<BOOL:${HMI_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(hmi_settings INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_URL_CAST_FROM_STRING
    QT_DEPRECATED_WARNINGS
    $<$<CONFIG:Release>:QT_NO_DEBUG>)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # Sizes over 2 GiB, inode numbers over 32 bits and times after 2038-01-19 exist there as well; else the C library
    # refuses such files.
    target_compile_definitions(hmi_settings INTERFACE _FILE_OFFSET_BITS=64 _TIME_BITS=64)
endif()
target_include_directories(hmi_settings INTERFACE ${PROJECT_SOURCE_DIR})

if(HMI_SANITIZER)
    target_compile_options(hmi_settings INTERFACE
        -fsanitize=${HMI_SANITIZER} -fno-sanitize-recover=all -fno-omit-frame-pointer
        # With the checks between, GCC no longer sees what was set before.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    # The vptr check needs the type information of Qt's hidden classes.
    if(HMI_SANITIZER MATCHES "undefined")
        target_compile_options(hmi_settings INTERFACE -fno-sanitize=vptr)
    endif()
    target_link_options(hmi_settings INTERFACE -fsanitize=${HMI_SANITIZER})
endif()

# hmi_add_library(<target> <alias>): one of the three delivered shared libraries. Its folders add their
# sources with target_sources().
function(hmi_add_library target alias)
    add_library(${target} SHARED)
    add_library(${alias} ALIAS ${target})
    set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    target_link_libraries(${target} PRIVATE hmi_settings)
    # As Qt does with its own: half of the look-ups when a process starts.
    target_link_options(${target} PRIVATE -Wl,-Bsymbolic-functions)
    target_include_directories(${target} INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
    hmi_install_library(${target} ${alias})
endfunction()

# hmi_qt_headers(<target> <header>...): precompiles the Qt headers that most sources of a target include.
function(hmi_qt_headers target)
    target_precompile_headers(${target} PRIVATE ${ARGN})
endfunction()
