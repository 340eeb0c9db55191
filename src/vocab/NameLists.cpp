#include "vocab/NameLists.h"

#include "core/Session.h"
#include "core/Text.h"
#include "vocab/FileNames.h"
#include "vocab/SingleByteText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {
const QString ChemicalsRead = QStringLiteral("chemicals.txt");
const QString ChemicalsWritten = QStringLiteral("Chemicals.txt");
const QString PosesRead = QStringLiteral("posename.txt");
const QString PosesWritten = QStringLiteral("PoseName.txt");
const QString ScriptsFile = QStringLiteral("scriptnames.txt");

constexpr int MaxEntryBytes = 0xFFFF;

QString Quoted(const QString &text) { return QLatin1Char('\'') + text + QLatin1Char('\''); }
}

// --- faults ------------------------------------------------------------------------------

FileFault FileFault::Of(const QFileDevice &file, const QString &path)
{
    const QFileInfo info(path);
    switch (file.error()) {
    case QFileDevice::OpenError:
        if (!info.exists())
            return {qint16(info.dir().exists() ? 53 : 76),
                    (info.dir().exists() ? QStringLiteral("File not found: ") : QStringLiteral("Path not found: "))
                        + path};
        if (info.isDir())
            return {75, QStringLiteral("Path/File access error: ") + path};
        if (!info.isReadable() || !info.isWritable())
            return {70, QStringLiteral("Permission denied: ") + path};
        return {75, QStringLiteral("Path/File access error: ") + path};
    case QFileDevice::PermissionsError:
        return {70, QStringLiteral("Permission denied: ") + path};
    case QFileDevice::ResourceError:
        return {61, QStringLiteral("Disk full: ") + path};
    case QFileDevice::ReadError:
    case QFileDevice::WriteError:
    case QFileDevice::FatalError:
        return {57, QStringLiteral("Device I/O error: ") + path};
    default:
        return {75, QStringLiteral("Path/File access error: ") + path};
    }
}

FileFault FileFault::PastEnd(const QString &path)
{
    return {62, QStringLiteral("Input past end of file: ") + path};
}

// --- whole-file work -----------------------------------------------------------------------

namespace VocabFiles {

bool ReadFront(const QString &path, qint64 maxBytes, QByteArray &bytes, FileFault &fault)
{
    if (QFileInfo(path).isDir()) {
        fault = {75, QStringLiteral("Path/File access error: ") + path};
        return false;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        fault = FileFault::Of(file, path);
        return false;
    }
    // Read in pieces: a single read of the limit would reserve all of it (some 34 MB for a
    // chemical list) whatever the file's size.
    bytes.clear();
    while (bytes.size() < maxBytes) {
        const QByteArray piece = file.read(qMin<qint64>(64 * 1024, maxBytes - bytes.size()));
        if (piece.isEmpty())
            break;
        bytes += piece;
    }
    if (file.error() != QFileDevice::NoError) {
        fault = FileFault::Of(file, path);
        return false;
    }
    return true;
}

bool WriteOverFront(const QString &path, const QByteArray &content, FileFault &fault)
{
    const QFileInfo info(path);
    if (info.isDir()) {
        fault = {75, QStringLiteral("Path/File access error: ") + path};
        return false;
    }
    // The old file is opened first: its bytes behind the new content go into the new file.
    QFile old(path);
    const bool keepTail = info.exists();
    if (keepTail && !old.open(QIODevice::ReadOnly)) {
        fault = FileFault::Of(old, path);
        return false;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        fault = FileFault::Of(file, path);
        return false;
    }
    bool ok = file.write(content) == content.size();
    if (ok && keepTail && old.size() > content.size() && old.seek(content.size())) {
        while (ok && !old.atEnd()) {
            const QByteArray chunk = old.read(64 * 1024);
            if (old.error() != QFileDevice::NoError) {
                fault = FileFault::Of(old, path);
                file.cancelWriting();
                return false;
            }
            if (chunk.isEmpty())
                break;
            ok = file.write(chunk) == chunk.size();
        }
    }
    if (!ok) {
        fault = FileFault::Of(file, path);
        file.cancelWriting();
        return false;
    }
    if (!file.commit()) {
        fault = FileFault::Of(file, path);
        return false;
    }
    return true;
}

} // namespace VocabFiles

// --- list files ----------------------------------------------------------------------------

