// The framework's CLAP wrapper, its entry point renamed so that ClapEntry.cpp can wrap it.
#define clap_entry spatara_framework_clap_entry
#include "DistrhoPluginMain.cpp"
