// What a plug-in reports about itself, printed for people.
#pragma once

#include <ostream>

class VstPluginHost;

void printPluginInfo(VstPluginHost& host, std::ostream& out);
// The number and name of every preset, one a line, each line begun with indent.
void printPresetList(VstPluginHost& host, std::ostream& out, const char* indent);
