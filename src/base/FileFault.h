#pragma once
#include <QByteArray>
#include <QFileDevice>
#include <QString>

// A failed file operation as a fault message reports it: an error number in the family the
// users know from the original program, and a description.
struct FileFault
{
    // The numbers of file faults.
    enum : qint16 {
        TypeMismatch = 13,
        BadFileName = 52,
        FileNotFound = 53,
        DeviceError = 57,
        DiskFull = 61,
        PastEndOfFile = 62,
        PermissionDenied = 70,
        AccessError = 75,
        PathNotFound = 76,
    };

    qint16 Number = 0;
    QString Description;

    bool Failed() const { return Number != 0; }

    // A fault by its number, with the description that number always carries
    // ("Disk full", "Input past end of file", ...).
    static FileFault Numbered(qint16 number);
    // The fault of a device error, without naming the file: permissions 70, no room 61,
    // a failed read or write 57, anything else 75.
    static FileFault OfError(QFileDevice::FileError error);
    // The fault of a file device after a failed open, read, write or commit, its description
    // ending in ": " and the path. A failed open tells a missing file (53) from a missing
    // folder (76) and a file the user may not touch (70).
    static FileFault Of(const QFileDevice &file, const QString &path);
    // A fault by its number, its description naming the file.
    static FileFault AtPath(qint16 number, const QString &path);
};

// Whole-file reads and writes of the small files beside the program.
namespace SmallFiles {
// Reads at most maxBytes from the front of the file at path.
bool ReadFront(const QString &path, qint64 maxBytes, QByteArray &bytes, FileFault &fault);
// How far a replacement of a file got.
enum class Replaced { Done, NotOpened, NotWritten };
// Puts bytes in place of the file at path: they are written to a new file beside it, which is
// renamed over it once every byte was taken. Whatever fails, the old file stays whole and the
// new one goes; fault tells why and systemText, if given, the system's own words.
Replaced ReplaceFile(const QString &path, const QByteArray &bytes, FileFault &fault, QString *systemText = nullptr);
// Writes content over the first bytes of the file at path without shortening it: bytes of an
// older, longer file behind the new content stay as they were. The file is replaced as
// ReplaceFile does, so a failed write leaves the old file whole.
bool WriteOverFront(const QString &path, const QByteArray &content, FileFault &fault);
}
