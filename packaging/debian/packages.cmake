# Debian packages, one for each install component: `cpack` in a build folder, or scripts/package for those to deliver.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME hmi-shared)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
# Each package has its own as the first line of its description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_CONTACT "Hmi Shared developers <developers@hmi-shared.example.org>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/Policy.cmake)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library development qml tools)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# The project's own libraries come with the package of the component that is depended on.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libhmishared${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
# Qt loads it when strings are registered.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_DEPENDS libqt5sql5-sqlite)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS "dbus, fonts-open-sans")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "shared component layer of a head unit's HMI
Settings, vehicle signals, software update, notifications, units and more
for the QML screens and C++ modules of a car head unit, with the policies
that let its clients onto the system bus.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libhmishared-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "qtbase5-dev (>= 5.15), qtdeclarative5-dev (>= 5.15)")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "hmi-shared-tools, qml-module-hmi-shared")
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS library)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "shared component layer of a head unit's HMI - development
Headers, the CMake package HmiShared, pkg-config files, descriptions of the
D-Bus interfaces, and an example head unit.")

set(CPACK_DEBIAN_QML_PACKAGE_NAME qml-module-hmi-shared)
set(CPACK_DEBIAN_QML_PACKAGE_SECTION libs)
# The tools show nothing without them.
set(CPACK_DEBIAN_QML_PACKAGE_RECOMMENDS "qml-module-qtquick2, qml-module-qtquick-window2")
set(CPACK_COMPONENT_QML_DEPENDS library)
set(CPACK_COMPONENT_QML_DESCRIPTION "shared component layer of a head unit's HMI - QML modules
The modules Hmi.Core and hmi.shared, and their companions, as plugins for
Qt's own tools and for editors.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME hmi-shared-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION devel)
# What component checks start or load: a private bus, the resource compiler, the database of strings, time zones.
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "dbus-daemon, qtbase5-dev-tools, libqt5sql5-sqlite, tzdata")
set(CPACK_COMPONENT_TOOLS_DEPENDS library)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "shared component layer of a head unit's HMI - tools
The simulator of the platform's services for a desk, and the driver that runs
the component checks of the library where it is installed.")

include(CPack)
