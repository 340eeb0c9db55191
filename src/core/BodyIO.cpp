#include "core/BodyIO.h"

#include "base/SingleByteText.h"

void BodyIO::Byte(quint8 &value, int lo, int hi)
{
    if (reading)
        value = image.GetGenomeByte(lo, hi);
    else
        image.PutGenomeByte(value);
}

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
        QByteArray bytes(length, '\0');
        for (int i = 0; i < length; ++i)
            bytes[i] = char(image.GetGenomeByte(lo, hi));
        text = SingleByteText::Decode(bytes);
        return;
    }
    const QByteArray bytes = SingleByteText::Encode(text);
    for (int i = 0; i < length; ++i)
        image.PutGenomeByte(i < bytes.size() ? quint8(bytes[i]) : 0);
}
