#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <ostream>
#include <string>
#include <vector>

// Console reporter that also keeps each benchmark's ns_per_frame (the best over repetitions) and
// prints, at the end, every figure beside its ratio to the floor kernel of the same block size, and each
// figure for denormal input (or with the scope open) beside its ratio to the same work on normal input
// (with the scope closed).
// Benchmarks are named "<row>/<block>"; the floor's row is "floor". Rows and columns keep the order
// in which the benchmarks ran.
class RatioReporter : public benchmark::ConsoleReporter
{
  public:
    void ReportRuns(const std::vector<Run>& runs) override;
    void printTable(std::ostream& out) const;
    // Rows named "<row><marker><rest>" (marker "-denormal", "-scope") beside their ratio to "<row><rest>",
    // the same work without what the marker names, under the heading.
    void printComparison(std::ostream& out, const std::string& marker, const char* heading) const;

  private:
    std::map<std::string, double> nsPerFrame_;
    std::vector<std::string> rows_;
    std::vector<std::string> blocks_;
};
