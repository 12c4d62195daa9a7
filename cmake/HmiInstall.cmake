# Where what is delivered lands below the prefix. An install component is a Debian package (packaging/debian): library,
# development, qml and tools. See docs/install.md.

# Debian's linker, pkg-config, CMake and Qt look into this folder, below /usr and /usr/local alike.
if(CMAKE_LIBRARY_ARCHITECTURE)
    set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE STRING "Libraries, below the prefix")
endif()
set(CMAKE_INSTALL_DOCDIR share/doc/hmi-shared CACHE STRING "Examples, below the prefix")
include(GNUInstallDirs)
set(HMI_INSTALL_QMLDIR ${CMAKE_INSTALL_LIBDIR}/qt5/qml CACHE STRING "QML modules, below the prefix; Qt's own folder finds them")
set(HMI_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/hmi-shared-${PROJECT_VERSION_MAJOR}.0)
set(HMI_INSTALL_PROGRAMDIR ${CMAKE_INSTALL_LIBEXECDIR}/hmi-shared)
set(HMI_INSTALL_DATADIR ${CMAKE_INSTALL_DATADIR}/hmi-shared)

# hmi_find_libraries_from(<target> <folder>): where the target is installed; it finds the libraries wherever the prefix
# is moved to.
function(hmi_find_libraries_from target folder)
    file(RELATIVE_PATH path ${CMAKE_INSTALL_PREFIX}/${folder} ${CMAKE_INSTALL_FULL_LIBDIR})
    string(REGEX REPLACE "/$" "" origin $ORIGIN/${path})
    set_target_properties(${target} PROPERTIES INSTALL_RPATH ${origin})
endfunction()

# hmi_install_library(<target> <alias>): Hmi::Core is exported as the component Core of the package HmiShared.
function(hmi_install_library target alias)
    string(REPLACE "Hmi::" "" component ${alias})
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${component})
    hmi_find_libraries_from(${target} ${CMAKE_INSTALL_LIBDIR})
    install(TARGETS ${target} EXPORT Hmi${component}Targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
        INCLUDES DESTINATION ${HMI_INSTALL_INCLUDEDIR})
endfunction()

# hmi_install_qml_module(<plugin> <folder> <directory>): from its directory into its folder of Qt's.
function(hmi_install_qml_module plugin folder directory)
    set(destination ${HMI_INSTALL_QMLDIR}/${folder})
    hmi_find_libraries_from(${plugin} ${destination})
    install(TARGETS ${plugin} LIBRARY DESTINATION ${destination} COMPONENT qml)
    install(FILES ${directory}/qmldir DESTINATION ${destination} COMPONENT qml)
    # Where modules cannot be described they work without.
    install(FILES ${directory}/plugins.qmltypes DESTINATION ${destination} COMPONENT qml OPTIONAL)
endfunction()
