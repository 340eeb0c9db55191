#include "base/SingleByteText.h"

#include <QHash>
#include <QStringDecoder>
#include <array>

namespace {

// The 256 characters of windows-1252, worked out once by Qt's converter (with ICU, the five
// unassigned bytes map to the C1 code points, so every byte value survives a round trip).
struct CodePage
{
    std::array<char16_t, 256> toUnicode{};
    // Characters below 256 (almost every one a genome or a list holds) by table; -1 for
    // one that the code page lacks. The rest by hash.
    std::array<qint16, 256> fromLowUnicode{};
    QHash<char16_t, char> fromUnicode;

    char FromUnicode(char16_t c) const
    {
        if (c < 256) {
            const qint16 b = fromLowUnicode[c];
            return b < 0 ? '?' : char(b);
        }
        return fromUnicode.value(c, '?');
    }

    CodePage()
    {
        QByteArray all(256, '\0');
        for (int i = 0; i < 256; ++i)
            all[i] = char(i);
        QStringDecoder decoder("windows-1252");
        const QString chars = decoder.isValid() ? decoder.decode(all) : QString::fromLatin1(all);
        for (int i = 0; i < 256; ++i) {
            const char16_t c = i < chars.size() ? chars[i].unicode() : char16_t(i);
            toUnicode[size_t(i)] = c;
            fromUnicode.insert(c, char(i));
        }
        for (int c = 0; c < 256; ++c) {
            const auto found = fromUnicode.constFind(char16_t(c));
            fromLowUnicode[size_t(c)] = found == fromUnicode.cend() ? qint16(-1) : qint16(quint8(*found));
        }
    }
};

const CodePage &Table()
{
    static const CodePage table;
    return table;
}

} // namespace

namespace SingleByteText {

QString Decode(const QByteArray &bytes)
{
    const CodePage &t = Table();
    QString text(bytes.size(), Qt::Uninitialized);
    QChar *out = text.data();
    for (int i = 0; i < bytes.size(); ++i)
        out[i] = QChar(t.toUnicode[quint8(bytes[i])]);
    return text;
}

QByteArray Encode(const QString &text)
{
    const CodePage &t = Table();
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char *out = bytes.data();
    for (int i = 0; i < text.size(); ++i)
        out[i] = t.FromUnicode(text[i].unicode());
    return bytes;
}

QChar DecodeHighChar(quint8 byte)
{
    return QChar(Table().toUnicode[byte]);
}

char EncodeHighChar(QChar c)
{
    return Table().FromUnicode(c.unicode());
}

} // namespace SingleByteText
