// The command line of spatara-render.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

struct RenderOptions
{
    bool info = false;
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

const char* renderUsage();
