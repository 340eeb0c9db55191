#pragma once
#include <QByteArray>
#include <QString>

// The one place where single-byte text of the files (captions, names, monikers, pose
// strings) turns into QString and back. Windows-1252: all 256 byte values survive a
// round trip.
namespace SingleByteText {
QString Decode(const QByteArray &bytes);
QByteArray Encode(const QString &text);
// One byte to its character, and one character to its byte ('?' for a character the code
// page lacks): for readers and writers that walk a text a byte at a time.
QChar DecodeChar(quint8 byte);
char EncodeChar(QChar c);
}
