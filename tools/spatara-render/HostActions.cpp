#include "HostActions.h"

#include "TemporaryOutput.h"
#include "VstPluginHost.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <unistd.h>
#include <vector>

namespace
{
// The plug-in's own request for its balance meter, through the vendor-specific opcode.
constexpr VstInt32 kMeterRequest = CCONST('Z', 'v', 'M', 't');
constexpr VstInt32 kCorrelationRequest = CCONST('Z', 'v', 'C', 'r');
// Where the bank header's current preset sits in a ZEV chunk: 8-byte chunk head + 17.
constexpr std::size_t kChunkCurrentPresetOffset = 8 + 17;

bool readFile(const std::string& file, std::vector<char>& bytes, std::string& error)
{
    std::ifstream in(file, std::ios::binary);
    if (!in)
    {
        error = "cannot read " + file + ": " + std::strerror(errno);
        return false;
    }
    bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return true;
}

bool presetIndexOf(VstPluginHost& host, const std::string& preset, VstInt32& index, std::string& error)
{
    char* end = nullptr;
    const long number = std::strtol(preset.c_str(), &end, 10);
    const bool isNumber = !preset.empty() && *end == 0;
    for (VstInt32 i = 0;; ++i)
    {
        char name[256] = {};
        if (host.dispatch(effGetProgramNameIndexed, i, 0, name) == 0) break;
        if ((isNumber && number == i) || (!isNumber && preset == name))
        {
            index = i;
            return true;
        }
    }
    error = isNumber ? "no preset number " + preset : "no preset named '" + preset + "'";
    return false;
}

// The plug-in's chunk as it is now; empty when it gives none.
std::vector<char> currentChunk(VstPluginHost& host)
{
    void* data = nullptr;
    const VstIntPtr size = host.dispatch(effGetChunk, 0, 0, &data);
    if (size <= 0 || !data) return {};
    const char* bytes = static_cast<const char*>(data);
    return std::vector<char>(bytes, bytes + size);
}
} // namespace

bool writeFileAtomically(const std::string& file, const char* data, std::size_t size, std::string& error)
{
    TemporaryOutput temporary(file);
    FILE* out = std::fopen(temporary.path().c_str(), "wb");
    bool written = out && std::fwrite(data, 1, size, out) == size;
    written = out && std::fflush(out) == 0 && fsync(fileno(out)) == 0 && written;
    if (out) written = std::fclose(out) == 0 && written;
    if (!written || !temporary.commit())
    {
        error = "cannot write " + file + ": " + std::strerror(errno);
        return false;
    }
    return true;
}

bool restoreChunk(VstPluginHost& host, const std::string& file, std::string& error)
{
    std::vector<char> chunk;
    if (!readFile(file, chunk, error)) return false;
    if (!(host.effect()->flags & effFlagsProgramChunks))
    {
        error = "the plug-in keeps no chunk, cannot restore " + file;
        return false;
    }
    // A plug-in may take a chunk's head and still refuse what it carries, keeping the state it had: one
    // that is handed another state and keeps its own has not taken it, whatever it answered.
    const std::vector<char> before = currentChunk(host);
    if (host.dispatch(effSetChunk, 0, static_cast<VstIntPtr>(chunk.size()), chunk.data()) != 0 ||
        (currentChunk(host) == before && chunk != before))
    {
        error = "the plug-in refused the chunk in " + file;
        return false;
    }
    return true;
}

bool saveChunk(VstPluginHost& host, const std::string& file, std::string& error)
{
    const std::vector<char> chunk = currentChunk(host);
    if (chunk.empty())
    {
        error = "the plug-in gave no chunk to save";
        return false;
    }
    return writeFileAtomically(file, chunk.data(), chunk.size(), error);
}

bool selectPreset(VstPluginHost& host, const std::string& preset, std::string& error)
{
    VstInt32 index = 0;
    if (!presetIndexOf(host, preset, index, error)) return false;
    if (host.effect()->numPrograms > 1)
    {
        host.dispatch(effSetProgram, 0, index);
        return true;
    }
    // A plug-in that switches its own presets behind one host program: choose it the way a project
    // reopens it, through its chunk with that preset current.
    std::vector<char> chunk = currentChunk(host);
    if (chunk.size() < kChunkCurrentPresetOffset + 4)
    {
        error = "the plug-in offers no way to select preset " + preset;
        return false;
    }
    const std::int32_t current = index;
    std::memcpy(chunk.data() + kChunkCurrentPresetOffset, &current, sizeof(current));
    if (host.dispatch(effSetChunk, 0, static_cast<VstIntPtr>(chunk.size()), chunk.data()) != 0)
    {
        error = "the plug-in refused to select preset " + preset;
        return false;
    }
    return true;
}

bool setParameters(VstPluginHost& host, const std::vector<std::pair<std::string, float>>& params,
                   std::string& error)
{
    AEffect* e = host.effect();
    for (const auto& [name, value] : params)
    {
        VstInt32 found = -1;
        for (VstInt32 i = 0; i < e->numParams && found < 0; ++i)
            if (host.text(effGetParamName, i) == name) found = i;
        if (found < 0)
        {
            error = "no parameter named '" + name + "'";
            return false;
        }
        e->setParameter(e, found, value);
    }
    return true;
}

std::optional<MeterReadings> readMeters(VstPluginHost& host)
{
    MeterReadings readings{};
    if (host.dispatch(effVendorSpecific, kMeterRequest, 0, &readings.balance) != 1 ||
        host.dispatch(effVendorSpecific, kCorrelationRequest, 0, &readings.correlation) != 1)
        return std::nullopt;
    return readings;
}
