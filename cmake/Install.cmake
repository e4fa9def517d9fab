# Where the plug-in, the offline host and the documents go.
#   system (default): <prefix>/lib/vst/Spatara.so, <prefix>/bin/spatara-render, <prefix>/share/doc/zev-spatara
#   user (-DSPATARA_INSTALL_FOR_USER=ON): ~/.vst/Spatara.so, ~/.local/bin/spatara-render,
#                                          ~/.local/share/zev-spatara
option(SPATARA_INSTALL_FOR_USER "Install into the user's home instead of a prefix" OFF)

if(SPATARA_INSTALL_FOR_USER)
    set(SPATARA_VST_INSTALL_DIR "$ENV{HOME}/.vst")
    set(SPATARA_BIN_INSTALL_DIR "$ENV{HOME}/.local/bin")
    set(SPATARA_DOC_INSTALL_DIR "$ENV{HOME}/.local/share/zev-spatara")
else()
    set(SPATARA_VST_INSTALL_DIR "lib/vst")
    set(SPATARA_BIN_INSTALL_DIR "bin")
    set(SPATARA_DOC_INSTALL_DIR "share/doc/zev-spatara")
endif()

install(TARGETS Spatara LIBRARY DESTINATION "${SPATARA_VST_INSTALL_DIR}")
install(TARGETS spatara-render RUNTIME DESTINATION "${SPATARA_BIN_INSTALL_DIR}")
install(FILES README.md DESTINATION "${SPATARA_DOC_INSTALL_DIR}")

# A Debian package of the system install: cpack -G DEB in the build directory.
set(CPACK_PACKAGE_NAME "zev-spatara")
set(CPACK_PACKAGE_VENDOR "ZEV Sound Design")
set(CPACK_PACKAGE_CONTACT "ZEV Sound Design <support@zev-sound.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "ZEV Spatara: stereo enhancement VST 2.4 plug-in")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_DEBIAN_PACKAGE_SECTION "sound")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Widens or emphasises a stereo image by adding a delayed, filtered part
 of the signal to one channel and subtracting it from the other. Includes the
 plug-in for VST 2.4 hosts (/usr/lib/vst/Spatara.so) and spatara-render, an
 offline host for the command line.")
set(CPACK_GENERATOR "DEB")
include(CPack)
