// A one-line progress bar on a terminal; silent when the stream is not a terminal.
#pragma once

#include <cstdint>
#include <cstdio>

class ProgressBar
{
  public:
    ProgressBar(std::FILE* stream, std::int64_t total, bool enabled);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void update(std::int64_t done);

  private:
    std::FILE* stream;
    std::int64_t total;
    bool enabled;
    int shownPercent = -1;
};
