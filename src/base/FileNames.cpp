#include "base/FileNames.h"

#include <QDir>
#include <QFileInfo>

namespace FileNames {

namespace {
QString Join(const QString &folder, const QString &name)
{
    if (folder.isEmpty())
        return name;
    if (folder.endsWith(QLatin1Char('/')))
        return folder + name;
    return folder + QLatin1Char('/') + name;
}
} // namespace

QString ResolveFileName(const QString &folder, const QString &name)
{
    const QString direct = Join(folder, name);
    if (name.isEmpty())
        return direct;
    const QFileInfo exact(direct);
    if (exact.exists() && !exact.isDir())
        return direct;

    const QDir dir(folder.isEmpty() ? QStringLiteral(".") : folder);
    const QStringList entries =
        dir.entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    for (const QString &entry : entries)
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return Join(folder, entry);
    return direct;
}

QString ResolveFilePath(const QString &path)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    if (slash < 0)
        return ResolveFileName(QString(), path);
    // A file directly under the root keeps its root as the folder.
    return ResolveFileName(path.left(slash + 1), path.mid(slash + 1));
}

} // namespace FileNames
