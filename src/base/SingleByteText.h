#pragma once
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

// The one place where single-byte text of the files (captions, names, monikers, pose
// strings) turns into QString and back. Windows-1252: all 256 byte values survive a
// round trip.
namespace SingleByteText {
QString Decode(QByteArrayView bytes);
QByteArray Encode(QStringView text);
// The same bytes as Encode, without a buffer of their own: appended to out, or written to
// the text.size() bytes at to.
void Append(QByteArray &out, QStringView text);
void EncodeInto(QStringView text, char *to);
}
