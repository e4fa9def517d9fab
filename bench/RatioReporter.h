#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <ostream>
#include <string>

// Console reporter that also keeps each benchmark's ns_per_frame (the best over repetitions) and
// prints, at the end, every engine figure beside its ratio to the envelope floor of the same block.
// Engine benchmarks are named "<variant>/<precision>/<block>", the floor "floor/<block>".
class RatioReporter : public benchmark::ConsoleReporter
{
  public:
    void ReportRuns(const std::vector<Run>& runs) override;
    void printTable(std::ostream& out) const;

  private:
    std::map<std::string, double> nsPerFrame_;
};
