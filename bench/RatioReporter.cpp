#include "RatioReporter.h"

#include <algorithm>
#include <cstdio>

namespace
{

void addOnce(std::vector<std::string>& list, const std::string& item)
{
    if (std::find(list.begin(), list.end(), item) == list.end()) list.push_back(item);
}

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
        const size_t slash = name.rfind('/');
        if (slash == std::string::npos) continue;
        addOnce(rows_, name.substr(0, slash));
        addOnce(blocks_, name.substr(slash + 1));
        const auto known = nsPerFrame_.find(name);
        const double value = counter->second.value;
        nsPerFrame_[name] = known == nsPerFrame_.end() ? value : std::min(known->second, value);
    }
}

void RatioReporter::printTable(std::ostream& out) const
{
    char cell[64];
    out << "\nns per frame (ratio to the floor of the same block size)\n";
    std::snprintf(cell, sizeof cell, "%-30s", "block");
    out << cell;
    for (const std::string& block : blocks_)
    {
        std::snprintf(cell, sizeof cell, "%17s", block.c_str());
        out << cell;
    }
    out << '\n';

    for (const std::string& row : rows_)
    {
        std::snprintf(cell, sizeof cell, "%-30s", row.c_str());
        out << cell;
        for (const std::string& block : blocks_)
        {
            const auto value = nsPerFrame_.find(row + '/' + block);
            const auto floor = nsPerFrame_.find("floor/" + block);
            if (value == nsPerFrame_.end())
                std::snprintf(cell, sizeof cell, "%17s", "-");
            else if (floor == nsPerFrame_.end())
                std::snprintf(cell, sizeof cell, "%9.2f        ", value->second);
            else
                std::snprintf(cell, sizeof cell, "%9.2f (%.2fx)", value->second,
                              value->second / floor->second);
            out << cell;
        }
        out << '\n';
    }
}

void RatioReporter::printComparison(std::ostream& out, const std::string& marker, const char* heading) const
{
    char cell[64];
    out << "\n" << heading << "\n";
    for (const std::string& row : rows_)
    {
        const size_t at = row.find(marker);
        if (at == std::string::npos) continue;
        const std::string normalRow = row.substr(0, at) + row.substr(at + marker.size());
        std::snprintf(cell, sizeof cell, "%-30s", row.c_str());
        out << cell;
        for (const std::string& block : blocks_)
        {
            const auto value = nsPerFrame_.find(row + '/' + block);
            const auto normal = nsPerFrame_.find(normalRow + '/' + block);
            if (value == nsPerFrame_.end() || normal == nsPerFrame_.end())
                std::snprintf(cell, sizeof cell, "%17s", "-");
            else
                std::snprintf(cell, sizeof cell, "%9.2f (%.2fx)", value->second,
                              value->second / normal->second);
            out << cell;
        }
        out << '\n';
    }
}
