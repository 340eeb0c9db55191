#pragma once
// The files a fuzz target hands to a loader: one folder for the whole run, on a memory file
// system where the machine has one (a loader that saves syncs its file to disk), and the way
// back to the folder the fuzzer started in, whose relative paths it keeps using.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>

namespace FuzzFiles {

inline const QString &Folder()
{
    static QTemporaryDir dir = [] {
        const QFileInfo shm(QStringLiteral("/dev/shm"));
        return shm.isDir() && shm.isWritable() ? QTemporaryDir(QStringLiteral("/dev/shm/helix-fuzz-XXXXXX"))
                                               : QTemporaryDir();
    }();
    static const QString path = dir.path();
    if (!dir.isValid())
        qFatal("no folder for the fuzz target's files");
    return path;
}

// Writes bytes as the file name in Folder() and gives its path.
inline QString Write(const QString &name, const QByteArray &bytes)
{
    const QString path = Folder() + QLatin1Char('/') + name;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        qFatal("can't write %s", qPrintable(path));
    return path;
}

// Runs a loader that makes the program's folder the current one, and goes back after it.
template <class Loader>
void InProgramFolder(Loader load)
{
    static const QString start = QDir::currentPath();
    load();
    QDir::setCurrent(start);
}

} // namespace FuzzFiles
