#include "vocab/CaptionStore.h"

#include "base/FileNames.h"
#include "base/SingleByteText.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <cstring>

namespace {

const QString NoCaption = QStringLiteral("<no caption>");
const QString NoAnnotation = QStringLiteral("<no annotation>");

constexpr int RecordHead = 12; // the key fields, the reserved field and the two lengths of an empty record

// Little-endian fields from a device, read ahead in chunks rather than a device call for each
// field. The first field that the device can't give in full sets the fault (past the end of
// the file, or a device error), and every later read then fails too; the device is asked no
// further than a field needs, so a read error behind the last field read is no fault.
class FieldReader
{
public:
    explicit FieldReader(QIODevice &in) : in(in), buffer(Chunk, Qt::Uninitialized) {}
    FileFault fault;
    bool Ok() const { return !fault.Failed(); }

    quint16 U16()
    {
        if (!Need(2))
            return 0;
        const char *b = buffer.constData() + pos;
        pos += 2;
        return quint16(quint8(b[0]) | (quint8(b[1]) << 8));
    }
    qint16 S16() { return qint16(U16()); }

    QByteArray Bytes(int count)
    {
        if (!Ok())
            return {};
        QByteArray b(count, Qt::Uninitialized);
        const qsizetype buffered = qMin<qsizetype>(count, end - pos);
        memcpy(b.data(), buffer.constData() + pos, size_t(buffered));
        pos += buffered;
        // A text longer than what is buffered comes straight from the device.
        qsizetype got = buffered;
        while (got < count) {
            const qint64 n = in.read(b.data() + got, count - got);
            if (n <= 0) {
                fault = FileFault::Numbered(n < 0 ? FileFault::DeviceError : FileFault::PastEndOfFile);
                return {};
            }
            got += qsizetype(n);
        }
        return b;
    }

    // A text field of count bytes; straight from the buffer when it holds them all.
    QString Text(int count)
    {
        if (count > 0 && Ok() && end - pos >= count) {
            const QString text = SingleByteText::Decode(QByteArrayView(buffer.constData() + pos, count));
            pos += count;
            return text;
        }
        const QByteArray bytes = Bytes(count);
        return bytes.isEmpty() ? QString() : SingleByteText::Decode(bytes);
    }

    // Skips the empty records (12 zero bytes each) at the front, at most `most` of them, and
    // gives how many it skipped. Never a fault: a record cut short is left to the field reads.
    int SkipEmptyRecords(int most)
    {
        static const char zeros[Chunk] = {};
        int skipped = 0;
        while (skipped < most && Available(RecordHead)) {
            const int whole = int(qMin<qsizetype>((end - pos) / RecordHead, most - skipped));
            const char *at = buffer.constData() + pos;
            int n = 0;
            // Most often everything buffered is empty; otherwise go record by record.
            if (memcmp(at, zeros, size_t(whole) * RecordHead) == 0)
                n = whole;
            else
                while (n < whole && memcmp(at + n * RecordHead, zeros, RecordHead) == 0)
                    ++n;
            pos += qsizetype(n) * RecordHead;
            skipped += n;
            if (n < whole)
                break;
        }
        return skipped;
    }

private:
    static constexpr qsizetype Chunk = 16 * 1024;
    QIODevice &in;
    QByteArray buffer;
    qsizetype pos = 0, end = 0;
    bool ended = false, broken = false; // the device gave its last byte / failed

    // At least count bytes buffered, reading more when the device has them.
    bool Available(qsizetype count)
    {
        while (end - pos < count) {
            if (ended || broken)
                return false;
            if (pos > 0) {
                memmove(buffer.data(), buffer.constData() + pos, size_t(end - pos));
                end -= pos;
                pos = 0;
            }
            const qint64 n = in.read(buffer.data() + end, Chunk - end);
            if (n < 0)
                broken = true;
            else if (n == 0)
                ended = true;
            else
                end += qsizetype(n);
        }
        return true;
    }

