# The Debian package: `cpack -G DEB` in a release build that was configured with the prefix /usr.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME chromalog)
set(CPACK_PACKAGE_VENDOR "The developers of Chromalog")
set(CPACK_PACKAGE_CONTACT "The developers of Chromalog <developers@chromalog.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "compose colors, find harmonies and keep swatches")
set(CPACK_PACKAGE_DESCRIPTION "A color workbench for designers and retouchers: two working colors, a color
wheel with harmonies, a tone chart, a gradient of four corners, and two lists
of up to 5,000 swatches. Palettes of a dozen kinds come in and go out.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The platform's plug-in is loaded, not linked; pictures of more kinds, ink profiles and the portal are extras.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ghostscript, qt6-image-formats-plugins")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "xdg-desktop-portal, inkscape")

install_compressed(debian/changelog.in changelog ${CMAKE_INSTALL_DATADIR}/doc/chromalog)
install(FILES debian/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/chromalog)
if(TARGET chromalog-gimp) # a package of its own
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz debian/copyright
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/chromalog-gimp COMPONENT gimp EXCLUDE_FROM_ALL)
endif()

# What is packed has the version's day, whenever that happens.
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_BINARY_DIR}/package_day.cmake)
file(WRITE ${CPACK_PROJECT_CONFIG_FILE} "set(ENV{SOURCE_DATE_EPOCH} ${CHROMALOG_RELEASE_SECONDS})\n")
include(CPack)
