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
    QHash<char16_t, char> fromUnicode;

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
    for (int i = 0; i < text.size(); ++i)
        bytes[i] = t.fromUnicode.value(text[i].unicode(), '?');
    return bytes;
}

} // namespace SingleByteText
