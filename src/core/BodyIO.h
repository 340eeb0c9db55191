#pragma once
#include "core/GenomeImage.h"

#include <QString>
#include <array>
#include <cstring>
#include <optional>

// A state variable rule: 12 token indices, or absent in a gene nobody gave a rule.
using StateRule = std::optional<std::array<quint8, 12>>;

// Which layout a reader expects. The compatibility setting turns the 8-byte rules and the
// header without weighting on with any value but "0", and the 2-byte appearance body only
// with "1". Writers always write the current layout.
struct BodyFormat
{
    bool olderFormat = false;
    bool olderAppearance = false;
};

// The two walkers of a gene record. Each gene class describes its body once, as a template
// Body(io) of calls on a walker; reading folds every byte into the range given (a range may
// depend on a field just read), writing stores the members unchanged. Both offer the same
// calls, so the one description serves both directions.
//
// A walker works on copies of the image's cursor and count and puts them back when it goes
// out of scope. A walker created in the function that walks (never passed on by reference)
// keeps them in registers: the gene's byte fields, which could alias anything in memory,
// cannot alias those copies. Only one walker may be alive on an image at a time.
class BodyReader
{
public:
    static constexpr bool reading = true;
    const bool olderFormat;
    const bool olderAppearance;

    BodyReader(GenomeImage &image, BodyFormat format)
        : olderFormat(format.olderFormat), olderAppearance(format.olderAppearance), image(image),
          bytes(image.Bytes.data()), cursor(image.ReadCursor), corrected(image.CorrectedErrors)
    {
    }
    ~BodyReader()
    {
        image.ReadCursor = cursor;
        image.CorrectedErrors = corrected;
    }
    BodyReader(const BodyReader &) = delete;
    BodyReader &operator=(const BodyReader &) = delete;

    void Byte(quint8 &value, int lo = 0, int hi = 255)
    {
        value = GenomeImage::GetByte(bytes, cursor, corrected, lo, hi);
    }
    // n bytes in 0..255, as n calls of Byte would read them (nothing to fold, zeros from the
    // read limit on, where the cursor stops), in one copy.
    void Bytes(quint8 *values, int n)
    {
        const int available = cursor < 0 ? 0 : qBound(0, GenomeImage::ReadLimit - cursor, n);
        std::memcpy(values, bytes + cursor, size_t(available));
        std::memset(values + available, 0, size_t(n - available));
        cursor += available;
    }
    // An absent rule becomes twelve zeros first; 8 bytes in the older format, else 12, each
    // read in 0..255; the entries not read keep what they held.
    void Rule(StateRule &rule)
    {
        if (!rule)
            rule = std::array<quint8, 12>{};
        Bytes(rule->data(), olderFormat ? 8 : 12);
    }
    // A fixed-length single-byte string, each byte read in lo..hi.
    void Chars(QString &text, int length, int lo = 0, int hi = 255);

private:
    GenomeImage &image;
    const quint8 *const bytes;
    qint32 cursor;
    qint16 corrected;
};

class BodyWriter
{
public:
    static constexpr bool reading = false;
    static constexpr bool olderFormat = false;
    static constexpr bool olderAppearance = false;

    explicit BodyWriter(GenomeImage &image)
        : image(image), bytes(image.Bytes.data()), cursor(image.WriteCursor), refused(image.RefusedWrites)
    {
    }
    ~BodyWriter()
    {
        image.WriteCursor = cursor;
        image.RefusedWrites = refused;
    }
    BodyWriter(const BodyWriter &) = delete;
    BodyWriter &operator=(const BodyWriter &) = delete;

    void Byte(quint8 value, int = 0, int = 255) { GenomeImage::PutByte(bytes, cursor, refused, value); }
    void Token(const char (&token)[5])
    {
        for (int i = 0; i < 4; ++i)
            Byte(quint8(token[i]));
    }
    // n bytes as n calls of Byte would write them: those that fit, the rest refused.
    void Bytes(const quint8 *values, int n)
    {
        const int fit = cursor < 0 ? 0 : qBound(0, GenomeImage::Size - cursor, n);
        std::memcpy(bytes + cursor, values, size_t(fit));
        cursor += fit;
        refused += n - fit;
    }
    // Always 12 bytes: the entries, or zeros for an absent rule.
    void Rule(const StateRule &rule)
    {
        static constexpr std::array<quint8, 12> absent{};
        Bytes(rule ? rule->data() : absent.data(), 12);
    }
    // A shorter text is padded with zero bytes, a longer one cut.
    void Chars(const QString &text, int length, int = 0, int = 255);

private:
    GenomeImage &image;
    quint8 *const bytes;
    qint32 cursor;
    qint32 refused;
};
