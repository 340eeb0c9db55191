#pragma once
#include <QByteArray>
#include <QString>

// The bytes of the file at path behind its first `from` bytes: what a save that overwrites
// the file from its start, without shortening it, leaves standing. Empty when the file is
// missing, unreadable or not longer than that.
QByteArray FileTailBeyond(const QString &path, qint64 from);
