// The tagged image shared by preset files, bank files, MIDI maps and the host chunk: a 41-byte header
// without padding, then chunks of a 12-byte head and a payload. Every field is in the writer's byte order.
#pragma once

#include <cstdint>

enum PresetFileType : char
{
    kFileTypeMidiMap = 0x0C,
    kFileTypeOldPreset = 0x21,
    kFileTypePreset = 0x22,
    kFileTypeOldBank = 0x37,
    kFileTypeBank = 0x38,
};

enum PresetChunkType : std::int32_t
{
    kChunkName = 0,
    kChunkValue = 1,
    kChunkMidiAssignment = 2,
};

constexpr std::int32_t kPresetImageVersion = 0x01090900;
constexpr int kChunkHeadSize = 12;
constexpr int kNamePayloadSize = 156; // 24 name bytes, then 132 zero bytes
constexpr int kValuePayloadSize = 20; // number, 0, 0, value, 0
constexpr int kValueOffsetInPayload = 12;
constexpr int kOldImageHeadSize = 5; // identifier and type byte

#pragma pack(push, 1)
struct newpresetheader
{
    std::int32_t uniqueID;
    char fileType;
    std::int32_t version;
    std::int32_t numParams;
    std::int32_t numChunks;
    std::int32_t currentPreset;
    std::int32_t dataSize;
    std::int32_t reserved[4];
};
#pragma pack(pop)

static_assert(sizeof(newpresetheader) == 41, "the header is stored without padding");

namespace spatara
{
// Reverses the nine 32-bit words after the type byte; identifier and type stay as they are.
void byteSwapHeader(newpresetheader* header);
} // namespace spatara
