// What spatara-render asks of a loaded plug-in beyond processing: state, presets, parameters, meter.
// Each answers false and says why in one line when it cannot do what was asked.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

class VstPluginHost;

// Restores a chunk saved in a file, as a host does when it reopens a project.
bool restoreChunk(VstPluginHost& host, const std::string& file, std::string& error);
// Saves what a host would store in its project; the file is replaced only once completely written.
bool saveChunk(VstPluginHost& host, const std::string& file, std::string& error);
// Selects a preset by number or by name.
bool selectPreset(VstPluginHost& host, const std::string& preset, std::string& error);
// Sets parameters by name to normalised values.
bool setParameters(VstPluginHost& host, const std::vector<std::pair<std::string, float>>& params,
                   std::string& error);
// What a ZEV plug-in's meters read.
struct MeterReadings
{
    float balance;     // 0 balanced, +0.5 mono, -0.5 anti-phase
    float correlation; // +1 mono, 0 unrelated, -1 one channel inverted
};
// The meters of a ZEV plug-in; nothing for other plug-ins.
std::optional<MeterReadings> readMeters(VstPluginHost& host);
// Writes bytes to a file through a temporary file in the same folder and a rename.
bool writeFileAtomically(const std::string& file, const char* data, std::size_t size, std::string& error);
