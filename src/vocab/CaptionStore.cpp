#include "vocab/CaptionStore.h"

#include "core/Session.h"

int CaptionStore::Find(int type, int subType, int id) const
{
    for (int i = 0; i < CaptionCount && i < records.size(); ++i) {
        const Record &r = records[i];
        if (r.type == type && r.subType == subType && r.id == id)
            return i;
    }
    return -1;
}

QString CaptionStore::GetCaption(int type, int subType, int id) const
{
    const int i = Find(type, subType, id);
    return i < 0 ? QString() : records[i].caption;
}

void CaptionStore::SetCaption(int type, int subType, int id, const QString &caption)
{
    int i = Find(type, subType, id);
    if (i < 0) {
        if (CaptionCount >= InUse)
            return;
        records.resize(CaptionCount + 1);
        i = CaptionCount++;
        records[i] = Record{type, subType, id, QString(), QString()};
    }
    records[i].caption = caption;
}

QString CaptionStore::GetAnnotation(int type, int subType, int id) const
{
    const int i = Find(type, subType, id);
    return i < 0 ? QString() : records[i].annotation;
}

void CaptionStore::SetAnnotation(int type, int subType, int id, const QString &annotation)
{
    int i = Find(type, subType, id);
    if (i < 0) {
        SetCaption(type, subType, id, QString());
        i = Find(type, subType, id);
        if (i < 0)
            return;
    }
    records[i].annotation = annotation;
}

// The caption files come with the vocabularies work; until then a genome loads without
// captions and saves none.
void CaptionStore::LoadUniqueCaptions(const QString &) {}
void CaptionStore::LoadDefaultCaptions() {}
void CaptionStore::SaveUniqueCaptions(const QString &) {}
void CaptionStore::SaveDefaultCaptions() {}
