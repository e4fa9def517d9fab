#include "ProgressBar.h"

#include <string>

ProgressBar::ProgressBar(std::FILE* stream, std::int64_t total, bool enabled)
    : stream(stream), total(total > 0 ? total : 1), enabled(enabled)
{
}

ProgressBar::~ProgressBar()
{
    if (enabled && shownPercent >= 0) std::fputs("\n", stream);
}

void ProgressBar::update(std::int64_t done)
{
    if (!enabled) return;
    const int percent = static_cast<int>(done * 100 / total);
    if (percent == shownPercent) return;
    shownPercent = percent;
    constexpr int kWidth = 40;
    const int filled = percent * kWidth / 100;
    const std::string bar = std::string(static_cast<std::size_t>(filled), '#') +
                            std::string(static_cast<std::size_t>(kWidth - filled), '.');
    std::fprintf(stream, "\rrendering [%s] %3d%%", bar.c_str(), percent);
    std::fflush(stream);
}
