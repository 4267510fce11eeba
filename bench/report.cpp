#include "bench/report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace bench {
namespace {

std::string readable(double nanoseconds) {
    char text[32];
    const double size = std::abs(nanoseconds);
    if (size < 1e4)
        std::snprintf(text, sizeof text, "%.0f ns", nanoseconds);
    else if (size < 1e7)
        std::snprintf(text, sizeof text, "%.1f us", nanoseconds / 1e3);
    else
        std::snprintf(text, sizeof text, "%.1f ms", nanoseconds / 1e6);
    return text;
}

}  // namespace

Report::Comparison& Report::comparison(const std::string& what) {
    auto known = std::find_if(comparisons_.begin(), comparisons_.end(),
                              [&](const Comparison& each) { return each.what == what; });
    if (known == comparisons_.end()) known = comparisons_.insert(known, Comparison{what, {}});
    return *known;
}

void Report::expect(const std::string& what) { comparison(what); }

void Report::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median") continue;
        const std::string name = run.run_name.function_name;
        const std::size_t slash = name.rfind('/');
        const double toNanoseconds = 1e9 / benchmark::GetTimeUnitMultiplier(run.time_unit);
        comparison(name.substr(0, slash)).nanoseconds[name.substr(slash + 1)] =
            run.GetAdjustedRealTime() * toNanoseconds;
    }
}

void Report::printTable() const {
    std::printf("\n%-44s %12s %12s %12s %8s\n", "median of all rounds", "with library", "without", "difference",
                "ratio");
    for (const Comparison& each : comparisons_) {
        auto library = each.nanoseconds.find("library");
        auto other = each.nanoseconds.find("without");
        if (library == each.nanoseconds.end()) continue;
        std::printf("%-44s %12s", each.what.c_str(), readable(library->second).c_str());
        if (other != each.nanoseconds.end()) {
            std::printf(" %12s %12s %8.2f", readable(other->second).c_str(),
                        readable(library->second - other->second).c_str(), library->second / other->second);
        }
        std::printf("\n");
    }
}

}  // namespace bench
