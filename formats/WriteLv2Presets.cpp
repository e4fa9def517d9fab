// Build step of the LV2 bundle: writes the distinct factory presets as LV2 presets that set the six ports
// only (presets.ttl), and lists them in manifest.ttl, which the framework's generator has just written.
// Port-only on purpose: choosing a preset in a host must not replace the user's bank.
#include "DistrhoPluginInfo.h"
#include "FactoryPresets.h"
#include "ParameterTable.h"

#include <cstdio>
#include <fstream>
#include <string>

namespace
{
const char* const kPresetPrefixes = "@prefix lv2: <http://lv2plug.in/ns/lv2core#> .\n"
                                    "@prefix pset: <http://lv2plug.in/ns/ext/presets#> .\n"
                                    "@prefix rdfs: <http://www.w3.org/2000/01/rdf-schema#> .\n\n";

std::string presetUri(const FactoryPreset& preset)
{
    std::string uri = DISTRHO_PLUGIN_URI "#preset-";
    for (const char* c = preset.name; *c; ++c)
        uri += *c == ' ' ? '-' : *c;
    return uri;
}

// Enough digits that the host reads back the very float written.
std::string number(float value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", static_cast<double>(value));
    return text;
}

std::string presetHead(const FactoryPreset& preset)
{
    return "<" + presetUri(preset) +
           ">\n    a pset:Preset ;\n    lv2:appliesTo <" DISTRHO_PLUGIN_URI "> ;\n"
           "    rdfs:label \"" +
           preset.name + "\" ;\n";
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::fprintf(stderr, "usage: %s BUNDLE-FOLDER\n", argv[0]);
        return 2;
    }
    const std::string bundle = argv[1];
    std::ofstream presets(bundle + "/presets.ttl", std::ios::trunc);
    std::ofstream manifest(bundle + "/manifest.ttl", std::ios::app);
    if (!presets || !manifest)
    {
        std::fprintf(stderr, "%s: cannot write into %s\n", argv[0], bundle.c_str());
        return 1;
    }
    presets << kPresetPrefixes;
    manifest << "\n" << kPresetPrefixes;
    for (int n = 0; n < distinctFactoryPresetCount(); ++n)
    {
        const FactoryPreset& preset =
            kFactoryPresets[static_cast<std::size_t>(distinctFactoryPresetIndex(n))];
        manifest << presetHead(preset) << "    rdfs:seeAlso <presets.ttl> .\n\n";
        presets << presetHead(preset) << "    lv2:port ";
        for (int i = 0; i < kNumParameters; ++i)
        {
            const spatara::ParameterInfo& info = spatara::parameterInfo(i);
            presets << (i ? " ,\n        " : "") << "[ lv2:symbol \"" << info.symbol << "\" ; pset:value "
                    << number(info.toUnit(preset.values[i])) << " ]";
        }
        presets << " .\n\n";
    }
    return presets && manifest ? 0 : 1;
}
