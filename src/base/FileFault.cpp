#include "base/FileFault.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

FileFault FileFault::Numbered(qint16 number)
{
    switch (number) {
    case TypeMismatch: return {number, QStringLiteral("Type mismatch")};
    case BadFileName: return {number, QStringLiteral("Bad file name or number")};
    case FileNotFound: return {number, QStringLiteral("File not found")};
    case DeviceError: return {number, QStringLiteral("Device I/O error")};
    case DiskFull: return {number, QStringLiteral("Disk full")};
    case PastEndOfFile: return {number, QStringLiteral("Input past end of file")};
    case PermissionDenied: return {number, QStringLiteral("Permission denied")};
    case PathNotFound: return {number, QStringLiteral("Path not found")};
    default: return {AccessError, QStringLiteral("Path/File access error")};
    }
}

FileFault FileFault::OfError(QFileDevice::FileError error)
{
    switch (error) {
    case QFileDevice::PermissionsError: return Numbered(PermissionDenied);
    case QFileDevice::ResourceError: return Numbered(DiskFull);
    case QFileDevice::ReadError:
    case QFileDevice::WriteError: return Numbered(DeviceError);
    default: return Numbered(AccessError);
    }
}

FileFault FileFault::AtPath(qint16 number, const QString &path)
{
    FileFault f = Numbered(number);
    f.Description += QStringLiteral(": ") + path;
    return f;
}

FileFault FileFault::Of(const QFileDevice &file, const QString &path)
{
    switch (file.error()) {
    case QFileDevice::OpenError: {
        const QFileInfo info(path);
        if (!info.exists())
            return AtPath(info.dir().exists() ? FileNotFound : PathNotFound, path);
        if (!info.isDir() && (!info.isReadable() || !info.isWritable()))
            return AtPath(PermissionDenied, path);
        return AtPath(AccessError, path);
    }
    case QFileDevice::FatalError:
        return AtPath(DeviceError, path);
    default:
        return AtPath(OfError(file.error()).Number, path);
    }
}

namespace SmallFiles {

bool ReadFront(const QString &path, qint64 maxBytes, QByteArray &bytes, FileFault &fault)
{
    if (QFileInfo(path).isDir()) {
        fault = FileFault::AtPath(FileFault::AccessError, path);
        return false;
    }
    // Unbuffered: the pieces below are read straight into bytes, with no buffer of the
    // device's own in between.
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        fault = FileFault::Of(file, path);
        return false;
    }
    // Read in pieces: a single read of the limit would reserve all of it (some 34 MB for a
    // chemical list) whatever the file's size. The first piece is as long as the file says it
    // is and a byte more; a piece that comes back short most likely met the end, which a
    // small buffer here then makes sure of before bytes grows any further.
    bytes.clear();
    qint64 piece = qBound(qint64(1), file.size() + 1, qint64(64 * 1024));
    while (bytes.size() < maxBytes) {
        const qint64 want = qMin<qint64>(piece, maxBytes - bytes.size());
        const qsizetype start = bytes.size();
        bytes.resize(start + qsizetype(want));
        const qint64 got = file.read(bytes.data() + start, want);
        bytes.resize(start + qsizetype(qMax<qint64>(got, 0)));
        if (got <= 0)
            break;
        if (got < want) {
            char probe[4096];
            const qint64 more = file.read(probe, qMin<qint64>(sizeof probe, maxBytes - bytes.size()));
            if (more <= 0)
                break;
            bytes.append(probe, qsizetype(more));
        }
        piece = 64 * 1024;
    }
    if (file.error() != QFileDevice::NoError) {
        fault = FileFault::Of(file, path);
        return false;
    }
    return true;
}

Replaced ReplaceFile(const QString &path, const QByteArray &bytes, FileFault &fault, QString *systemText)
{
    // Unbuffered, so that every write reaches the system at once and a short one is seen here:
    // the save file's own flush at commit does not report a failure, and on a full disk it
    // would rename a cut file over the old one.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        fault = FileFault::Of(file, path);
        if (systemText)
            *systemText = file.errorString();
        return Replaced::NotOpened;
    }
    // A short write is taken up again where it stopped; the next one fails and tells the
    // cause (a disk is full only when not one more byte fits).
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 n = file.write(bytes.constData() + written, bytes.size() - written);
        if (n <= 0)
            break;
        written += n;
    }
    const bool whole = written == bytes.size();
    if (!whole || !file.commit()) {
        fault = FileFault::Of(file, path);
        if (systemText)
            *systemText = file.errorString();
        file.cancelWriting(); // the new file goes with the save file
        return Replaced::NotWritten;
    }
    return Replaced::Done;
}

bool WriteOverFront(const QString &path, const QByteArray &content, FileFault &fault)
{
    const QFileInfo info(path);
    if (info.isDir()) {
        fault = FileFault::AtPath(FileFault::AccessError, path);
        return false;
    }
    // The bytes of an older, longer file behind the new content go into the new file.
    QByteArray whole = content;
    if (info.exists()) {
        QFile old(path);
        if (!old.open(QIODevice::ReadOnly)) {
            fault = FileFault::Of(old, path);
            return false;
        }
        if (old.size() > content.size() && old.seek(content.size()))
            whole += old.readAll();
        if (old.error() != QFileDevice::NoError) {
            fault = FileFault::Of(old, path);
            return false;
        }
    }
    return ReplaceFile(path, whole, fault) == Replaced::Done;
}

} // namespace SmallFiles
