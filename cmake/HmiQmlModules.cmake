# QML modules as plugins, for Qt's own tools and editors: <build>/qml/<uri as folders> with the plugin, its qmldir and
# the type description that qmlplugindump reads out of it.

set(HMI_QML_DIRECTORY ${CMAKE_BINARY_DIR}/qml)
set(HMI_QML_VERSION 1.0)

# The tools are not built with a sanitizer, so its runtime has to be loaded before them.
set(HMI_QML_TOOL_ENVIRONMENT QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software QML2_IMPORT_PATH=${HMI_QML_DIRECTORY})
if(HMI_SANITIZER MATCHES "address")
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libasan.so
        OUTPUT_VARIABLE HMI_ASAN_RUNTIME OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    # Qt's engine and tools keep memory until exit; leaks are looked for in the component checks.
    list(APPEND HMI_QML_TOOL_ENVIRONMENT LD_PRELOAD=${HMI_ASAN_RUNTIME} ASAN_OPTIONS=detect_leaks=0:quarantine_size_mb=1)
endif()

# Every optional type is described; what the library stores meanwhile goes beside the modules.
set(HMI_DESCRIPTION_CONFIG ${HMI_QML_DIRECTORY}/description.ini)
file(CONFIGURE OUTPUT ${HMI_DESCRIPTION_CONFIG} CONTENT "[HmiShared]\nDataManagerEnabled=true\nDataManagerConfigPath=DataManagerConf.ini\nSystemUpdateEnabled=true\n")
file(CONFIGURE OUTPUT ${HMI_QML_DIRECTORY}/DataManagerConf.ini CONTENT "[Storage]\nPath=description.db\n")

get_target_property(HMI_MOC_PATH Qt5::moc IMPORTED_LOCATION)
get_filename_component(HMI_QT_TOOLS ${HMI_MOC_PATH} DIRECTORY)

# All of them.
add_custom_target(hmi_qml_modules)

# hmi_add_qml_module(<uri> <plugin source> <library>): the plugin's class is named as its source.
function(hmi_add_qml_module uri source library)
    string(REPLACE "." "/" folder ${uri})
    string(REPLACE "." "_" target ${uri})
    string(TOLOWER ${target}_plugin target)
    get_filename_component(class ${source} NAME_WE)
    set(directory ${HMI_QML_DIRECTORY}/${folder})

    set_property(GLOBAL APPEND PROPERTY HMI_QML_MODULES ${target})
    add_library(${target} MODULE ${source})
    target_link_libraries(${target} PRIVATE ${library} hmi_settings)
    add_dependencies(hmi_qml_modules ${target})
    set_target_properties(${target} PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${directory})
    file(CONFIGURE OUTPUT ${directory}/qmldir CONTENT
"module ${uri}
plugin ${target}
classname ${class}
typeinfo plugins.qmltypes
")
    # ThreadSanitizer's runtime cannot be loaded into the tools, and its checks use no QML. Nor do they load what is built
    # for another machine; a description is the same for all of them.
    if(NOT HMI_SANITIZER MATCHES "thread" AND NOT CMAKE_CROSSCOMPILING)
        add_custom_command(TARGET ${target} POST_BUILD
            COMMAND ${CMAKE_COMMAND} -E env ${HMI_QML_TOOL_ENVIRONMENT} HMI_CONFIG=${HMI_DESCRIPTION_CONFIG}
                ${HMI_QT_TOOLS}/qmlplugindump -nonrelocatable -noinstantiate -output ${folder}/plugins.qmltypes
                ${uri} ${HMI_QML_VERSION} .
            # The description holds this command.
            WORKING_DIRECTORY ${HMI_QML_DIRECTORY}
            COMMENT "Describing the types of ${uri}" VERBATIM)
    endif()
    hmi_install_qml_module(${target} ${folder} ${directory})
endfunction()
