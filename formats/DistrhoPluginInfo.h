// What the plug-in framework needs to know about the effect before it compiles its format wrappers.
#pragma once

#define DISTRHO_PLUGIN_BRAND "ZEV Sound Design"
#define DISTRHO_PLUGIN_NAME "ZEV Spatara"
#define DISTRHO_PLUGIN_URI "https://zev-sound.example/plugins/spatara"
#define SPATARA_HOME_PAGE "https://zev-sound.example/spatara"
#define DISTRHO_PLUGIN_BRAND_ID Zevs
#define DISTRHO_PLUGIN_UNIQUE_ID Qwsn

// The editor is the effect's own: an external UI to the framework, embedded in the host's window, with
// the effect object at hand (so the bundle is one binary) and the one copy of the window layer its own.
#define DISTRHO_PLUGIN_HAS_UI 1
#define DISTRHO_PLUGIN_HAS_EXTERNAL_UI 1
#define DISTRHO_PLUGIN_HAS_EMBED_UI 1
#define DISTRHO_PLUGIN_WANT_DIRECT_ACCESS 1
// The user may drag the window: the editor settles on the nearest of its zooms (SpataraDpfUI::sizeChanged).
#define DISTRHO_UI_USER_RESIZABLE 1
#define DISTRHO_PLUGIN_IS_RT_SAFE 1
#define DISTRHO_PLUGIN_NUM_INPUTS 2
#define DISTRHO_PLUGIN_NUM_OUTPUTS 2
// The factory presets are written as port-only LV2 presets of our own, so a preset never replaces the bank.
// No VST3 programs either: choosing one makes the framework ask the host to reread every parameter at once,
// which freezes Ardour 7.3. (The framework's CLAP wrapper offers no preset list.)
#define DISTRHO_PLUGIN_WANT_PROGRAMS 0
// The bank is the state, read from the effect whenever the host saves.
#define DISTRHO_PLUGIN_WANT_STATE 1
#define DISTRHO_PLUGIN_WANT_FULL_STATE 1
#define DISTRHO_PLUGIN_LV2_STATE_PREFIX DISTRHO_PLUGIN_URI "#"
#define DISTRHO_PLUGIN_LV2_CATEGORY "lv2:SpatialPlugin"

#define DISTRHO_PLUGIN_VST3_CATEGORIES "Fx|Spatial|Stereo"
#define DISTRHO_PLUGIN_CLAP_ID "com.zev-sound.spatara"
#define DISTRHO_PLUGIN_CLAP_FEATURES "audio-effect", "stereo", "utility"
// VST3 and CLAP hosts have a bypass switch of their own; it turns the effect's "process" off, so the meter
// keeps moving. LV2 has none that the effect needs: "process" is the port.
#if defined(DISTRHO_PLUGIN_TARGET_VST3) || defined(DISTRHO_PLUGIN_TARGET_CLAP)
#define SPATARA_HOST_BYPASS 1
#else
#define SPATARA_HOST_BYPASS 0
#endif
