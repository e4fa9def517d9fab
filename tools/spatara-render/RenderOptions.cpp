#include "RenderOptions.h"

#include "ParameterArgument.h"

#include <cerrno>
#include <cstdlib>
#include <sys/stat.h>

namespace
{
bool parseInt(const std::string& text, int& value)
{
    char* end = nullptr;
    errno = 0;
    const long parsed = std::strtol(text.c_str(), &end, 10);
    if (text.empty() || *end != 0 || errno != 0 || parsed < 1 || parsed > 65536) return false;
    value = static_cast<int>(parsed);
    return true;
}

// Whether both names lead to one file: the same path, a hard link or a symbolic link to it.
bool sameFile(const std::string& first, const std::string& second)
{
    struct stat a
    {
    };
    struct stat b
    {
    };
    return ::stat(first.c_str(), &a) == 0 && ::stat(second.c_str(), &b) == 0 && a.st_dev == b.st_dev &&
           a.st_ino == b.st_ino;
}
} // namespace

const char* renderUsage()
{
    // One line per form: the manual page's synopsis is made from these lines.
    return "Usage: spatara-render PLUGIN.so IN.wav OUT.wav [--preset N|NAME] [--param NAME=VALUE ...] "
           "[--block N] [--double] [--chunk-in FILE] [--chunk-out FILE]\n"
           "  or:  spatara-render --info PLUGIN.so [--chunk-in FILE] [--chunk-out FILE]\n"
           "  or:  spatara-render --list-presets PLUGIN.so [--chunk-in FILE]\n"
           "  or:  spatara-render --help | --version\n"
           "\n"
           "  --preset N|NAME    start from factory or bank preset N (0..37) or the preset of that name\n"
           "  --param NAME=V     set a parameter by name (after the preset) to a normalised value 0..1\n"
           "                     or to the value the editor shows: depth=60%, baseFreq=265Hz (or 265),\n"
           "                     wdth/emph=40%, process=on, phase=off, mode=Mode2 (or 2; 0.5 and 1.0 stay\n"
           "                     normalised)\n"
           "  --block N          process in blocks of N frames (default 512)\n"
           "  --double           process in double precision\n"
           "  --chunk-in FILE    restore the state a host saved (as when reopening a project)\n"
           "  --chunk-out FILE   save the state a host would store in its project\n"
           "  --info             print what the plug-in reports about itself instead of rendering\n"
           "  --list-presets     print the numbers and names of the plug-in's presets\n"
           "  --help             print this text\n"
           "  --version          print the version of spatara-render\n";
}

std::optional<RenderOptions> parseRenderOptions(int argc, char** argv, std::string& error)
{
    RenderOptions options;
    std::vector<std::string> positional;
    for (int i = 1; i < argc; ++i)
    {
        const std::string arg = argv[i];
        auto value = [&](std::string& out)
        {
            if (i + 1 >= argc)
            {
                error = arg + " needs a value";
                return false;
            }
            out = argv[++i];
            return true;
        };
        std::string text;
        if (arg == "--help" || arg == "-h")
            options.help = true;
        else if (arg == "--version")
            options.version = true;
        else if (arg == "--info")
            options.info = true;
        else if (arg == "--list-presets")
            options.listPresets = true;
        else if (arg == "--double")
            options.doublePrecision = true;
        else if (arg == "--preset")
        {
            if (!value(text)) return std::nullopt;
            options.preset = text;
        }
        else if (arg == "--param")
        {
            if (!value(text)) return std::nullopt;
            const auto equals = text.find('=');
            if (equals == std::string::npos || equals == 0)
            {
                error = "--param wants NAME=VALUE, got '" + text + "'";
                return std::nullopt;
            }
            const std::string name = text.substr(0, equals);
            const std::optional<float> v = normalisedParameterValue(name, text.substr(equals + 1), error);
            if (!v) return std::nullopt;
            options.params.emplace_back(name, *v);
        }
        else if (arg == "--block")
        {
            if (!value(text)) return std::nullopt;
            if (!parseInt(text, options.blockSize))
            {
                error = "--block wants a whole number from 1 to 65536, got '" + text + "'";
                return std::nullopt;
            }
        }
        else if (arg == "--chunk-in" || arg == "--chunk-out")
        {
            if (!value(text)) return std::nullopt;
            (arg == "--chunk-in" ? options.chunkIn : options.chunkOut) = text;
        }
        else if (arg.size() > 1 && arg[0] == '-')
        {
            error = "unknown option " + arg;
            return std::nullopt;
        }
        else
            positional.push_back(arg);
    }
    if (options.help || options.version) return options;
    if (options.info || options.listPresets)
    {
        if (positional.size() != 1)
        {
            error = std::string(options.info ? "--info" : "--list-presets") + " wants exactly one plug-in";
            return std::nullopt;
        }
        options.plugin = positional[0];
        return options;
    }
    if (positional.size() != 3)
    {
        error = "expected PLUGIN.so IN.wav OUT.wav";
        return std::nullopt;
    }
    options.plugin = positional[0];
    options.input = positional[1];
    options.output = positional[2];
    return options;
}

bool outputsSpareInputs(const RenderOptions& options, std::string& error)
{
    std::vector<std::pair<const char*, std::string>> read = {{"the plug-in", options.plugin}};
    std::vector<std::string> written;
    if (!options.info && !options.listPresets)
    {
        read.emplace_back("the input", options.input);
        written.push_back(options.output);
    }
    if (options.chunkIn) read.emplace_back("the chunk to restore", *options.chunkIn);
    if (options.chunkOut) written.push_back(*options.chunkOut);
    for (const std::string& output : written)
        for (const auto& [what, input] : read)
            if (sameFile(output, input) &&
                !(options.chunkIn && output == options.chunkOut && input == options.chunkIn))
            {
                error = output + " is " + what +
                        " (or a link to it): it would be overwritten; choose another name";
                return false;
            }
    return true;
}
