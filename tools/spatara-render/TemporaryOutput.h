// The file a render writes before it becomes the output: beside the output under a name of its own, renamed
// over it only when complete, and removed when the render fails or is interrupted (Ctrl-C, kill, a closed
// terminal), so neither a half file nor a damaged older output is ever left. An output that is a symbolic
// link stays a link: the file it leads to is replaced, keeping its mode.
#pragma once

#include <csignal>
#include <string>

class TemporaryOutput
{
  public:
    // One at a time: the signal handlers know a single file.
    explicit TemporaryOutput(const std::string& output);
    // Removes the file unless it became the output, and gives the signals back their old handlers.
    ~TemporaryOutput();
    TemporaryOutput(const TemporaryOutput&) = delete;
    TemporaryOutput& operator=(const TemporaryOutput&) = delete;

    const std::string& path() const { return temporary; }
    // Gives the complete file the older output's mode and renames it over the output; answers whether it is
    // there.
    bool commit();

  private:
    static constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

    std::string output;
    std::string temporary;
    bool committed = false;
    struct sigaction previous[sizeof(kSignals) / sizeof(kSignals[0])] = {};
};
