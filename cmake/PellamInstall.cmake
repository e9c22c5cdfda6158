# What `cmake --install` puts in place, the desktop's files included.

include(GNUInstallDirs)
set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)

install(TARGETS pellam)
install(FILES ${packaging}/pellam.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/pellam-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME pellam.xml)
install(FILES ${PROJECT_SOURCE_DIR}/src/ui/icons/application.svg
        DESTINATION ${icons}/scalable/apps RENAME pellam.svg)
install(FILES ${packaging}/pellam-symbolic.svg DESTINATION ${icons}/symbolic/apps)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/samples DESTINATION ${CMAKE_INSTALL_DATADIR}/pellam
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
install(FILES docs/formats.md docs/databases.md docs/security.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/pellam)
