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

bool WriteOverFront(const QString &path, const QByteArray &content, FileFault &fault)
{
    const QFileInfo info(path);
    if (info.isDir()) {
        fault = FileFault::AtPath(FileFault::AccessError, path);
        return false;
    }
    // The old file is opened first: its bytes behind the new content go into the new file.
    QFile old(path);
    const bool keepTail = info.exists();
    if (keepTail && !old.open(QIODevice::ReadOnly)) {
        fault = FileFault::Of(old, path);
        return false;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        fault = FileFault::Of(file, path);
        return false;
    }
    bool ok = file.write(content) == content.size();
    if (ok && keepTail && old.size() > content.size() && old.seek(content.size())) {
        while (ok && !old.atEnd()) {
            const QByteArray chunk = old.read(64 * 1024);
            if (old.error() != QFileDevice::NoError) {
                fault = FileFault::Of(old, path);
                file.cancelWriting();
                return false;
            }
            if (chunk.isEmpty())
                break;
            ok = file.write(chunk) == chunk.size();
        }
    }
    if (!ok) {
        fault = FileFault::Of(file, path);
        file.cancelWriting();
        return false;
    }
    if (!file.commit()) {
        fault = FileFault::Of(file, path);
        return false;
    }
    return true;
}

} // namespace SmallFiles
