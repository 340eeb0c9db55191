#include "core/BodyIO.h"

#include "base/SingleByteText.h"

void GetStateRule(GenomeImage &image, StateRule &rule, bool olderFormat)
{
    if (!rule)
        rule = std::array<quint8, 12>{};
    const int n = olderFormat ? 8 : 12;
    for (int i = 0; i < n; ++i)
        (*rule)[size_t(i)] = image.GetGenomeByte(0, 255);
}

void PutStateRule(GenomeImage &image, const StateRule &rule)
{
    for (int i = 0; i < 12; ++i)
        image.PutGenomeByte(rule ? (*rule)[size_t(i)] : 0);
}

void BodyIO::Rule(StateRule &rule)
{
    if (reading)
        GetStateRule(image, rule, olderFormat);
    else
        PutStateRule(image, rule);
}

void BodyIO::Chars(QString &text, int length, int lo, int hi)
{
    if (reading) {
        QString read(length, Qt::Uninitialized);
        QChar *out = read.data();
        for (int i = 0; i < length; ++i)
            out[i] = SingleByteText::DecodeChar(image.GetGenomeByte(lo, hi));
        text = std::move(read);
        return;
    }
    // A shorter text is padded with zero bytes; a longer one is cut.
    const int n = qMin(length, int(text.size()));
    for (int i = 0; i < n; ++i)
        image.PutGenomeByte(quint8(SingleByteText::EncodeChar(text[i])));
    for (int i = n; i < length; ++i)
        image.PutGenomeByte(0);
}
