#pragma once
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <utility>

// The console report, tabular and without colour codes, that also keeps the real and CPU
// time per iteration of each benchmark: the median when the runs are repeated, else the one
// run. Ratio() prints a measurement beside its floor from the same run.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    RatioReporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &r : runs) {
            const bool median = r.run_type == Run::RT_Aggregate && r.aggregate_name == "median";
            const bool single = r.run_type == Run::RT_Iteration && r.iterations > 0 && r.repetitions <= 1;
            if ((median || single) && !r.error_occurred)
                times[r.run_name.function_name] = {r.GetAdjustedRealTime(), r.GetAdjustedCPUTime()};
        }
        ConsoleReporter::ReportRuns(runs);
    }

    // "work / floor: r real time, c CPU time", if both ran.
    void Ratio(const std::string &work, const std::string &floor) const
    {
        const auto w = times.find(work), f = times.find(floor);
        if (w == times.end() || f == times.end() || f->second.first <= 0 || f->second.second <= 0)
            return;
        std::printf("%-14s / floor: %.2f real time, %.2f CPU time (%.4g vs %.4g real)\n", work.c_str(),
                    w->second.first / f->second.first, w->second.second / f->second.second, w->second.first,
                    f->second.first);
    }

private:
    std::map<std::string, std::pair<double, double>> times;
};
