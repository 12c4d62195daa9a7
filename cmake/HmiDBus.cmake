# hmi_dbus_proxy(<target> <interface>.xml <file> <class> <types header>): generates the client side of a D-Bus
# interface as <file>.h in the folder's build directory, and installs the interface's description.
function(hmi_dbus_proxy target interface file class types)
    set_source_files_properties(${interface} PROPERTIES CLASSNAME ${class} INCLUDE ${types})
    qt5_add_dbus_interface(sources ${interface} ${file})
    add_library(${file} OBJECT ${sources})
    target_link_libraries(${file} PRIVATE Qt5::DBus hmi_settings)
    # Its classes are bases of what the library delivers.
    target_compile_options(${file} PRIVATE -fvisibility=default -w)
    target_link_libraries(${target} PRIVATE ${file})
    target_include_directories(${target} SYSTEM PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_BINARY_DIR}>)
    install(FILES ${interface} DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/interfaces COMPONENT development)
endfunction()

# hmi_dbus_adaptor(<target> <interface>.xml <file> <class> <parent header> <parent class>): generates the service side of
# a D-Bus interface as <file>.h in the folder's build directory; it calls the parent class's methods of the same names.
function(hmi_dbus_adaptor target interface file class header parent)
    qt5_add_dbus_adaptor(sources ${interface} ${header} ${parent} ${file} ${class})
    add_library(${file} OBJECT ${sources})
    target_link_libraries(${file} PRIVATE Qt5::DBus hmi_settings)
    target_compile_options(${file} PRIVATE -w)
    target_link_libraries(${target} PRIVATE ${file})
    target_include_directories(${target} SYSTEM PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
endfunction()
