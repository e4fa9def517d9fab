// Byte-level helpers for tests of the preset, bank and chunk images: reading and patching fields, and
// turning an image into what a machine of the other byte order would have written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

using Bytes = std::vector<char>;

std::int32_t int32At(const Bytes& image, std::size_t offset);
float floatAt(const Bytes& image, std::size_t offset);
void putInt32(Bytes& image, std::size_t offset, std::int32_t value);
void putFloat(Bytes& image, std::size_t offset, float value);
void reverseWord(Bytes& image, std::size_t offset);

// A preset, bank or MIDI-map image (41-byte header + chunks) in the other byte order. Name payloads are
// bytes and stay as they are; every other chunk word is reversed.
Bytes reversedImage(const Bytes& image);
// A host chunk (version, identifier, then a bank image) in the other byte order.
Bytes reversedHostChunk(const Bytes& chunk);

// Builders for hand-made images: header fields in native order.
Bytes imageHeader(std::int32_t uniqueId, char fileType, std::int32_t numChunks, std::int32_t currentPreset);
void appendChunk(Bytes& image, std::int32_t type, std::int32_t presetIndex, const Bytes& payload);
Bytes namePayload(const char* name);
Bytes valuePayload(std::uint32_t parameter, float value);

// A host chunk of the old form: version 0x01000000, identifier, preset count, current preset, 16 unused
// bytes, then count records of a 24-byte name ("legacy <n>") and the given number of values, value(n, j).
Bytes oldHostChunk(std::int32_t uniqueId, std::int32_t count, std::int32_t current, int values,
                   float (*value)(int preset, int j));
