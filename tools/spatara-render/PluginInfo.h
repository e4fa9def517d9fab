// What a plug-in reports about itself, printed for people.
#pragma once

#include <ostream>

class VstPluginHost;

void printPluginInfo(VstPluginHost& host, std::ostream& out);
