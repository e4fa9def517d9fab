# Where the plug-in, the offline host and the documents go.
#   system (default): <prefix>/lib/vst/Spatara.so, <prefix>/lib/lv2/Spatara.lv2, <prefix>/lib/vst3/Spatara.vst3,
#                     <prefix>/lib/clap/Spatara.clap, <prefix>/bin/spatara-render, <prefix>/share/doc/zev-spatara,
#                     <prefix>/share/man
#   user (-DSPATARA_INSTALL_FOR_USER=ON): ~/.vst/Spatara.so, ~/.lv2/Spatara.lv2, ~/.vst3/Spatara.vst3,
#                                          ~/.clap/Spatara.clap, ~/.local/bin/spatara-render,
#                                          ~/.local/share/zev-spatara, ~/.local/share/man
option(SPATARA_INSTALL_FOR_USER "Install into the user's home instead of a prefix" OFF)

if(SPATARA_INSTALL_FOR_USER)
    set(SPATARA_VST_INSTALL_DIR "$ENV{HOME}/.vst")
    set(SPATARA_LV2_INSTALL_DIR "$ENV{HOME}/.lv2")
    set(SPATARA_VST3_INSTALL_DIR "$ENV{HOME}/.vst3")
    set(SPATARA_CLAP_INSTALL_DIR "$ENV{HOME}/.clap")
    set(SPATARA_BIN_INSTALL_DIR "$ENV{HOME}/.local/bin")
    set(SPATARA_DOC_INSTALL_DIR "$ENV{HOME}/.local/share/zev-spatara")
    set(SPATARA_MAN_INSTALL_DIR "$ENV{HOME}/.local/share/man")
else()
    set(SPATARA_VST_INSTALL_DIR "lib/vst")
    set(SPATARA_LV2_INSTALL_DIR "lib/lv2")
    set(SPATARA_VST3_INSTALL_DIR "lib/vst3")
    set(SPATARA_CLAP_INSTALL_DIR "lib/clap")
    set(SPATARA_BIN_INSTALL_DIR "bin")
    set(SPATARA_DOC_INSTALL_DIR "share/doc/zev-spatara")
    set(SPATARA_MAN_INSTALL_DIR "share/man")
endif()

