#pragma once
#include "base/FileFault.h"
#include "base/Messages.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>

class QIODevice;

// Captions and annotations of genes, keyed by (GeneType, GeneSubType, ID), and the caption
// files that carry them: the unique file beside a genome (.gno) and the default file of a
// species (.GNO in the program's folder). Both files have one format: a tag, the count and
// always all 1801 records.
class CaptionStore
{
public:
    static constexpr int Records = 1801; // records in the table and in every caption file
    static constexpr int InUse = 1798;   // most records the store holds in use
    static constexpr int FileTag = 2;    // first field of a caption file: a 16-bit count follows
    static constexpr int MaxTextBytes = 65535;

    // One entry of the table. The key fields are 16-bit in the file; the system only
    // stores 0 to 255 in them.
    struct CaptionRecord
    {
        qint16 GeneType = 0;
        qint16 GeneSubType = 0;
        qint16 ID = 0;
        QString Caption;
        QString Annotation;
    };

    // The store reports through messages and finds default files in appDirectory.
    // headGenus gives the Genus of the genome's first gene, or -1 when it has none; it names
    // the species' default file in speciesNames. showNote tells the user, on the status bar,
    // that the default file stands in for a missing unique one.
    CaptionStore(UserMessages &messages, const QString &appDirectory, const QStringList &speciesNames,
                 std::function<int()> headGenus, std::function<void(const QString &)> showNote);

    // Leading records of the table in use. Setting it to 0 empties the store and leaves the
    // table as it stands.
    qint16 CaptionCount = 0;

    // "<no caption>" / "<no annotation>" when no record in use bears the key.
    QString GetCaption(int type, int subType, int id) const;
    QString GetAnnotation(int type, int subType, int id) const;
    // Update the record with the key, or add one; refused with a message once the store
    // holds 1798 records, even for a key it has.
    void SetCaption(int type, int subType, int id, const QString &caption);
    void SetAnnotation(int type, int subType, int id, const QString &annotation);

    // The species' default file name, such as "Melk.GNO", from the Genus of the gene at
    // place 0; empty when that gene has no Genus or is missing.
    QString DefaultCaptionFileName() const;
    // The unique file beside a genome: ".gen" (exactly) replaced by ".gno"; empty when the
    // genome's name does not end in ".gen".
    static QString UniqueCaptionFileName(const QString &genomeFile);

    void LoadUniqueCaptions(const QString &genomeFile);
    void LoadDefaultCaptions();
    void SaveUniqueCaptions(const QString &genomeFile);
    void SaveDefaultCaptions();

    // Table access for the commands that look at every record (and for tests).
    const CaptionRecord &RecordAt(int index) const { return table[index]; }

    // The file image of the whole table: tag, count, 1801 records.
    QByteArray FileBytes() const;

    // Reads a caption file's content into the table, without messages. The store keeps
    // what was read before a fault: records that came in whole are in the table, and
    // CaptionCount counts no record that did not.
    // Gives the fault (number 0: the file was read whole) that ShowFault reports.
    FileFault Read(QIODevice &in);

private:
    UserMessages &messages;
    const QString &appDirectory;
    const QStringList &speciesNames;
    std::function<int()> headGenus;
    std::function<void(const QString &)> showNote;
    QVector<CaptionRecord> table;
    // The slots from here on hold empty records (keys 0, no texts): neither a read has to
    // clear them nor the writer to look at them.
    int filled = 0;

    // The lowest slot below `filled` that bears each key, so that a lookup needs no walk
    // through the table. Every slot from `filled` on is empty and bears the key (0, 0, 0):
    // that key's entry may be missing or lie at or past `filled` then, and a lookup takes
    // `filled` for it instead. Kept in step by every write of a slot.
    QHash<quint64, int> firstSlot;
    static quint64 KeyOf(const CaptionRecord &r);
    // Updates the index and `filled` as slot i takes the key of record; empty slots between
    // `filled` and i come below `filled` with it.
    void Rekey(int i, const CaptionRecord &record);

    int Find(int type, int subType, int id) const;
    // Shared by SetCaption and SetAnnotation; annotation says which text field changes.
    void Store(int type, int subType, int id, const QString &text, bool annotation);
    // The default file's path in the program's folder, found in any case.
    QString DefaultCaptionPath(const QString &name) const;
    void ReadCaptionFile(const QString &path, const QString &shownName);
    void WriteCaptionFile(const QString &path, const QString &shownName);
};
