#include "PluginInfo.h"

#include "VstPluginHost.h"

#include <cstdint>
#include <cstring>
#include <string>

namespace
{
std::string fourCharacters(VstInt32 id)
{
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8)
    {
        const auto c = static_cast<char>((static_cast<std::uint32_t>(id) >> shift) & 0xff);
        text += (c >= 32 && c < 127) ? c : '?';
    }
    return text;
}

const char* categoryName(VstIntPtr category)
{
    static const char* const names[] = {"unknown",     "effect",          "synth",   "analysis",
                                        "mastering",   "spatialiser",     "room fx", "surround fx",
                                        "restoration", "offline process", "shell",   "generator"};
    return category >= 0 && category < static_cast<VstIntPtr>(sizeof(names) / sizeof(names[0]))
               ? names[category]
               : "?";
}

std::string flagNames(VstInt32 flags)
{
    struct Flag
    {
        VstInt32 bit;
        const char* name;
    };
    static const Flag known[] = {{effFlagsHasEditor, "editor"},
                                 {effFlagsCanReplacing, "replacing"},
                                 {effFlagsProgramChunks, "chunks"},
                                 {effFlagsIsSynth, "synth"},
                                 {effFlagsNoSoundInStop, "no-sound-in-stop"},
                                 {effFlagsCanDoubleReplacing, "double-replacing"}};
    std::string text;
    for (const Flag& flag : known)
        if (flags & flag.bit)
        {
            if (!text.empty()) text += ' ';
            text += flag.name;
        }
    return text.empty() ? "none" : text;
}
} // namespace

void printPluginInfo(VstPluginHost& host, std::ostream& out)
{
    const AEffect* e = host.effect();
    out << "name:       " << host.text(effGetEffectName) << "\n";
    out << "vendor:     " << host.text(effGetVendorString) << "\n";
    out << "product:    " << host.text(effGetProductString) << "\n";
    out << "version:    " << host.dispatch(effGetVendorVersion) << "\n";
    out << "unique id:  " << fourCharacters(e->uniqueID) << "\n";
    out << "category:   " << categoryName(host.dispatch(effGetPlugCategory)) << "\n";
    out << "inputs:     " << e->numInputs << "\n";
    out << "outputs:    " << e->numOutputs << "\n";
    out << "flags:      " << flagNames(e->flags) << "\n";
    out << "parameters: " << e->numParams << "\n";
    for (VstInt32 i = 0; i < e->numParams; ++i)
    {
        VstParameterProperties properties{};
        const bool hasProperties = host.dispatch(effGetParameterProperties, i, 0, &properties) != 0;
        out << "  " << i << " " << host.text(effGetParamName, i) << " = " << host.text(effGetParamDisplay, i)
            << " [" << host.text(effGetParamLabel, i) << "]";
        if (hasProperties)
        {
            out << " step " << properties.stepFloat << "/" << properties.smallStepFloat << "/"
                << properties.largeStepFloat;
            if (properties.flags & kVstParameterIsSwitch) out << " switch";
        }
        out << "\n";
    }
    out << "programs:\n";
    printPresetList(host, out, "  ");
}

void printPresetList(VstPluginHost& host, std::ostream& out, const char* indent)
{
    for (VstInt32 i = 0;; ++i)
    {
        char name[256] = {};
        if (host.dispatch(effGetProgramNameIndexed, i, 0, name) == 0) break;
        out << indent << i << " " << name << "\n";
    }
}
