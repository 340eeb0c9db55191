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
// Appends the bytes of text to out: the same bytes as Encode, without a buffer of their own.
void Append(QByteArray &out, QStringView text);
}
