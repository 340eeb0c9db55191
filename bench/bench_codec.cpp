// Decode + encode of a 900-gene genome, beside the floor of splitting the same file into
// one owned string per gene and joining them again. Prints the ratio of the two at the end.
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

// The floor: the same file split at its gene markers into one owned byte string per gene,
// as a decoder that owns its genes must allocate, and joined back into an image.
void SplitJoin(benchmark::State &state)
{
    BenchPrompt prompt;
    Session session(prompt);
    BenchGenome::Build(session);
    const QByteArray file = BenchGenome::FileBytes(session);
    const char *const begin = file.constData();
    const char *const end = begin + file.size();
    std::vector<std::string> genes;
    genes.reserve(Session::MaxGenes);
    std::vector<char> image(size_t(file.size()));
    for (auto _ : state) {
        genes.clear();
        // Each record runs from its "gene" to the next "gene" or "gend".
        const char *p = begin + 4;
        while (p + 4 <= end && std::memcmp(p, "gene", 4) == 0) {
            const char *q = p + 4;
            for (;;) {
                q = static_cast<const char *>(std::memchr(q, 'g', size_t(end - q)));
                if (!q || end - q < 4)
                    break;
                if (q[1] == 'e' && q[2] == 'n' && (q[3] == 'e' || q[3] == 'd'))
                    break;
                ++q;
            }
            if (!q || end - q < 4)
                q = end;
            genes.emplace_back(p, q);
            p = q;
        }
        char *w = image.data();
        std::memcpy(w, "dna2", 4);
        w += 4;
        for (const std::string &g : genes) {
            std::memcpy(w, g.data(), g.size());
            w += g.size();
        }
        std::memcpy(w, "gend", 4);
        benchmark::DoNotOptimize(image.data());
        benchmark::ClobberMemory();
    }
    if (genes.size() != size_t(BenchGenome::Genes))
        state.SkipWithError("the split did not find every gene");
    state.counters["genes"] = double(genes.size());
    state.SetBytesProcessed(int64_t(state.iterations()) * file.size());
}
BENCHMARK(SplitJoin)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.Ratio("DecodeEncode", "SplitJoin");
    benchmark::Shutdown();
    return 0;
}