    bool Need(qsizetype count)
    {
        if (!Ok())
            return false;
        if (Available(count))
            return true;
        fault = FileFault::Numbered(broken ? FileFault::DeviceError : FileFault::PastEndOfFile);
        return false;
    }
};

void PutU16(char *&out, quint16 v)
{
    *out++ = char(v & 0xFF);
    *out++ = char(v >> 8);
}

// The length field holds at most 65535, so a longer text is cut there rather than spoil every
// field behind it (a character is a byte).
QStringView KeptText(const QString &text) { return QStringView(text).left(CaptionStore::MaxTextBytes); }

// A text field: its byte length, then its bytes.
void PutText(char *&out, QStringView text)
{
    PutU16(out, quint16(text.size()));
    SingleByteText::EncodeInto(text, out);
    out += text.size();
}

} // namespace

CaptionStore::CaptionStore(UserMessages &messages, const QString &appDirectory, const QStringList &speciesNames,
                           std::function<int()> headGenus, std::function<void(const QString &)> showNote)
    : messages(messages), appDirectory(appDirectory), speciesNames(speciesNames), headGenus(std::move(headGenus)),
      showNote(std::move(showNote)), table(Records)
{
}

quint64 CaptionStore::KeyOf(const CaptionRecord &r)
{
    return quint64(quint16(r.GeneType)) << 32 | quint64(quint16(r.GeneSubType)) << 16 | quint16(r.ID);
}

int CaptionStore::Find(int type, int subType, int id) const
{
    // The table's key fields are 16-bit: a wider key matches no record.
    const auto fits = [](int v) { return v >= -32768 && v <= 32767; };
    if (!fits(type) || !fits(subType) || !fits(id))
        return -1;
    CaptionRecord key;
    key.GeneType = qint16(type);
    key.GeneSubType = qint16(subType);
    key.ID = qint16(id);
    int i = firstSlot.value(KeyOf(key), Records);
    if (type == 0 && subType == 0 && id == 0)
        i = qMin(i, filled); // the empty slots from `filled` on
    const int count = qBound(0, int(CaptionCount), int(Records));
    return i < count ? i : -1;
}

void CaptionStore::Rekey(int i, const CaptionRecord &record)
{
    constexpr quint64 emptyKey = 0;
    if (i > filled) {
        // The empty slots between come below `filled` now: the first of them bears the empty
        // key, unless a slot before it does.
        const auto at = firstSlot.find(emptyKey);
        if (at == firstSlot.end() || *at > filled)
            firstSlot.insert(emptyKey, filled);
    }
    const quint64 oldKey = i < filled ? KeyOf(table[i]) : emptyKey;
    const quint64 newKey = KeyOf(record);
    if (oldKey != newKey) {
        // The old key's first slot moves on to its next one, if any.
        const auto at = firstSlot.find(oldKey);
        if (at != firstSlot.end() && *at == i) {
            int next = i + 1;
            while (next < filled && KeyOf(table[next]) != oldKey)
                ++next;
            if (next < filled)
                *at = next;
            else
                firstSlot.erase(at);
        }
    }
    const auto at = firstSlot.find(newKey);
    if (at == firstSlot.end() || *at > i)
        firstSlot.insert(newKey, i);
    filled = qMax(filled, i + 1);
}

QString CaptionStore::GetCaption(int type, int subType, int id) const
{
    const int i = Find(type, subType, id);
    return i < 0 ? NoCaption : table[i].Caption;
}

QString CaptionStore::GetAnnotation(int type, int subType, int id) const
{
    const int i = Find(type, subType, id);
    return i < 0 ? NoAnnotation : table[i].Annotation;
}

void CaptionStore::SetCaption(int type, int subType, int id, const QString &caption)
{
    Store(type, subType, id, caption, false);
}

