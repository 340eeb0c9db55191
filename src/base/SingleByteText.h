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
// One byte to its character, and one character to its byte ('?' for a character the code
// page lacks): for readers and writers that walk a text a byte at a time. The code page
// is ASCII below 0x80, which most text is; the rest goes through the tables.
QChar DecodeHighChar(quint8 byte);
char EncodeHighChar(QChar c);
inline QChar DecodeChar(quint8 byte) { return byte < 0x80 ? QChar(byte) : DecodeHighChar(byte); }
inline char EncodeChar(QChar c) { return c.unicode() < 0x80 ? char(c.unicode()) : EncodeHighChar(c); }
}
