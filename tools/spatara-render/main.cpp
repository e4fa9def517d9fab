// spatara-render: renders audio files through a VST 2.4 plug-in, as a host would, and shows what the
// plug-in reports about itself.
#include "HostActions.h"
#include "PluginInfo.h"
#include "RenderOptions.h"
#include "Renderer.h"
#include "SpataraVersion.h"
#include "VstPluginHost.h"

#include <cstdio>
#include <iostream>
#include <string>

namespace
{
constexpr int kFailure = 2;

int fail(const std::string& message)
{
    std::cerr << "spatara-render: " << message << "\n";
    return kFailure;
}

// Everything a host does to a plug-in before it plays: state, preset, parameters.
bool prepare(VstPluginHost& host, const RenderOptions& options, std::string& error)
{
    host.open();
    if (options.chunkIn && !restoreChunk(host, *options.chunkIn, error)) return false;
    if (options.preset && !selectPreset(host, *options.preset, error)) return false;
    return setParameters(host, options.params, error);
}
} // namespace

int main(int argc, char** argv)
{
    std::string error;
    const auto options = parseRenderOptions(argc, argv, error);
    if (!options)
    {
        std::cerr << "spatara-render: " << error << "; try --help\n";
        return kFailure;
    }
    if (options->help)
    {
        std::cout << renderUsage();
        return 0;
    }
    if (options->version)
    {
        std::cout << "spatara-render " SPATARA_VERSION_STRING "\n";
        return 0;
    }

    if (!outputsSpareInputs(*options, error)) return fail(error);
    auto host = VstPluginHost::load(options->plugin, error);
    if (!host) return fail(error);
    if (!prepare(*host, *options, error)) return fail(error);

    if (options->info)
    {
        printPluginInfo(*host, std::cout);
    }
    else if (options->listPresets)
    {
        printPresetList(*host, std::cout, "");
    }
    else
    {
        Renderer renderer(*host, *options);
        if (!renderer.run(error)) return fail(error);
        char line[160];
        std::snprintf(line, sizeof(line), "wrote %s (%.3f s spent in the plug-in)\n", options->output.c_str(),
                      renderer.seconds());
        std::cout << line;
        if (const auto& meters = renderer.meters())
        {
            std::snprintf(line, sizeof(line),
                          "balance meter: %+.3f (shown %.3f; +0.5 mono, -0.5 anti-phase)\n"
                          "correlation: %+.2f\n",
                          static_cast<double>(meters->balance), 0.5 + static_cast<double>(meters->balance),
                          static_cast<double>(meters->correlation));
            std::cout << line;
        }
    }
    if (options->chunkOut && !saveChunk(*host, *options->chunkOut, error)) return fail(error);
    return 0;
}
