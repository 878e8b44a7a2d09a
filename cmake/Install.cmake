# Where `cmake --install` puts the programs and what a desktop needs to show
# them: the launcher and its AppStream description under one application id,
# the icon, the manual pages, bash completion and the copyright.
include(GNUInstallDirs)

set(VANTRELLE_APP_ID org.vantrelle.Vantrelle)
set(dist ${PROJECT_SOURCE_DIR}/dist)
set(generated ${PROJECT_BINARY_DIR}/dist)

set(PROGRAM vantrelle)
configure_file(${dist}/${VANTRELLE_APP_ID}.desktop.in ${generated}/${VANTRELLE_APP_ID}.desktop @ONLY)
configure_file(${dist}/${VANTRELLE_APP_ID}.metainfo.xml ${generated}/${VANTRELLE_APP_ID}.metainfo.xml @ONLY)
# Manual pages and the changelog go compressed, the same bytes on every build.
set(compressed)
foreach(page vantrelle.1 vantrelle-cli.1)
  configure_file(${dist}/man/${page} ${generated}/${page} @ONLY)
  add_custom_command(OUTPUT ${generated}/${page}.gz
    COMMAND gzip -9nc ${generated}/${page} > ${generated}/${page}.gz
    DEPENDS ${generated}/${page} VERBATIM)
  list(APPEND compressed ${generated}/${page}.gz)
endforeach()
set(changelog ${generated}/changelog.gz)
add_custom_command(OUTPUT ${changelog}
  COMMAND gzip -9nc ${dist}/changelog > ${changelog}
  DEPENDS ${dist}/changelog VERBATIM)
add_custom_target(vantrelle_dist_files ALL DEPENDS ${compressed} ${changelog})

install(TARGETS vantrelle vantrelle-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${generated}/${VANTRELLE_APP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${generated}/${VANTRELLE_APP_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${PROJECT_SOURCE_DIR}/qt/resources/vantrelle.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME ${VANTRELLE_APP_ID}.svg)
install(FILES ${compressed} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${dist}/vantrelle-cli.bash-completion
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME vantrelle-cli)
install(FILES ${dist}/copyright ${changelog} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vantrelle)
