// Renders an audio file through a loaded plug-in, block by block, the way a host plays it.
#pragma once

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

    float meter() const { return meterReading; }
    bool hasMeter() const { return meterAvailable; }
    double seconds() const { return processingSeconds; }

  private:
    VstPluginHost& host;
    const RenderOptions& options;
    float meterReading = 0.0f;
    bool meterAvailable = false;
    double processingSeconds = 0.0;
};
