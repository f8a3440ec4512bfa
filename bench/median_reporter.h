#pragma once
// The console reporter the benchmarks that print a summary build on: every
// run is printed as usual, and each run that counts — the median when
// repetitions were asked for, a single run as it is — goes to Keep, where
// the summary's figures are gathered.

#include <benchmark/benchmark.h>

#include <vector>

namespace zelvor {

class MedianReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median")
                continue;
            Keep(run);
        }
    }

protected:
    virtual void Keep(const Run& run) = 0;
};

} // namespace zelvor
