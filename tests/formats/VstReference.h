// The VST 2.4 plug-in in a VST 2.4 host, as the reference the other editions are compared against: a test
// signal, the plug-in run over it in blocks, its chunk, and the measures of two results.
#pragma once

#include "ParameterMapping.h"
#include "VstPluginHost.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vstreference
{
constexpr std::uint32_t kBlock = 512;

using Settings = std::array<float, kNumParameters>; // normalised, as the VST 2.4 host sets them

struct Stereo
{
    std::vector<float> left, right;
};

// Settings in each of the three modes, with phase on in one and process off in the last.
extern const std::array<Settings, 4> kEveryMode;

// One second of two unrelated tones with some noise, different in each channel.
Stereo testSignal(double rate);
// The plug-in opened and switched on at this rate with blocks of kBlock; null (and a test failure) if it
// does not load.
std::unique_ptr<VstPluginHost> loadVst(double rate);
void setVst(VstPluginHost& host, const Settings& settings);
// The plug-in opened, prepared (its parameters set, a chunk restored) and only then switched on, as a host
// starts it on a project's values: it starts on them without gliding. Null (and a test failure) if it does
// not load.
std::unique_ptr<VstPluginHost> loadVstStartedAfter(double rate,
                                                   const std::function<void(VstPluginHost&)>& prepare);
std::unique_ptr<VstPluginHost> loadVstStartedOn(double rate, const Settings& settings);
// mono: the left input on both of the plug-in's inputs, one buffer, as a host feeds a mono track.
Stereo runVst(VstPluginHost& host, const Stereo& in, bool mono = false);
std::vector<unsigned char> vstChunk(VstPluginHost& host);
// An edition's value texts against the VST 2.4 plug-in's, for every parameter at a few values in each mode:
// setMode puts the edition in a mode, textOf gives its text for a parameter at a value, both as VST 2.4
// normalised values.
void expectTextsOfVst(VstPluginHost& vst, const std::function<void(float mode)>& setMode,
                      const std::function<std::string(int index, float value)>& textOf);
double largestDifference(const Stereo& a, const Stereo& b);
double peak(const Stereo& s);
} // namespace vstreference
