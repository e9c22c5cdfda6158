# The Debian package: `cmake --build --preset package`. Two builds of one commit give the same bytes, whatever
# folder they are made in: all dates are those of the release in CHANGELOG.md.

set(PELLAM_MAINTAINER "Pellam developers <developers@pellam.example>")
set(PELLAM_APPSTREAM_ID example.pellam.Pellam)
set(made ${PROJECT_BINARY_DIR}/packaging)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)

# --- Releases, the latest first: "## [1.0.0] - 2026-11-22"
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md headings REGEX "^## .[0-9]")
set(PELLAM_RELEASES "")
foreach(heading IN LISTS headings)
  if(NOT heading MATCHES "^## .([0-9]+\\.[0-9]+\\.[0-9]+). - ([0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9])$")
    message(FATAL_ERROR "CHANGELOG.md: \"${heading}\" is no release")
  endif()
  if(NOT PELLAM_RELEASES)
    set(latest ${CMAKE_MATCH_1})
    set(release_date ${CMAKE_MATCH_2})
  endif()
  list(APPEND PELLAM_RELEASES "    <release version=\"${CMAKE_MATCH_1}\" date=\"${CMAKE_MATCH_2}\"/>")
endforeach()
list(JOIN PELLAM_RELEASES "\n" PELLAM_RELEASES)
if(NOT latest STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "CHANGELOG.md has ${latest} as its latest release, the project is ${PROJECT_VERSION}")
endif()
execute_process(COMMAND date --utc --date=${release_date} +%s
                OUTPUT_VARIABLE release_seconds OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)

# --- Files that are made
configure_file(${packaging}/pellam.metainfo.xml.in ${made}/${PELLAM_APPSTREAM_ID}.metainfo.xml @ONLY)
file(READ ${PROJECT_SOURCE_DIR}/LICENSE licence)
string(REGEX REPLACE "^[^\n]*\n\n" "" licence "${licence}") # the holders stand above
string(REGEX REPLACE "\n$" "" licence "${licence}")
string(REPLACE "\n\n" "\n.\n" licence "${licence}")
string(REPLACE "\n" "\n " licence " ${licence}")
configure_file(${packaging}/copyright ${made}/copyright @ONLY)
file(APPEND ${made}/copyright "License: Expat\n${licence}\n")

# pellam_made(NAME COMMAND ...): a file of the package that is what a command writes, compressed.
set(made_files "")
function(pellam_made name)
  cmake_parse_arguments(ARG "" "" "COMMAND;DEPENDS" ${ARGN})
  add_custom_command(OUTPUT ${made}/${name} COMMAND ${ARG_COMMAND} > ${made}/${name} DEPENDS ${ARG_DEPENDS} VERBATIM)
  add_custom_command(OUTPUT ${made}/${name}.gz COMMAND gzip --best --no-name --stdout ${made}/${name}
                     > ${made}/${name}.gz DEPENDS ${made}/${name} VERBATIM)
  set(made_files ${made_files} ${made}/${name} ${made}/${name}.gz PARENT_SCOPE)
endfunction()

pellam_made(pellam.1 COMMAND pellam_pages man ${PROJECT_VERSION} ${release_date} DEPENDS pellam_pages)
pellam_made(pellam.bash COMMAND pellam_pages bash DEPENDS pellam_pages)
pellam_made(_pellam COMMAND pellam_pages zsh DEPENDS pellam_pages)
pellam_made(changelog COMMAND awk -v package=pellam -v maintainer=${PELLAM_MAINTAINER}
                                  -f ${packaging}/changelog.awk ${PROJECT_SOURCE_DIR}/CHANGELOG.md
            DEPENDS ${packaging}/changelog.awk ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
add_custom_target(packaging ALL DEPENDS ${made_files})

# --- Where they go
install(FILES ${made}/${PELLAM_APPSTREAM_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${made}/pellam.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${made}/pellam.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME pellam)
install(FILES ${made}/_pellam DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES ${made}/copyright ${made}/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/pellam)
install(PROGRAMS ${PROJECT_SOURCE_DIR}/scripts/make_sample_database.sh
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/pellam/examples)
file(CREATE_LINK ../../../pellam/samples ${made}/samples SYMBOLIC)
install(FILES ${made}/samples DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/pellam/examples)

# --- The package
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pellam)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${PELLAM_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${PROJECT_HOMEPAGE_URL})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The plug-in that shows the icons; before Debian 13 it came with the library.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-svg-plugins | libqt6svg6 (<< 6.7)")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, libsqliteodbc, xdg-utils, hicolor-icon-theme")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "odbc-postgresql, odbc-mariadb")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "viewer for historical measurement data of data loggers")
set(CPACK_PACKAGE_DESCRIPTION
"Pellam opens the replay files, binary files and text files of data loggers,
and logging sessions in databases through ODBC. It lays their channels out on
a grid exactly as they were recorded, checks every line that carries a
checksum, draws the channels as curves against time on up to six axes, and
exports, prints or copies what is chosen, in its window or from the command
line.
.
It stays quick with files of ten million rows.")
set(CPACK_PROJECT_CONFIG_FILE ${made}/cpack-time.cmake)
file(CONFIGURE OUTPUT ${made}/cpack-time.cmake CONTENT "set(ENV{SOURCE_DATE_EPOCH} ${release_seconds})\n")
set(CPACK_POST_BUILD_SCRIPTS ${made}/cpack-repack.cmake)
file(GENERATE OUTPUT ${made}/cpack-repack.cmake CONTENT
     "execute_process(COMMAND ${packaging}/repack.sh \${CPACK_PACKAGE_FILES} ${release_seconds}
                COMMAND_ERROR_IS_FATAL ANY)\n")
include(CPack)
