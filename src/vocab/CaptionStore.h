#pragma once
#include <QString>
#include <QVector>

class Session;

// Captions and annotations of genes, keyed by (GeneType, GeneSubType, ID), and the caption
// files (.gno) that carry them beside a genome.
class CaptionStore
{
public:
    static constexpr int Records = 1801; // records in every caption file
    static constexpr int InUse = 1798;   // most records the store holds

    explicit CaptionStore(Session &session) : session(session) {}

    int CaptionCount = 0;

    QString GetCaption(int type, int subType, int id) const;
    void SetCaption(int type, int subType, int id, const QString &caption);
    QString GetAnnotation(int type, int subType, int id) const;
    void SetAnnotation(int type, int subType, int id, const QString &annotation);

    void LoadUniqueCaptions(const QString &genomeFile);
    void LoadDefaultCaptions();
    void SaveUniqueCaptions(const QString &genomeFile);
    void SaveDefaultCaptions();

private:
    Session &session;
    struct Record
    {
        int type = 0, subType = 0, id = 0;
        QString caption, annotation;
    };
    QVector<Record> records;
    int Find(int type, int subType, int id) const;
};
