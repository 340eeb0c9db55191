// Decode + encode of a 900-gene genome, beside the floor of copying the 36,001 bytes of the
// image once. Prints the ratio of the two at the end.
#include "BenchGenome.h"

#include "core/Session.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace {

void DecodeEncode(benchmark::State &state)
{
    BenchPrompt prompt;
    Session session(prompt);
    BenchGenome::Build(session);
    const QByteArray file = BenchGenome::FileBytes(session);
    if (session.GeneCount != BenchGenome::Genes || prompt.messages != 0) {
        state.SkipWithError("the benchmark genome is not a silent 900-gene genome");
        return;
    }
    for (auto _ : state) {
        BenchGenome::PutFile(session, file);
        if (!session.DecodeGenome()) {
            state.SkipWithError("decode failed");
            break;
        }
        session.EncodeGenome();
        benchmark::DoNotOptimize(session.GenomeImage.Bytes.data());
        benchmark::ClobberMemory();
    }
    if (prompt.messages != 0 || session.GeneCount != BenchGenome::Genes)
        state.SkipWithError("the round trip was not silent");
    state.counters["genes"] = session.GeneCount;
    state.counters["bytes"] = session.GenomeImage.WriteCursor;
    state.SetBytesProcessed(int64_t(state.iterations()) * session.GenomeImage.WriteCursor);
}
BENCHMARK(DecodeEncode)->Unit(benchmark::kMicrosecond);

// The floor: the same bytes, copied once.
void CopyImage(benchmark::State &state)
{
    std::vector<char> from(36001, 'x'), to(36001);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * 36001);
}
BENCHMARK(CopyImage)->Unit(benchmark::kMicrosecond);

// Keeps the time per iteration of each benchmark (the mean, when repeated) for the ratio line.
// Both benchmarks report in microseconds.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    std::map<std::string, double> micros;
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &r : runs) {
            if (r.error_occurred)
                continue;
            const bool mean = r.run_type == Run::RT_Aggregate && r.aggregate_name == "mean";
            if (mean || (r.run_type == Run::RT_Iteration && !micros.count(r.run_name.function_name + "_mean")))
                micros[r.run_name.function_name] = r.GetAdjustedRealTime();
            if (mean)
                micros[r.run_name.function_name + "_mean"] = 1;
        }
        ConsoleReporter::ReportRuns(runs);
    }
};

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const auto codec = reporter.micros.find("DecodeEncode");
    const auto floor = reporter.micros.find("CopyImage");
    if (codec != reporter.micros.end() && floor != reporter.micros.end() && floor->second > 0)
        std::printf("decode+encode of 900 genes / copy of 36,001 bytes: %.0f x (%.1f us vs %.3f us)\n",
                    codec->second / floor->second, codec->second, floor->second);
    benchmark::Shutdown();
    return 0;
}
