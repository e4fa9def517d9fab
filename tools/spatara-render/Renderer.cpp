#include "Renderer.h"

#include "HostActions.h"
#include "ProgressBar.h"
#include "RenderOptions.h"
#include "TemporaryOutput.h"
#include "VstPluginHost.h"

#include <chrono>
#include <cstdio>
#include <memory>
#include <sndfile.h>
#include <unistd.h>
#include <vector>

namespace
{
// Files shorter than this render without a progress bar.
constexpr double kProgressAfterSeconds = 5.0;

struct SndfileCloser
{
    void operator()(SNDFILE* file) const { sf_close(file); }
};
using SndfileHandle = std::unique_ptr<SNDFILE, SndfileCloser>;

// Processes interleaved audio of one sample type block by block.
template <typename Sample> class BlockLoop
{
  public:
    BlockLoop(AEffect* effect, int inChannels, int blockSize)
        : effect(effect), inChannels(inChannels), blockSize(blockSize),
          interleavedIn(static_cast<std::size_t>(blockSize * inChannels)),
          interleavedOut(static_cast<std::size_t>(blockSize * 2)), left(static_cast<std::size_t>(blockSize)),
          right(static_cast<std::size_t>(blockSize)), outLeft(static_cast<std::size_t>(blockSize)),
          outRight(static_cast<std::size_t>(blockSize))
    {
    }

    // Reads up to one block, processes it and writes it; answers the frames done, 0 at the end, -1 on error.
    sf_count_t step(SNDFILE* in, SNDFILE* out, double& processing)
    {
        const sf_count_t frames = read(in, interleavedIn.data(), blockSize);
        if (frames <= 0) return frames;
        for (sf_count_t i = 0; i < frames; ++i)
        {
            left[static_cast<std::size_t>(i)] = interleavedIn[static_cast<std::size_t>(i * inChannels)];
            right[static_cast<std::size_t>(i)] =
                interleavedIn[static_cast<std::size_t>(i * inChannels + (inChannels - 1))];
        }
        // A mono file feeds the same buffer to both inputs; the plug-in was told it has one input.
        Sample* inputs[2] = {left.data(), inChannels == 1 ? left.data() : right.data()};
        Sample* outputs[2] = {outLeft.data(), outRight.data()};
        const auto start = std::chrono::steady_clock::now();
        process(inputs, outputs, static_cast<VstInt32>(frames));
        processing += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        for (sf_count_t i = 0; i < frames; ++i)
        {
            interleavedOut[static_cast<std::size_t>(2 * i)] = outLeft[static_cast<std::size_t>(i)];
            interleavedOut[static_cast<std::size_t>(2 * i + 1)] = outRight[static_cast<std::size_t>(i)];
        }
        return write(out, interleavedOut.data(), frames) == frames ? frames : -1;
    }

  private:
    static sf_count_t read(SNDFILE* in, float* buffer, sf_count_t frames)
    {
        return sf_readf_float(in, buffer, frames);
    }
    static sf_count_t read(SNDFILE* in, double* buffer, sf_count_t frames)
    {
        return sf_readf_double(in, buffer, frames);
    }
    static sf_count_t write(SNDFILE* out, const float* buffer, sf_count_t frames)
    {
        return sf_writef_float(out, buffer, frames);
    }
    static sf_count_t write(SNDFILE* out, const double* buffer, sf_count_t frames)
    {
        return sf_writef_double(out, buffer, frames);
    }
    void process(float** inputs, float** outputs, VstInt32 frames)
    {
        effect->processReplacing(effect, inputs, outputs, frames);
    }
    void process(double** inputs, double** outputs, VstInt32 frames)
    {
        effect->processDoubleReplacing(effect, inputs, outputs, frames);
    }

    AEffect* effect;
    int inChannels;
    int blockSize;
    std::vector<Sample> interleavedIn, interleavedOut, left, right, outLeft, outRight;
};

template <typename Sample>
bool renderAll(AEffect* effect, SNDFILE* in, SNDFILE* out, int channels, int blockSize, ProgressBar& progress,
               double& processing)
{
    BlockLoop<Sample> loop(effect, channels, blockSize);
    sf_count_t done = 0;
    for (;;)
    {
        const sf_count_t frames = loop.step(in, out, processing);
        if (frames < 0) return false;
        if (frames == 0) return true;
        done += frames;
        progress.update(done);
    }
}
} // namespace

Renderer::Renderer(VstPluginHost& host, const RenderOptions& options) : host(host), options(options) {}

bool Renderer::run(std::string& error)
{
    SF_INFO inInfo{};
    SndfileHandle in(sf_open(options.input.c_str(), SFM_READ, &inInfo));
    if (!in)
    {
        error = "cannot read " + options.input + ": " + sf_strerror(nullptr);
        return false;
    }
    if (inInfo.channels != 1 && inInfo.channels != 2)
    {
        error = options.input + " has " + std::to_string(inInfo.channels) + " channels; mono or stereo only";
        return false;
    }
    AEffect* effect = host.effect();
    if (effect->numInputs < 2 || effect->numOutputs < 2)
    {
        error = "the plug-in does not have two inputs and two outputs";
        return false;
    }
    if (options.doublePrecision && !(effect->flags & effFlagsCanDoubleReplacing))
    {
        error = "the plug-in cannot process double precision";
        return false;
    }

    SF_INFO outInfo = inInfo; // same rate, same file type and bit depth, always stereo
    outInfo.channels = 2;
    outInfo.frames = 0;
    if (!sf_format_check(&outInfo))
    {
        error = "cannot write a stereo file of the input's type";
        return false;
    }
    TemporaryOutput temporary(options.output);
    SndfileHandle out(sf_open(temporary.path().c_str(), SFM_WRITE, &outInfo));
    if (!out)
    {
        error = "cannot write " + options.output + ": " + sf_strerror(nullptr);
        return false;
    }

    if (inInfo.channels == 1)
    {
        VstSpeakerArrangement mono{}, stereo{};
        mono.type = kSpeakerArrMono;
        mono.numChannels = 1;
        stereo.type = kSpeakerArrStereo;
        stereo.numChannels = 2;
        host.dispatch(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&mono), &stereo);
    }
    host.start(static_cast<float>(inInfo.samplerate), options.blockSize);

    const bool showProgress = isatty(fileno(stderr)) &&
                              static_cast<double>(inInfo.frames) > kProgressAfterSeconds * inInfo.samplerate;
    bool rendered;
    {
        ProgressBar progress(stderr, inInfo.frames, showProgress);
        rendered = options.doublePrecision ? renderAll<double>(effect, in.get(), out.get(), inInfo.channels,
                                                               options.blockSize, progress, processingSeconds)
                                           : renderAll<float>(effect, in.get(), out.get(), inInfo.channels,
                                                              options.blockSize, progress, processingSeconds);
    }
    meterReadings = readMeters(host); // before switching off, which clears them
    host.stop();

    const bool closed = sf_close(out.release()) == 0;
    if (!rendered || !closed || !temporary.commit())
    {
        error = "cannot write " + options.output;
        return false;
    }
    return true;
}
