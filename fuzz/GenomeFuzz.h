#pragma once
// What the two fuzz targets of the genome reader share. The input is the file, as a load puts
// it into the image. Whatever the reader accepts must write back to an image that reads again
// without a single correction or message and writes back to the same bytes.
//
// One session serves the whole run: building one costs far more than most inputs. Between
// inputs it is reset to what an input can change, and only that: the gene list, the cursors
// and counts, the prompt's count, the compatibility setting (an encode switches it off), and
// the bytes of the image that the input or its encodes wrote. The rest of the image is still
// zero, so every input meets the fresh image it would meet alone.
#include "FuzzPrompt.h"
#include "core/Gene.h"
#include "core/Session.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace GenomeFuzz {

class Run
{
public:
    explicit Run(const char *compatibility) : compatibility(QString::fromLatin1(compatibility)) {}

    void Input(const uint8_t *data, size_t size)
    {
        Reset();
        // The genes go when the input is done, so that an input frees what it allocated:
        // libFuzzer runs an input again under the leak checker when it does not.
        struct ClearGenes
        {
            Session &session;
            ~ClearGenes() { session.ClearGeneList(); }
        } clearGenes{session};
        GenomeImage &img = session.GenomeImage;
        const int length = int(std::min(size, size_t(GenomeImage::Size)));
        std::memcpy(img.Bytes.data(), data, size_t(length));
        written = length;
        // The load's length estimate: the last non-zero byte before 36,000. The rest of the
        // image is zero, so the scan can start at the end of the input.
        int last = std::min(length, int(GenomeImage::ReadLimit)) - 1;
        while (last >= 0 && img.Bytes[size_t(last)] == 0)
            --last;
        img.WriteCursor = last + 1;

        if (!session.DecodeGenome())
            return;
        FUZZ_CHECK(session.GeneCount >= 0 && session.GeneCount <= Session::MaxGenes);
        for (int i = 0; i < session.GeneCount; ++i) {
            const Gene *g = session.GeneAt(i);
            FUZZ_CHECK(g && g->Numeric_ID == i && IsValidGeneKind(g->GeneType, g->GeneSubType));
            FUZZ_CHECK(g->SwitchOn <= 6 && g->Mutability <= 63);
        }
        if (session.GeneCount == 0)
            return; // an encode of no genes writes nothing

        Encode();
        FUZZ_CHECK(session.CompatibilityMode == QStringLiteral("0"));
        if (img.RefusedWrites != 0)
            return; // a genome too long for the block
        const int firstLength = img.WriteCursor;
        std::memcpy(first.data(), img.Bytes.data(), size_t(firstLength));
        const qint16 genes = session.GeneCount;

        // The written image is in range everywhere: it reads back silently and identically.
        const int messagesBefore = prompt.messages;
        FUZZ_CHECK(session.DecodeGenome());
        FUZZ_CHECK(img.CorrectedErrors == 0);
        FUZZ_CHECK(prompt.messages == messagesBefore);
        FUZZ_CHECK(session.GeneCount == genes);
        Encode();
        FUZZ_CHECK(img.WriteCursor == firstLength);
        FUZZ_CHECK(std::memcmp(first.data(), img.Bytes.data(), size_t(firstLength)) == 0);
    }

private:
    FuzzPrompt prompt;
    Session session{prompt};
    const QString compatibility;
    // Bytes from the start of the image that the last input or its encodes may have changed.
    int written = 0;
    std::array<quint8, GenomeImage::Size> first{};

    void Reset()
    {
        session.ClearGeneList();
        GenomeImage &img = session.GenomeImage;
        std::memset(img.Bytes.data(), 0, size_t(written));
        written = 0;
        img.ReadCursor = 0;
        img.CorrectedErrors = 0;
        img.RefusedWrites = 0;
        prompt.messages = 0;
        if (session.CompatibilityMode != compatibility)
            session.CompatibilityMode = compatibility;
    }

    void Encode()
    {
        session.EncodeGenome();
        written = std::max(written, session.GenomeImage.WriteCursor);
    }
};

} // namespace GenomeFuzz
