# What the installs and the Debian package hold; the folders come from InstallDirs.cmake.
install(TARGETS Spatara LIBRARY DESTINATION "${SPATARA_VST_INSTALL_DIR}")
# The LV2 bundle: its module (stripped in the package like the others) and the description written beside it.
install(TARGETS Spatara_lv2 LIBRARY DESTINATION "${SPATARA_LV2_INSTALL_DIR}/Spatara.lv2")
install(FILES "${SPATARA_LV2_BUNDLE}/manifest.ttl" "${SPATARA_LV2_BUNDLE}/Spatara.ttl"
    "${SPATARA_LV2_BUNDLE}/presets.ttl" DESTINATION "${SPATARA_LV2_INSTALL_DIR}/Spatara.lv2")
# The VST3 bundle (its module in the folder of this machine's architecture) and the CLAP plug-in.
install(TARGETS Spatara_vst3 LIBRARY DESTINATION
    "${SPATARA_VST3_INSTALL_DIR}/Spatara.vst3/Contents/${SPATARA_VST3_ARCH}-linux")
install(TARGETS Spatara_clap LIBRARY DESTINATION "${SPATARA_CLAP_INSTALL_DIR}")
install(TARGETS spatara-render RUNTIME DESTINATION "${SPATARA_BIN_INSTALL_DIR}")
install(FILES README.md DESTINATION "${SPATARA_DOC_INSTALL_DIR}")
if(SPATARA_INSTALL_FOR_USER)
    # A system install carries the licence as the package's copyright file (packaging/).
    install(FILES LICENSE DESTINATION "${SPATARA_DOC_INSTALL_DIR}")
endif()

# A Debian package of the system install: cpack -G DEB in the build directory.
set(CPACK_PACKAGE_NAME "zev-spatara")
set(CPACK_PACKAGE_VENDOR "ZEV Sound Design")
set(CPACK_PACKAGE_CONTACT "ZEV Sound Design <support@zev-sound.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "ZEV Spatara: stereo enhancement VST 2.4, LV2, VST3 and CLAP plug-in")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_DEBIAN_PACKAGE_SECTION "sound")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Widens or emphasises a stereo image by adding a delayed, filtered part of
 the signal to one channel and subtracting it from the other. Includes the
 plug-in for VST 2.4 hosts (/usr/lib/vst/Spatara.so), the same effect for LV2
 hosts (/usr/lib/lv2/Spatara.lv2), VST3 hosts (/usr/lib/vst3/Spatara.vst3) and
 CLAP hosts (/usr/lib/clap/Spatara.clap), and spatara-render, an offline host
 for the command line.")
# The package's binaries are stripped; the build tree keeps its symbols for debugging.
set(CPACK_STRIP_FILES ON)
set(CPACK_POST_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/DropLdconfigScripts.cmake")
set(CPACK_GENERATOR "DEB")
include(CPack)