QByteArray NameLists::EncodeListFile(const QString *first, const QString *second, int entries)
{
    QByteArray bytes;
    for (const QString *array : {first, second})
        for (int i = 0; i < entries; ++i) {
            QByteArray text = SingleByteText::Encode(array[i]);
            if (text.size() > MaxEntryBytes)
                text.truncate(MaxEntryBytes);
            bytes.append(char(text.size() & 0xFF));
            bytes.append(char((text.size() >> 8) & 0xFF));
            bytes.append(text);
        }
    return bytes;
}

int NameLists::DecodeListFile(const QByteArray &bytes, QString *first, QString *second, int entries)
{
    const qsizetype size = bytes.size();
    qsizetype pos = 0;
    int read = 0;
    for (QString *array : {first, second})
        for (int i = 0; i < entries; ++i) {
            if (size - pos < 2)
                return read;
            const qsizetype length = qsizetype(quint8(bytes[pos])) | (qsizetype(quint8(bytes[pos + 1])) << 8);
            if (size - pos - 2 < length)
                return read;
            array[i] = SingleByteText::Decode(bytes.mid(pos + 2, length));
            pos += 2 + length;
            ++read;
        }
    return read;
}

QString NameLists::ListFilePath(const QString &name) const
{
    QString folder = session.AppDirectory;
    if (folder.isEmpty())
        folder = QDir::currentPath();
    else
        QDir::setCurrent(folder);
    return ResolveFileName(folder, name);
}

bool NameLists::ReadListFile(const QString &path, QString *first, QString *second, int entries,
                             const QString &faultContext)
{
    QByteArray bytes;
    FileFault fault;
    // No list can be longer than this: everything behind it is ignored anyway.
    const qint64 longest = qint64(2) * entries * (2 + MaxEntryBytes);
    if (!VocabFiles::ReadFront(path, longest, bytes, fault)) {
        session.ShowFault(fault.Number, fault.Description, faultContext);
        return false;
    }
    if (DecodeListFile(bytes, first, second, entries) < 2 * entries) {
        fault = FileFault::PastEnd(path);
        session.ShowFault(fault.Number, fault.Description, faultContext);
        return false;
    }
    return true;
}

bool NameLists::WriteListFile(const QString &readSpelling, const QString &writeSpelling, const QString *first,
                              const QString *second, int entries, const QString &faultContext)
{
    // The file written is the one the next load reads, even where both spellings stand side
    // by side; only a new file takes the written spelling.
    QString path = ListFilePath(readSpelling);
    if (!QFileInfo::exists(path))
        path = ListFilePath(writeSpelling);
    FileFault fault;
    if (!VocabFiles::WriteOverFront(path, EncodeListFile(first, second, entries), fault)) {
        session.ShowFault(fault.Number, fault.Description, faultContext);
        return false;
    }
    return true;
}

void NameLists::SetChemicalDefaults()
{
    ChemicalNames[0] = QStringLiteral("<none>");
    for (int i = 1; i < SlotsInUse; ++i)
        ChemicalNames[size_t(i)] = QString::number(i);
}

void NameLists::SetPoseDefaults()
{
    for (int i = 0; i < SlotsInUse; ++i)
        PoseNames[size_t(i)] = QString::number(i);
}

void NameLists::SetScriptDefaults()
{
    for (int i = 0; i < ScriptsInUse; ++i) {
        ScriptNames[size_t(i)] = QStringLiteral("<empty>");
        ScriptResults[size_t(i)].clear();
    }
}

void NameLists::LoadChemicalList()
{
    SetChemicalDefaults();
    const QString path = ListFilePath(ChemicalsRead);
    if (!QFileInfo::exists(path)) {
        session.ShowWarning(QStringLiteral("Could not find 'chemicals.txt', using numeric substitutes."));
        return;
    }
    ReadListFile(path, ChemicalNames.data(), ChemicalCaptions.data(), ListEntries,
                 QStringLiteral("Error reading chemical list"));
}

void NameLists::LoadPoseList()
{
    SetPoseDefaults();
    const QString path = ListFilePath(PosesRead);
    if (!QFileInfo::exists(path))
        session.ShowWarning(QStringLiteral("Could not find 'posenames.txt', using numeric substitutes."));
    else
        ReadListFile(path, PoseNames.data(), PoseCaptions.data(), ListEntries,
                     QStringLiteral("Error reading pose names"));
    for (int i = 0; i < SlotsInUse; ++i)
        if (PoseNames[size_t(i)].isEmpty())
            PoseNames[size_t(i)] = QString::number(i);
}

