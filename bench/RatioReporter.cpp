#include "RatioReporter.h"

#include <algorithm>
#include <cstdio>

namespace
{

const char* const kVariants[] = {"mode0", "mode1", "mode2", "bypass"};
const char* const kPrecisions[] = {"float", "double"};
const int kBlocks[] = {64, 512, 4096};

} // namespace

void RatioReporter::ReportRuns(const std::vector<Run>& runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs)
    {
        if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
        const auto counter = run.counters.find("ns_per_frame");
        if (counter == run.counters.end()) continue;
        const std::string name = run.benchmark_name();
        const auto known = nsPerFrame_.find(name);
        const double value = counter->second.value;
        nsPerFrame_[name] = known == nsPerFrame_.end() ? value : std::min(known->second, value);
    }
}

void RatioReporter::printTable(std::ostream& out) const
{
    char line[160];
    out << "\nns per frame, and ratio to the envelope floor of the same block size\n";
    std::snprintf(line, sizeof line, "%-16s", "");
    out << line;
    for (int block : kBlocks)
    {
        std::snprintf(line, sizeof line, "%16d", block);
        out << line;
    }
    out << '\n';

    const auto row = [&](const std::string& label, const std::string& prefix)
    {
        std::snprintf(line, sizeof line, "%-16s", label.c_str());
        out << line;
        for (int block : kBlocks)
        {
            const auto value = nsPerFrame_.find(prefix + std::to_string(block));
            const auto floor = nsPerFrame_.find("floor/" + std::to_string(block));
            if (value == nsPerFrame_.end())
                std::snprintf(line, sizeof line, "%16s", "-");
            else if (floor == nsPerFrame_.end() || prefix == "floor/")
                std::snprintf(line, sizeof line, "%9.2f      ", value->second);
            else
                std::snprintf(line, sizeof line, "%9.2f (%.2fx)", value->second,
                              value->second / floor->second);
            out << line;
        }
        out << '\n';
    };

    row("floor", "floor/");
    for (const char* variant : kVariants)
        for (const char* precision : kPrecisions)
            row(std::string(variant) + ' ' + precision, std::string(variant) + '/' + precision + '/');
}
