// Small audio-file helpers for tests, on libsndfile.
#pragma once

#include <string>
#include <vector>

struct Audio
{
    int sampleRate = 44100;
    int channels = 2;
    int format = 0;              // libsndfile format (major type | subtype)
    std::vector<double> samples; // interleaved
    std::size_t frames() const { return channels ? samples.size() / static_cast<std::size_t>(channels) : 0; }
};

bool writeAudio(const std::string& file, const Audio& audio);
bool readAudio(const std::string& file, Audio& audio);