void NameLists::LoadScriptList()
{
    SetScriptDefaults();
    const QString path = ListFilePath(ScriptsFile);
    if (!QFileInfo::exists(path)) {
        session.ShowWarning(QStringLiteral("Could not find 'scriptnames.txt'--no autoscripts loaded"));
        return;
    }
    ReadListFile(path, ScriptNames.data(), ScriptMacros.data(), ScriptEntries,
                 QStringLiteral("Error reading script names"));
}

bool NameLists::SaveChemicalList()
{
    if (!WriteListFile(ChemicalsRead, ChemicalsWritten, ChemicalNames.data(), ChemicalCaptions.data(), ListEntries,
                       QStringLiteral("Error saving chemical names")))
        return false;
    session.ChemicalsChanged = false;
    return true;
}

bool NameLists::SavePoseList()
{
    if (!WriteListFile(PosesRead, PosesWritten, PoseNames.data(), PoseCaptions.data(), ListEntries,
                       QStringLiteral("Error saving pose names")))
        return false;
    session.PosesChanged = false;
    return true;
}

bool NameLists::SaveScriptList()
{
    if (!WriteListFile(ScriptsFile, ScriptsFile, ScriptNames.data(), ScriptMacros.data(), ScriptEntries,
                       QStringLiteral("Error saving script names")))
        return false;
    session.ScriptsChanged = false;
    return true;
}

// --- slots -------------------------------------------------------------------------------------

double NameLists::NumericValue(const QString &text) { return Text::Val(text); }

QString NameLists::ChemicalListText(int number, QString &name)
{
    if (name.isEmpty())
        name = number == 0 ? QStringLiteral("<nothing>") : QString::number(number);
    return name;
}

int NameLists::FreeChemicalSlots() const
{
    int free = 0;
    for (int i = 1; i < SlotsInUse; ++i) {
        const QString &name = ChemicalNames[size_t(i)];
        if (name.isEmpty() || IsFreeName(name))
            ++free;
    }
    return free;
}

int NameLists::FreePoseSlots() const
{
    int free = 0;
    for (int i = 0; i < SlotsInUse; ++i)
        if (IsFreeName(PoseNames[size_t(i)]))
            ++free;
    return free;
}

QString NameLists::ChemicalCountText() const
{
    const int free = FreeChemicalSlots();
    return Text::Str(SlotsInUse - free) + QStringLiteral(" chemical(s) in use,") + Text::Str(free)
           + QStringLiteral(" slots free");
}

QString NameLists::PoseCountText() const
{
    const int free = FreePoseSlots();
    return Text::Str(SlotsInUse - free) + QStringLiteral(" pose(s) in use,") + Text::Str(free)
           + QStringLiteral(" slots free");
}

int NameLists::FirstFreeChemicalSlot() const
{
    for (int i = 1; i < SlotsInUse; ++i)
        if (IsFreeName(ChemicalNames[size_t(i)]))
            return i;
    return -1;
}

// --- chemical commands -------------------------------------------------------------------------

bool NameLists::AskNewChemical(int slot)
{
    const QString n = Text::Str(slot);
    const QString name = session.prompt.InputBox(QStringLiteral("Name new Chemical"),
                                                 QStringLiteral("Enter a name for chemical") + n,
                                                 QStringLiteral("<un-named chemical>"));
    if (name.isEmpty())
        return false;
    const QString caption = session.prompt.InputBox(QStringLiteral("Caption for new Chemical"),
                                                    QStringLiteral("Enter a caption for chemical") + n,
                                                    QStringLiteral("<no-caption>"));
    if (caption.isEmpty())
        return false;
    ChemicalNames[size_t(slot)] = name;
    ChemicalCaptions[size_t(slot)] = caption;
    session.ChemicalsChanged = true;
    return true;
}

bool NameLists::AddChemical(int &slot)
{
    slot = FirstFreeChemicalSlot();
    if (slot < 0) {
        session.ShowError(QStringLiteral("No chemical slots left, delete un-used chemicals"));
        return false;
    }
    return AskNewChemical(slot);
}

bool NameLists::AddChemicalHere(int slot)
{
    if (slot <= 0 || slot >= SlotsInUse) {
        session.ShowError(QStringLiteral("You cannot add over chemical 0"));
        return false;
    }
    const QString &name = ChemicalNames[size_t(slot)];
    if (NumericValue(name) == 0
        && session.ShowMessage(QStringLiteral("Are you sure you wish to write over ") + Quoted(name), 35)
               != Prompt::Yes)
        return false;
    return AskNewChemical(slot);
}

