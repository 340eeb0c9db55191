#include "vocab/CaptionStore.h"

#include "base/FileNames.h"
#include "base/SingleByteText.h"

#include <QFile>
#include <QFileInfo>

namespace {

const QString NoCaption = QStringLiteral("<no caption>");
const QString NoAnnotation = QStringLiteral("<no annotation>");

// Little-endian fields from a device. The first short or failed read sets the fault, and
// every later read then fails too.
class FieldReader
{
public:
    explicit FieldReader(QIODevice &in) : in(in) {}
    FileFault fault;
    bool Ok() const { return !fault.Failed(); }

    quint16 U16()
    {
        char b[2];
        if (!Take(b, 2))
            return 0;
        return quint16(quint8(b[0]) | (quint8(b[1]) << 8));
    }
    qint16 S16() { return qint16(U16()); }

    QByteArray Bytes(int count)
    {
        QByteArray b(count, '\0');
        if (!Take(b.data(), count))
            return {};
        return b;
    }

private:
    QIODevice &in;

    bool Take(char *to, qint64 count)
    {
        if (!Ok())
            return false;
        qint64 got = 0;
        while (got < count) {
            const qint64 n = in.read(to + got, count - got);
            if (n < 0) {
                fault = FileFault::Numbered(FileFault::DeviceError);
                return false;
            }
            if (n == 0)
                break;
            got += n;
        }
        if (got != count) {
            fault = FileFault::Numbered(FileFault::PastEndOfFile);
            return false;
        }
        return true;
    }
};

void PutU16(QByteArray &out, quint16 v)
{
    out.append(char(v & 0xFF));
    out.append(char(v >> 8));
}

// A text field: its byte length, then its bytes. The length field holds at most 65535, so
// a longer text is cut there rather than spoil every field behind it.
void PutText(QByteArray &out, const QString &text)
{
    QByteArray bytes = text.isEmpty() ? QByteArray() : SingleByteText::Encode(text);
    if (bytes.size() > CaptionStore::MaxTextBytes)
        bytes.truncate(CaptionStore::MaxTextBytes);
    PutU16(out, quint16(bytes.size()));
    out.append(bytes);
}

} // namespace

CaptionStore::CaptionStore(UserMessages &messages, const QString &appDirectory, const QStringList &speciesNames,
                           std::function<int()> headGenus, std::function<void(const QString &)> showNote)
    : messages(messages), appDirectory(appDirectory), speciesNames(speciesNames), headGenus(std::move(headGenus)),
      showNote(std::move(showNote)), table(Records)
{
}

int CaptionStore::Find(int type, int subType, int id) const
{
    const int count = qBound(0, int(CaptionCount), int(Records));
    for (int i = 0; i < count; ++i) {
        const CaptionRecord &r = table[i];
        if (r.GeneType == type && r.GeneSubType == subType && r.ID == id)
            return i;
    }
    return -1;
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
    CaptionRecord &r = table[CaptionCount];
    r.GeneType = qint16(type);
    r.GeneSubType = qint16(subType);
    r.ID = qint16(id);
    r.Caption = annotation ? QString() : text;
    r.Annotation = annotation ? text : QString();
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
    for (CaptionRecord &rec : table)
        rec = CaptionRecord();
    CaptionCount = 0;
    if (tag != FileTag)
        return FileFault::Numbered(FileFault::TypeMismatch);
    const qint16 wanted = qint16(qBound(0, int(count), int(InUse)));

    for (int i = 0; i < Records; ++i) {
        CaptionRecord rec;
        rec.GeneType = r.S16();
        rec.GeneSubType = r.S16();
        rec.ID = r.S16();
        r.U16(); // reserved
        const QByteArray caption = r.Bytes(r.U16());
        const QByteArray annotation = r.Bytes(r.U16());
        if (!r.Ok()) {
            CaptionCount = qint16(qMin(int(wanted), i));
            return r.fault;
        }
        // Most records are empty: skip the converter for them.
        if (!caption.isEmpty())
            rec.Caption = SingleByteText::Decode(caption);
        if (!annotation.isEmpty())
            rec.Annotation = SingleByteText::Decode(annotation);
        table[i] = rec;
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
    QByteArray out;
    out.reserve(4 + Records * 12);
    PutU16(out, FileTag);
    PutU16(out, quint16(CaptionCount));
    for (const CaptionRecord &rec : table) {
        PutU16(out, quint16(rec.GeneType));
        PutU16(out, quint16(rec.GeneSubType));
        PutU16(out, quint16(rec.ID));
        PutU16(out, 0);
        PutText(out, rec.Caption);
        PutText(out, rec.Annotation);
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
