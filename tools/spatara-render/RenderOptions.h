// The command line of spatara-render.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

struct RenderOptions
{
    bool info = false;
    bool listPresets = false;
    bool help = false;
    bool version = false;
    std::string plugin;
    std::string input;
    std::string output;
    std::optional<std::string> preset;                 // a number 0..37 or a preset name
    std::vector<std::pair<std::string, float>> params; // parameter name, normalised value
    int blockSize = 512;
    bool doublePrecision = false;
    std::optional<std::string> chunkIn;
    std::optional<std::string> chunkOut;
};

// Parses argv; on a mistake answers nothing and puts the reason in error.
std::optional<RenderOptions> parseRenderOptions(int argc, char** argv, std::string& error);

// Whether a file to be written (the output, the saved chunk) is one of the files read (the plug-in, the
// input, the chunk to restore) under the same name, a hard link or a symbolic link: on false, error names
// it. Saving the chunk over the chunk just restored is fine: it is read whole before anything is written.
bool outputsSpareInputs(const RenderOptions& options, std::string& error);

const char* renderUsage();
