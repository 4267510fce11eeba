// What stands at the end of a run: both sides of each comparison, their medians and how they compare.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

// Prints as usual and remembers the medians. Benchmarks are named "what/side".
class Report : public benchmark::ConsoleReporter {
  public:
    Report() : ConsoleReporter(OO_Tabular) {}
    // The table's lines come in the order in which they are expected, whatever the order of the rounds.
    void expect(const std::string& what);
    void ReportRuns(const std::vector<Run>& runs) override;

    // The table, on standard output: one line a comparison, with the ratio of the library's side to the other.
    void printTable() const;

  private:
    struct Comparison {
        std::string what;
        std::map<std::string, double> nanoseconds;  // by side
    };
    Comparison& comparison(const std::string& what);

    std::vector<Comparison> comparisons_;
};

}  // namespace bench
