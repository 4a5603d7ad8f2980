# The Debian package (cmake --build --preset default --target package): the four programs, the
# rules, the help, the system-wide settings, the menu entry with its icon and the manual pages.
include(GNUInstallDirs)
install(FILES ${PROJECT_SOURCE_DIR}/data/desktop/pelkor-edit.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/data/desktop/pelkor.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(program pelkor-edit pelkor-help pelkor-db pelkedit-script)
  set(page ${CMAKE_CURRENT_BINARY_DIR}/man/${program}.1.gz)
  add_custom_command(OUTPUT ${page}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/man
    COMMAND gzip -9 -n -c ${PROJECT_SOURCE_DIR}/docs/man/${program}.1 > ${page}
    DEPENDS ${PROJECT_SOURCE_DIR}/docs/man/${program}.1)
  list(APPEND pelk_man_pages ${page})
endforeach()
add_custom_target(man_pages ALL DEPENDS ${pelk_man_pages})
install(FILES ${pelk_man_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pelkor)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "PelkEdit developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "sales opportunity editor with a sales-cycle advisor")
string(CONCAT CPACK_PACKAGE_DESCRIPTION
       "Pelkor keeps a team's sales opportunities (IBOs) in a SQLite file or on a PostgreSQL\n"
       "server. The editor shows the pipeline, qualifies each deal on five pages and gives\n"
       "the advisor's probability, priority and advice for the next step.")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "PelkEdit developers <pelkedit@localhost>")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE gzip)
# The settings file is the administrator's to change; dpkg keeps their changes on upgrade.
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/package/conffiles
     "${CMAKE_INSTALL_FULL_SYSCONFDIR}/pelkor/pelkor.ini\n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_BINARY_DIR}/package/conffiles)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
