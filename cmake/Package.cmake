# `cmake --install` and the Debian package on Linux; on Windows `cmake --install` gathers what an administrator installs.
# The archives and help files are made by the Linux build in both cases.
set(driver_data ${CMAKE_SOURCE_DIR}/data/install)
set(archives "${CMAKE_SOURCE_DIR}/out/data/vt#base.ddz" "${CMAKE_SOURCE_DIR}/out/data/vt#ost.ddz")

if(WIN32)
  install(TARGETS ostvt vtdal vtnetmon_real RUNTIME DESTINATION .)
  install(FILES ${driver_data}/ostvt.inf ${driver_data}/ostvt.dat ${driver_data}/Defaults.sds ${archives}
    ${CMAKE_SOURCE_DIR}/out/data/ostenu.chm ${CMAKE_SOURCE_DIR}/out/data/ostdeu.chm DESTINATION .)
  return()
endif()

# The last element is the driver's version, by which the module knows that it lies in a driver directory.
set(module_place lib/ostvt/3)
install(TARGETS ostvt vtnetmon_real LIBRARY DESTINATION ${module_place} NAMELINK_SKIP)
install(FILES ${driver_data}/ostvt.dat ${driver_data}/Defaults.sds ${archives} DESTINATION ${module_place})
install(TARGETS vtdal RUNTIME DESTINATION bin)
install(FILES ${driver_data}/vtdal.bash DESTINATION share/bash-completion/completions RENAME vtdal)
install(FILES ${driver_data}/copyright DESTINATION share/doc/ostvt)

# Manual pages and changelogs are installed packed.
function(install_packed source name place)
  set(packed ${CMAKE_CURRENT_BINARY_DIR}/package/${name}.gz)
  add_custom_command(OUTPUT ${packed} DEPENDS ${source}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/package
    COMMAND sh -c "gzip -9nc '${source}' >'${packed}'" VERBATIM)
  add_custom_target(packed_${name} ALL DEPENDS ${packed})
  install(FILES ${packed} DESTINATION ${place})
endfunction()
install_packed(${CMAKE_SOURCE_DIR}/docs/vtdal.1 vtdal.1 share/man/man1)
install_packed(${CMAKE_SOURCE_DIR}/CHANGELOG.md changelog share/doc/ostvt)
add_custom_target(package_files DEPENDS ostvt vtdal vtnetmon definitions packed_vtdal.1 packed_changelog)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ostvt)
set(CPACK_PACKAGE_VENDOR Vantrel)
set(CPACK_PACKAGE_CONTACT "Vantrel <drivers@vantrel.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "driver for Ostrel label printers")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS cups)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
  "The user-mode half of the Vantrel driver for Ostrel label printers: the\n driver's module with the definitions of its models, its port monitor, and\n the command-line tool vtdal.")
include(CPack)

if(OSTVT_TESTS AND CMAKE_BUILD_TYPE STREQUAL "Release")
  add_test(NAME package COMMAND bash ${CMAKE_SOURCE_DIR}/tests/tools/package_test.sh ${CMAKE_BINARY_DIR})
endif()
