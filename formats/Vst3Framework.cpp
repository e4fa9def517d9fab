// The framework's VST3 wrapper, its factory entry renamed so that Vst3Entry.cpp can wrap it.
#define GetPluginFactory spatara_framework_vst3_factory
#include "DistrhoPluginMain.cpp"
