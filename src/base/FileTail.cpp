#include "base/FileTail.h"

#include <QFile>

QByteArray FileTailBeyond(const QString &path, qint64 from)
{
    QFile old(path);
    if (!old.open(QIODevice::ReadOnly) || old.size() <= from || !old.seek(from))
        return QByteArray();
    return old.readAll();
}
