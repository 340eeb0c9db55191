#include "vocab/SingleByteText.h"

#include <QStringDecoder>
#include <QStringEncoder>

namespace SingleByteText {

QString Decode(const QByteArray &bytes)
{
    QStringDecoder decoder("windows-1252");
    if (!decoder.isValid())
        return QString::fromLatin1(bytes);
    return decoder.decode(bytes);
}

QByteArray Encode(const QString &text)
{
    QStringEncoder encoder("windows-1252", QStringConverter::Flag::Default);
    if (!encoder.isValid())
        return text.toLatin1();
    return encoder.encode(text);
}

} // namespace SingleByteText