void CaptionStore::SetAnnotation(int type, int subType, int id, const QString &annotation)
{
    Store(type, subType, id, annotation, true);
}

void CaptionStore::Store(int type, int subType, int id, const QString &text, bool annotation)
{
    // A full store refuses even a change to a record it has: the test comes first.
    if (CaptionCount >= InUse) {
        messages.ShowError(annotation ? QStringLiteral("SetAnnotation(): No more room in the caption system")
                                     : QStringLiteral("SetCaption(): No more room in the caption system"));
        return;
    }
    const int i = Find(type, subType, id);
    if (i >= 0) {
        (annotation ? table[i].Annotation : table[i].Caption) = text;
        return;
    }
    if (CaptionCount < 0)
        CaptionCount = 0;
    CaptionRecord r;
    r.GeneType = qint16(type);
    r.GeneSubType = qint16(subType);
    r.ID = qint16(id);
    r.Caption = annotation ? QString() : text;
    r.Annotation = annotation ? text : QString();
    Rekey(CaptionCount, r);
    table[CaptionCount] = std::move(r);
    ++CaptionCount;
}

QString CaptionStore::DefaultCaptionFileName() const
{
    const int genus = headGenus ? headGenus() : -1;
    if (genus < 0 || genus >= speciesNames.size())
        return QString();
    return speciesNames[genus] + QStringLiteral(".GNO");
}

QString CaptionStore::UniqueCaptionFileName(const QString &genomeFile)
{
    // The test is case-sensitive: "pet.GEN" is no genome name here.
    if (!genomeFile.endsWith(QLatin1String(".gen"), Qt::CaseSensitive))
        return QString();
    return genomeFile.left(genomeFile.size() - 4) + QStringLiteral(".gno");
}

QString CaptionStore::DefaultCaptionPath(const QString &name) const
{
    // Default files live in the program's folder; a name in another case is the same file.
    return FileNames::ResolveFileName(appDirectory, name);
}

// --- reading ------------------------------------------------------------------------------

FileFault CaptionStore::Read(QIODevice &in)
{
    FieldReader r(in);
    const quint16 tag = r.U16();
    const qint16 count = r.S16();
    if (!r.Ok())
        return r.fault;

    // The file replaces the whole table. Records come in whole or not at all, and the count
    // never reaches past the records that arrived, so a short file leaves a consistent store.
    // A count of another type than a 16-bit one cannot be read on: the store stays empty.
    // Only the slots below `filled` can hold anything to clear.
    for (int i = 0; i < filled; ++i)
        table[i] = CaptionRecord();
    filled = 0;
    firstSlot.clear();
    CaptionCount = 0;
    if (tag != FileTag)
        return FileFault::Numbered(FileFault::TypeMismatch);
    const qint16 wanted = qint16(qBound(0, int(count), int(InUse)));

    for (int i = 0; i < Records; ++i) {
        // Most records of a file are empty, and their slots are empty already.
        i += r.SkipEmptyRecords(Records - i);
        if (i == Records)
            break;
        CaptionRecord rec;
        rec.GeneType = r.S16();
        rec.GeneSubType = r.S16();
        rec.ID = r.S16();
        r.U16(); // reserved
        rec.Caption = r.Text(r.U16());
        rec.Annotation = r.Text(r.U16());
        if (!r.Ok()) {
            CaptionCount = qint16(qMin(int(wanted), i));
            return r.fault;
        }
        Rekey(i, rec);
        table[i] = std::move(rec);
    }
    CaptionCount = wanted;
    return FileFault();
}

void CaptionStore::ReadCaptionFile(const QString &path, const QString &shownName)
{
    FileFault fault;
    QFile file(path);
    if (!QFileInfo::exists(path))
        fault = FileFault::Numbered(FileFault::FileNotFound);
    else if (!file.open(QIODevice::ReadOnly))
        fault = FileFault::OfError(file.error());
    else
        fault = Read(file);
    if (fault.Failed())
        messages.ShowFault(fault.Number, fault.Description,
                           QStringLiteral("Error reading caption file '") + shownName + QStringLiteral("'"));
}

