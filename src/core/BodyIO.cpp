#include "core/BodyIO.h"

#include "base/SingleByteText.h"

void BodyReader::Chars(QString &text, int length, int lo, int hi)
{
    QString read(length, Qt::Uninitialized);
    QChar *out = read.data();
    for (int i = 0; i < length; ++i) {
        quint8 b;
        Byte(b, lo, hi);
        out[i] = SingleByteText::DecodeChar(b);
    }
    text = std::move(read);
}

void BodyWriter::Chars(const QString &text, int length, int, int)
{
    const int n = qMin(length, int(text.size()));
    for (int i = 0; i < n; ++i)
        Byte(quint8(SingleByteText::EncodeChar(text[i])));
    for (int i = n; i < length; ++i)
        Byte(0);
}
