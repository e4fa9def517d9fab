// What the plug-in framework needs to know about the effect before it compiles its format wrappers.
#pragma once

#define DISTRHO_PLUGIN_BRAND "ZEV Sound Design"
#define DISTRHO_PLUGIN_NAME "ZEV Spatara"
#define DISTRHO_PLUGIN_URI "https://zev-sound.example/plugins/spatara"
#define DISTRHO_PLUGIN_BRAND_ID Zevs
#define DISTRHO_PLUGIN_UNIQUE_ID Qwsn

// The editor is the effect's own: an external UI to the framework, embedded in the host's window, with
// the effect object at hand (so the bundle is one binary) and the one copy of the window layer its own.
#define DISTRHO_PLUGIN_HAS_UI 1
#define DISTRHO_PLUGIN_HAS_EXTERNAL_UI 1
#define DISTRHO_PLUGIN_HAS_EMBED_UI 1
#define DISTRHO_PLUGIN_WANT_DIRECT_ACCESS 1
#define DISTRHO_UI_USER_RESIZABLE 0
#define DISTRHO_PLUGIN_IS_RT_SAFE 1
#define DISTRHO_PLUGIN_NUM_INPUTS 2
#define DISTRHO_PLUGIN_NUM_OUTPUTS 2
// The factory presets are written as port-only LV2 presets of our own, so a preset never replaces the bank.
#define DISTRHO_PLUGIN_WANT_PROGRAMS 0
// The bank is the state, read from the effect whenever the host saves.
#define DISTRHO_PLUGIN_WANT_STATE 1
#define DISTRHO_PLUGIN_WANT_FULL_STATE 1
#define DISTRHO_PLUGIN_LV2_STATE_PREFIX DISTRHO_PLUGIN_URI "#"
#define DISTRHO_PLUGIN_LV2_CATEGORY "lv2:SpatialPlugin"