bool NameLists::DeleteChemical(int slot)
{
    if (slot <= 0 || slot >= SlotsInUse) {
        session.ShowError(QStringLiteral("You cannot delete chemical 0"));
        return false;
    }
    const QString name = ChemicalNames[size_t(slot)];
    if (IsFreeName(name)) {
        session.ShowError(QStringLiteral("Chemical") + Text::Str(slot) + QStringLiteral(" is already deleted"));
        return false;
    }
    if (session.ShowMessage(QStringLiteral("Are you sure you wish to delete ") + Quoted(name) + QLatin1Char('?'), 35)
        != Prompt::Yes)
        return false;
    ChemicalNames[size_t(slot)] = QString::number(slot);
    ChemicalCaptions[size_t(slot)].clear();
    session.ChemicalsChanged = true;
    return true;
}

bool NameLists::RenameChemical(int slot)
{
    if (slot <= 0 || slot >= SlotsInUse) {
        session.ShowError(QStringLiteral("You cannot rename chemical 0"));
        return false;
    }
    const QString name = ChemicalNames[size_t(slot)];
    if (IsFreeName(name)) {
        session.ShowError(QStringLiteral("Chemical") + Text::Str(slot)
                          + QStringLiteral(" is empty and cannot be renamed"));
        return false;
    }
    const QString answer = session.prompt.InputBox(QStringLiteral("Rename Chemical"),
                                                   QStringLiteral("Rename Chemical ") + Quoted(name), name);
    if (answer.isEmpty())
        return false;
    ChemicalNames[size_t(slot)] = answer;
    session.ChemicalsChanged = true;
    return true;
}

bool NameLists::CaptionChemical(int slot)
{
    if (slot <= 0 || slot >= SlotsInUse) {
        session.ShowError(QStringLiteral("You cannot edit the description for chemical 0"));
        return false;
    }
    if (IsFreeName(ChemicalNames[size_t(slot)])) {
        session.ShowError(QStringLiteral("Chemical") + Text::Str(slot)
                          + QStringLiteral(" is empty and the caption cannot be edited"));
        return false;
    }
    const QString caption = ChemicalCaptions[size_t(slot)];
    const QString answer = session.prompt.InputBox(QStringLiteral("Edit Chemical Caption"),
                                                   QStringLiteral("Edit Caption ") + Quoted(caption), caption);
    if (answer.isEmpty())
        return false;
    ChemicalCaptions[size_t(slot)] = answer;
    session.ChemicalsChanged = true;
    return true;
}

// --- pose commands -------------------------------------------------------------------------------

bool NameLists::DeletePose(int slot)
{
    if (slot < 0 || slot >= SlotsInUse)
        return false;
    const QString name = PoseNames[size_t(slot)];
    if (IsFreeName(name) || name == QLatin1String("0")) {
        session.ShowError(QStringLiteral("Pose") + Text::Str(slot) + QStringLiteral(" is already deleted"));
        return false;
    }
    if (session.ShowMessage(QStringLiteral("Are you sure you wish to delete ") + Quoted(name) + QLatin1Char('?'), 35)
        != Prompt::Yes)
        return false;
    PoseNames[size_t(slot)] = QString::number(slot);
    PoseCaptions[size_t(slot)].clear();
    session.PosesChanged = true;
    return true;
}

bool NameLists::RenamePose(int slot)
{
    if (slot < 0 || slot >= SlotsInUse)
        return false;
    const QString name = PoseNames[size_t(slot)];
    const QString answer = session.prompt.InputBox(QStringLiteral("Rename Pose"),
                                                   QStringLiteral("Rename Pose ") + Quoted(name), name);
    if (answer.isEmpty())
        return false;
    PoseNames[size_t(slot)] = answer;
    session.PosesChanged = true;
    return true;
}

bool NameLists::CaptionPose(int slot)
{
    if (slot < 0 || slot >= SlotsInUse)
        return false;
    const QString name = PoseNames[size_t(slot)];
    const QString answer = session.prompt.InputBox(QStringLiteral("Describe Pose"),
                                                   QStringLiteral("Describe Pose ") + Quoted(name),
                                                   PoseCaptions[size_t(slot)]);
    if (answer.isEmpty())
        return false;
    PoseCaptions[size_t(slot)] = answer;
    session.PosesChanged = true;
    return true;
}
