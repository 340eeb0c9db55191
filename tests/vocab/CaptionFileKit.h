// Caption files built here byte by byte, independently of the store's writer.
#pragma once

#include "vocab/CaptionStore.h"

#include <QByteArray>
#include <QList>

namespace CaptionFileKit {

inline QByteArray Le16(int v) { return QByteArray(1, char(v & 0xFF)) + char((v >> 8) & 0xFF); }

// A record and the slot it stands in.
struct FileRecord
{
    int index = 0;
    qint16 type = 0, subType = 0, id = 0, reserved = 0;
    QByteArray caption, annotation;
};

// Tag 2, the count, then 1801 records: the given ones at their places, empty ones elsewhere.
// With writtenForm the reserved fields are 0, as the store writes them.
inline QByteArray CaptionFile(int count, const QList<FileRecord> &records, bool writtenForm = false)
{
    QByteArray out = Le16(2) + Le16(count);
    for (int i = 0; i < CaptionStore::Records; ++i) {
        FileRecord r;
        for (const FileRecord &f : records)
            if (f.index == i)
                r = f;
        out += Le16(r.type) + Le16(r.subType) + Le16(r.id) + Le16(writtenForm ? 0 : r.reserved)
               + Le16(r.caption.size()) + r.caption + Le16(r.annotation.size()) + r.annotation;
    }
    return out;
}

} // namespace CaptionFileKit
