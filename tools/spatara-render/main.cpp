// spatara-render: renders audio files through a VST 2.4 plug-in, as a host would, and shows what the
// plug-in reports about itself.
#include "PluginInfo.h"
#include "VstPluginHost.h"

#include <cstring>
#include <iostream>
#include <string>

namespace
{
constexpr int kUsageError = 2;

int fail(const std::string& message)
{
    std::cerr << "spatara-render: " << message << "\n";
    return kUsageError;
}

void printUsage(std::ostream& out)
{
    out << "usage: spatara-render --info PLUGIN.so\n";
}
} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0))
    {
        printUsage(std::cout);
        return 0;
    }
    if (argc == 3 && std::strcmp(argv[1], "--info") == 0)
    {
        std::string error;
        auto host = VstPluginHost::load(argv[2], error);
        if (!host) return fail(error);
        printPluginInfo(*host, std::cout);
        return 0;
    }
    printUsage(std::cerr);
    return kUsageError;
}
