// Renders an audio file through a loaded plug-in, block by block, the way a host plays it.
#pragma once

#include "HostActions.h"

#include <optional>
#include <string>

class VstPluginHost;
struct RenderOptions;

class Renderer
{
  public:
    Renderer(VstPluginHost& host, const RenderOptions& options);

    // Reads the input, processes it and writes the output (replacing it only when complete). On failure
    // answers false, says why in one line, and leaves no output file behind.
    bool run(std::string& error);

    // The plug-in's meters at the end of the input; nothing for plug-ins other than ours.
    const std::optional<MeterReadings>& meters() const { return meterReadings; }
    double seconds() const { return processingSeconds; }

  private:
    VstPluginHost& host;
    const RenderOptions& options;
    std::optional<MeterReadings> meterReadings;
    double processingSeconds = 0.0;
};