void CaptionStore::LoadDefaultCaptions()
{
    const QString name = DefaultCaptionFileName();
    if (name.isEmpty()) {
        // A genome with no genus gene at its head (an empty one, say) has no species file to
        // fall back on: its genes simply have no captions yet, which is nothing to warn about.
        CaptionCount = 0;
        return;
    }
    ReadCaptionFile(DefaultCaptionPath(name), name);
}

void CaptionStore::LoadUniqueCaptions(const QString &genomeFile)
{
    const QString unique = UniqueCaptionFileName(genomeFile);
    if (unique.isEmpty()) {
        CaptionCount = 0;
        messages.ShowError(QStringLiteral("Can't load unique caption file: bad genome filename"));
        return;
    }
    const QString path = FileNames::ResolveFilePath(unique);
    if (!QFileInfo::exists(path)) {
        const QString name = DefaultCaptionFileName();
        if (showNote)
            showNote(QStringLiteral("(No unique: Using default '") + name + QStringLiteral("')"));
        LoadDefaultCaptions();
        return;
    }
    ReadCaptionFile(path, unique);
}

// --- writing ------------------------------------------------------------------------------

QByteArray CaptionStore::FileBytes() const
{
    // The slots behind those ever filled hold empty records: they stay the zeros the buffer
    // starts with.
    const CaptionRecord *const first = table.constData(), *const end = first + filled;
    qsizetype size = 4 + qsizetype(Records) * RecordHead;
    for (const CaptionRecord *rec = first; rec != end; ++rec)
        size += KeptText(rec->Caption).size() + KeptText(rec->Annotation).size();
    QByteArray out(size, '\0');
    char *at = out.data();
    PutU16(at, FileTag);
    PutU16(at, quint16(CaptionCount));
    // A record's kind and ID go out as one block of four little-endian 16-bit fields, the last
    // (the reserved one) 0.
    for (const CaptionRecord *rec = first; rec != end; ++rec) {
        const quint16 ids[4] = {quint16(rec->GeneType), quint16(rec->GeneSubType), quint16(rec->ID), 0};
        qToLittleEndian<quint16>(ids, 4, at);
        at += sizeof ids;
        PutText(at, KeptText(rec->Caption));
        PutText(at, KeptText(rec->Annotation));
    }
    return out;
}

void CaptionStore::WriteCaptionFile(const QString &path, const QString &shownName)
{
    // The file is overwritten from its first byte and never shortened: the bytes of an older,
    // longer file behind the new content stay where they were. A failure leaves the old file
    // whole.
    FileFault fault;
    if (SmallFiles::WriteOverFront(path, FileBytes(), fault))
        return;
    // The context names the file already; the description is the fault's alone.
    const FileFault shown = FileFault::Numbered(fault.Number);
    messages.ShowFault(shown.Number, shown.Description, QStringLiteral("Error saving caption file ") + shownName);
}

void CaptionStore::SaveDefaultCaptions()
{
    const QString name = DefaultCaptionFileName();
    if (name.isEmpty()) {
        const FileFault badName = FileFault::Numbered(FileFault::BadFileName);
        messages.ShowFault(badName.Number, badName.Description, QStringLiteral("Error saving caption file ") + name);
        return;
    }
    WriteCaptionFile(DefaultCaptionPath(name), name);
}

void CaptionStore::SaveUniqueCaptions(const QString &genomeFile)
{
    const QString unique = UniqueCaptionFileName(genomeFile);
    if (unique.isEmpty()) {
        messages.ShowError(QStringLiteral("Can't save unique caption file: bad genome filename"));
        return;
    }
    WriteCaptionFile(FileNames::ResolveFilePath(unique), unique);
}
