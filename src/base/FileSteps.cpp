#include "base/FileSteps.h"

#include <QFile>
#include <QFileInfo>

namespace FileSteps {

FileFault Missing(const QString &path)
{
    const QFileInfo info(path);
    return FileFault::AtPath(QFileInfo(info.absolutePath()).isDir() ? FileFault::FileNotFound : FileFault::PathNotFound,
                             path);
}

FileFault Refused(const QString &path, qint16 fallback)
{
    const QFileInfo folder(QFileInfo(path).absolutePath());
    if (!folder.isDir())
        return FileFault::AtPath(FileFault::PathNotFound, path);
    if (!folder.isWritable())
        return FileFault::AtPath(FileFault::PermissionDenied, path);
    return FileFault::AtPath(fallback, path);
}

void Keep(FileFault &fault, const FileFault &raised)
{
    if (!fault.Failed())
        fault = raised;
}

void Remove(const QString &path, FileFault &fault)
{
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink())
        Keep(fault, Missing(path));
    else if (info.isDir() || !QFile::remove(path))
        Keep(fault, Refused(path, FileFault::AccessError));
}

void Copy(const QString &from, const QString &to, FileFault &fault)
{
    if (!QFileInfo::exists(from))
        Keep(fault, Missing(from));
    else if (!QFile::copy(from, to))
        Keep(fault, Refused(to, FileFault::AccessError));
}

} // namespace FileSteps
