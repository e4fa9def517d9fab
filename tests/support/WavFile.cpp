#include "WavFile.h"

#include <sndfile.h>

bool writeAudio(const std::string& file, const Audio& audio)
{
    SF_INFO info{};
    info.samplerate = audio.sampleRate;
    info.channels = audio.channels;
    info.format = audio.format;
    SNDFILE* out = sf_open(file.c_str(), SFM_WRITE, &info);
    if (!out) return false;
    const auto frames = static_cast<sf_count_t>(audio.frames());
    const bool written = sf_writef_double(out, audio.samples.data(), frames) == frames;
    return sf_close(out) == 0 && written;
}

bool readAudio(const std::string& file, Audio& audio)
{
    SF_INFO info{};
    SNDFILE* in = sf_open(file.c_str(), SFM_READ, &info);
    if (!in) return false;
    audio.sampleRate = info.samplerate;
    audio.channels = info.channels;
    audio.format = info.format;
    audio.samples.assign(static_cast<std::size_t>(info.frames * info.channels), 0.0);
    const bool read = sf_readf_double(in, audio.samples.data(), info.frames) == info.frames;
    sf_close(in);
    return read;
}
