# Where a Linux desktop expects the parts of a program, and the Debian package.

install(TARGETS zolt zoltc RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS zoltc_pictures LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/zolt)
install(DIRECTORY ${ZOLT_DATA_DIR}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/zolt)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DATADIR}/zolt)
install(FILES LICENSE README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zolt)
set(CPACK_PACKAGE_CONTACT "The ZOLT developers <developers@zolt.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded at run time: the decoders of SVG icons and of further picture formats.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, qt6-image-formats-plugins")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
include(CPack)
