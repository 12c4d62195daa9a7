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
    install(FILES ${interface} DESTINATION share/dbus-1/interfaces)
endfunction()
