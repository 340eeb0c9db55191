#include "base/SingleByteText.h"

#include <QHash>
#include <QStringDecoder>
#include <array>

namespace {

// The conversions below look each byte or character up in a table, the same way for every
// one. A coverage-guided fuzzer learns nothing from the comparisons of these loops, and in a
// fuzz build their hooks would cost more than the conversions themselves: leave them out.
#if defined(__clang__)
#define HELIX_NO_COVERAGE __attribute__((no_sanitize("coverage")))
#else
#define HELIX_NO_COVERAGE
#endif

// The 256 characters of windows-1252, worked out once by Qt's converter (with ICU, the five
// unassigned bytes map to the C1 code points, so every byte value survives a round trip).
struct CodePage
{
    std::array<char16_t, 256> toUnicode{};
    QHash<char16_t, char> fromUnicode;
    // The byte of each character below 256 (most text is there), -1 for none: no hash lookup.
    std::array<qint16, 256> fromLow{};

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
        for (int c = 0; c < 256; ++c)
            fromLow[size_t(c)] = fromUnicode.contains(char16_t(c)) ? qint16(quint8(fromUnicode.value(char16_t(c)))) : -1;
    }

    HELIX_NO_COVERAGE char Byte(char16_t c) const
    {
        if (c < 256) {
            const qint16 b = fromLow[c];
            return b < 0 ? '?' : char(b);
        }
        return fromUnicode.value(c, '?');
    }
};

const CodePage &Table()
{
    static const CodePage table;
    return table;
}

HELIX_NO_COVERAGE void ToUnicode(const char *in, qsizetype n, QChar *out)
{
    const CodePage &t = Table();
    for (const char *end = in + n; in != end; ++in, ++out)
        *out = QChar(t.toUnicode[quint8(*in)]);
}

HELIX_NO_COVERAGE void ToBytes(const QChar *in, qsizetype n, char *out)
{
    const CodePage &t = Table();
    for (const QChar *end = in + n; in != end; ++in, ++out)
        *out = t.Byte(in->unicode());
}

} // namespace

namespace SingleByteText {

QString Decode(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    if (bytes.isEmpty())
        return text; // an empty text needs no buffer of its own
    ToUnicode(bytes.data(), bytes.size(), text.data());
    return text;
}

QByteArray Encode(QStringView text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    ToBytes(text.data(), text.size(), bytes.data());
    return bytes;
}

void Append(QByteArray &out, QStringView text)
{
    const qsizetype start = out.size();
    out.resize(start + text.size());
    ToBytes(text.data(), text.size(), out.data() + start);
}

void EncodeInto(QStringView text, char *to) { ToBytes(text.data(), text.size(), to); }

QChar DecodeHighChar(quint8 byte)
{
    return QChar(Table().toUnicode[byte]);
}

char EncodeHighChar(QChar c)
{
    return Table().Byte(c.unicode());
}

} // namespace SingleByteText
