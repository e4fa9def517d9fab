// The framework's LV2 wrapper, its entry point renamed so that Lv2Entry.cpp can wrap it.
#define lv2_descriptor spatara_framework_lv2_descriptor
#include "DistrhoPluginMain.cpp"
