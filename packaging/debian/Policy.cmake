# Gives the staged packages what Debian's policy wants of every one: its copyright and changelog, compressed manual pages,
# and the reasons for what lintian remarks.

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} upper)
    set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
    set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}${CPACK_PACKAGING_INSTALL_PREFIX})
    set(documents ${root}/share/doc/${package})
    file(COPY ${CMAKE_CURRENT_LIST_DIR}/copyright DESTINATION ${documents}
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    file(WRITE ${documents}/changelog
"hmi-shared (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * CHANGELOG.md of the sources tells what is new.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
    set(overrides ${CMAKE_CURRENT_LIST_DIR}/${package}.lintian-overrides)
    if(EXISTS ${overrides})
        file(COPY ${overrides} DESTINATION ${root}/share/lintian/overrides)
        file(RENAME ${root}/share/lintian/overrides/${package}.lintian-overrides ${root}/share/lintian/overrides/${package})
    endif()
    file(GLOB pages ${root}/share/man/*/*)
    file(CHMOD ${documents}/changelog PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    execute_process(COMMAND gzip -9 -n -f ${documents}/changelog ${pages} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
