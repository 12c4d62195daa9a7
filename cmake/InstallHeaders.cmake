# Installs the public headers with their path from the root. What exports a class or function, or is a template, is public,
# and so is what these include; the generated side of a D-Bus interface lies beside the folders.
#   HMI_SOURCE, HMI_BINARY: the project and its build; HMI_INCLUDEDIR: the include folder below the prefix

cmake_minimum_required(VERSION 3.25)

file(GLOB_RECURSE headers RELATIVE ${HMI_SOURCE} ${HMI_SOURCE}/hmi/*.h ${HMI_SOURCE}/platform/*.h)
foreach(header IN LISTS headers)
    file(STRINGS ${HMI_SOURCE}/${header} mark REGEX "Q_DECL_EXPORT|^template" LIMIT_COUNT 1)
    if(mark)
        list(APPEND waiting ${header})
    endif()
endforeach()

set(destination ${CMAKE_INSTALL_PREFIX}/${HMI_INCLUDEDIR})
while(waiting)
    list(POP_FRONT waiting header)
    if(header IN_LIST installed)
        continue()
    endif()
    list(APPEND installed ${header})
    get_filename_component(folder ${header} DIRECTORY)
    file(INSTALL ${HMI_SOURCE}/${header} DESTINATION ${destination}/${folder})
    file(STRINGS ${HMI_SOURCE}/${header} includes REGEX "^#include <((hmi|platform)/|[A-Za-z]+Interface\\.h)")
    foreach(include IN LISTS includes)
        string(REGEX REPLACE ".*<(.*)>.*" "\\1" include ${include})
        if(include MATCHES "/")
            list(APPEND waiting ${include})
        else()
            file(GLOB generated ${HMI_BINARY}/platform/*/${include})
            file(READ ${generated} text)
            # A comment names the folder of the sources.
            string(REPLACE "${HMI_SOURCE}/" "" text "${text}")
            file(WRITE ${HMI_BINARY}/packaging/include/${include} "${text}")
            file(INSTALL ${HMI_BINARY}/packaging/include/${include} DESTINATION ${destination})
        endif()
    endforeach()
endwhile()
