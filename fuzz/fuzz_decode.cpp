// Feeds arbitrary bytes to the genome reader. The first byte chooses the format (odd: the
// older one); the rest is the file. Whatever the reader accepts must write back to an image
// that reads again without a single correction and writes back to the same bytes.
#include "FuzzPrompt.h"
#include "core/Gene.h"
#include "core/Session.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

QByteArray Encoded(const Session &s)
{
    return QByteArray(reinterpret_cast<const char *>(s.GenomeImage.Bytes.data()), s.GenomeImage.WriteCursor);
}

} // namespace

// A broken expectation is a finding: name it and stop.
#define Check(condition)                                                          \
    do {                                                                          \
        if (!(condition)) {                                                       \
            std::fprintf(stderr, "fuzz_decode: expectation failed: %s\n", #condition); \
            std::abort();                                                         \
        }                                                                         \
    } while (0)

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    // One session for the whole run: building one costs more than most inputs. An input can
    // change the gene list, the image, the compatibility setting and the prompt's count;
    // each starts afresh here, so no input sees what the one before it left.
    static FuzzPrompt prompt;
    static Session session(prompt);
    session.ClearGeneList();
    prompt.messages = 0;
    session.CompatibilityMode = (data[0] & 1) ? QStringLiteral("1") : QStringLiteral("0");
    ++data;
    --size;

    GenomeImage &img = session.GenomeImage;
    img = GenomeImage();
    const size_t length = std::min(size, size_t(GenomeImage::Size));
    std::memcpy(img.Bytes.data(), data, length);
    // The load's length estimate: the last non-zero byte before 36,000. The rest of the
    // fresh image is zero, so the scan can start at the end of the input.
    int last = int(std::min(length, size_t(GenomeImage::ReadLimit))) - 1;
    while (last >= 0 && img.Bytes[size_t(last)] == 0)
        --last;
    img.WriteCursor = last + 1;

    if (!session.DecodeGenome()) {
        session.ClearGeneList();
        return 0;
    }
    Check(session.GeneCount >= 0 && session.GeneCount <= Session::MaxGenes);
    for (int i = 0; i < session.GeneCount; ++i) {
        const Gene *g = session.GeneAt(i);
        Check(g && g->Numeric_ID == i && IsValidGeneKind(g->GeneType, g->GeneSubType));
        Check(g->SwitchOn <= 6 && g->Mutability <= 63);
    }

    if (session.GeneCount == 0)
        return 0; // an encode of no genes writes nothing
    session.EncodeGenome();
    Check(session.CompatibilityMode == QStringLiteral("0"));
    if (img.RefusedWrites != 0)
        return 0; // a genome too long for the block
    const QByteArray first = Encoded(session);
    const qint16 genes = session.GeneCount;

    // The written image is in range everywhere: it reads back silently and identically.
    const int messagesBefore = prompt.messages;
    Check(session.DecodeGenome());
    Check(session.GenomeImage.CorrectedErrors == 0);
    Check(prompt.messages == messagesBefore);
    Check(session.GeneCount == genes);
    session.EncodeGenome();
    Check(Encoded(session) == first);
    return 0;
}
