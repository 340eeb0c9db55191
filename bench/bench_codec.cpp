// Decode + encode of a 900-gene genome, beside the floor of copying the 36,001 bytes of the
// image once. Prints the ratio of the two at the end.
#include "BenchGenome.h"
#include "RatioReporter.h"

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

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.Ratio("DecodeEncode", "CopyImage");
    benchmark::Shutdown();
    return 0;
}
