#pragma once
#include "core/GenomeImage.h"

#include <QString>
#include <array>
#include <optional>

// A state variable rule: 12 token indices, or absent in a gene nobody gave a rule.
using StateRule = std::optional<std::array<quint8, 12>>;

// A rule read from the image: an absent rule becomes twelve zeros first; 8 bytes in the older
// format, else 12, each read in 0..255; the entries not read keep what they held.
void GetStateRule(GenomeImage &image, StateRule &rule, bool olderFormat);
// A rule written to the image: its 12 entries, or 12 zeros for an absent rule.
void PutStateRule(GenomeImage &image, const StateRule &rule);

// Walks a gene body in file order, in one direction. Each gene class describes its body
// once, as a sequence of calls on a BodyIO; reading folds every byte into the range given
// (a range may depend on a field just read), writing stores the members unchanged.
class BodyIO
{
public:
    BodyIO(GenomeImage &image, bool reading, bool olderFormat = false, bool olderAppearance = false)
        : image(image), reading(reading), olderFormat(olderFormat), olderAppearance(olderAppearance) {}

    GenomeImage &image;
    const bool reading;
    // Both only ever true while reading. The compatibility setting turns the 8-byte rules on
    // with any value but "0", and the 2-byte appearance body only with "1".
    const bool olderFormat;
    const bool olderAppearance;

    void Byte(quint8 &value, int lo = 0, int hi = 255)
    {
        if (reading)
            value = image.GetGenomeByte(lo, hi);
        else
            image.PutGenomeByte(value);
    }
    // Rules are 12 bytes, 8 in the older format (read only).
    void Rule(StateRule &rule); // GetStateRule or PutStateRule
    // A fixed-length single-byte string, each byte read in lo..hi.
    void Chars(QString &text, int length, int lo = 0, int hi = 255);
};
