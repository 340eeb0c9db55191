#include "vocab/NameLists.h"

#include "base/Text.h"
#include "base/FileNames.h"
#include "base/SingleByteText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
const QString ChemicalsRead = QStringLiteral("chemicals.txt");
const QString ChemicalsWritten = QStringLiteral("Chemicals.txt");
const QString PosesRead = QStringLiteral("posename.txt");
const QString PosesWritten = QStringLiteral("PoseName.txt");
const QString ScriptsFile = QStringLiteral("scriptnames.txt");

constexpr int MaxEntryBytes = 0xFFFF;

QString Quoted(const QString &text) { return QLatin1Char('\'') + text + QLatin1Char('\''); }
}

// --- list files ----------------------------------------------------------------------------

QByteArray NameLists::EncodeListFile(const QString *first, const QString *second, int entries)
{
    // One byte per character, so cutting a text cuts its bytes.
    const auto kept = [](const QString &text) { return QStringView(text).left(MaxEntryBytes); };
    qsizetype size = 0;
    for (const QString *array : {first, second})
        for (int i = 0; i < entries; ++i)
            size += 2 + kept(array[i]).size();
    QByteArray bytes(size, Qt::Uninitialized);
    char *out = bytes.data();
    for (const QString *array : {first, second})
        for (int i = 0; i < entries; ++i) {
            const QStringView text = kept(array[i]);
            *out++ = char(text.size() & 0xFF);
            *out++ = char((text.size() >> 8) & 0xFF);
            SingleByteText::EncodeInto(text, out);
            out += text.size();
        }
    return bytes;
}

int NameLists::DecodeListFile(const QByteArray &bytes, QString *first, QString *second, int entries)
{
    const qsizetype size = bytes.size();
    const QByteArrayView view(bytes);
    qsizetype pos = 0;
    int read = 0;
    for (QString *array : {first, second})
        for (int i = 0; i < entries; ++i) {
            if (size - pos < 2)
                return read;
            const qsizetype length = qsizetype(quint8(bytes[pos])) | (qsizetype(quint8(bytes[pos + 1])) << 8);
            if (size - pos - 2 < length)
                return read;
            array[i] = SingleByteText::Decode(view.sliced(pos + 2, length));
            pos += 2 + length;
            ++read;
        }
    return read;
}

QString NameLists::ListFilePath(const QString &name) const
{
    QString folder = appDirectory;
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
    if (!SmallFiles::ReadFront(path, longest, bytes, fault)) {
        messages.ShowFault(fault.Number, fault.Description, faultContext);
        return false;
    }
    if (DecodeListFile(bytes, first, second, entries) < 2 * entries) {
        fault = FileFault::AtPath(FileFault::PastEndOfFile, path);
        messages.ShowFault(fault.Number, fault.Description, faultContext);
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
    if (!SmallFiles::WriteOverFront(path, EncodeListFile(first, second, entries), fault)) {
        messages.ShowFault(fault.Number, fault.Description, faultContext);
        return false;
    }
    return true;
}

void NameLists::SetChemicalDefaults()
{
    ChemicalNames[0] = QStringLiteral("<none>");
    for (int i = 1; i < SlotsInUse; ++i)
        ChemicalNames[size_t(i)] = SlotNumberText(i);
}

void NameLists::SetPoseDefaults()
{
    for (int i = 0; i < SlotsInUse; ++i)
        PoseNames[size_t(i)] = SlotNumberText(i);
}

const QString &NameLists::SlotNumberText(int slot)
{
    // Made once and shared: every load and reset sets hundreds of names to their numbers.
    static const std::array<QString, SlotsInUse> numbers = [] {
        std::array<QString, SlotsInUse> n;
        for (int i = 0; i < SlotsInUse; ++i)
            n[size_t(i)] = QString::number(i);
        return n;
    }();
    return numbers[size_t(slot)];
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
        messages.ShowWarning(QStringLiteral("Could not find 'chemicals.txt', using numeric substitutes."));
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
        messages.ShowWarning(QStringLiteral("Could not find 'posenames.txt', using numeric substitutes."));
    else
        ReadListFile(path, PoseNames.data(), PoseCaptions.data(), ListEntries,
                     QStringLiteral("Error reading pose names"));
    for (int i = 0; i < SlotsInUse; ++i)
        if (PoseNames[size_t(i)].isEmpty())
            PoseNames[size_t(i)] = SlotNumberText(i);
}

void NameLists::LoadScriptList()
{
    SetScriptDefaults();
    const QString path = ListFilePath(ScriptsFile);
    if (!QFileInfo::exists(path)) {
        messages.ShowWarning(QStringLiteral("Could not find 'scriptnames.txt'--no autoscripts loaded"));
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
    ChemicalsChanged = false;
    return true;
}

bool NameLists::SavePoseList()
{
    if (!WriteListFile(PosesRead, PosesWritten, PoseNames.data(), PoseCaptions.data(), ListEntries,
                       QStringLiteral("Error saving pose names")))
        return false;
    PosesChanged = false;
    return true;
}

bool NameLists::SaveScriptList()
{
    if (!WriteListFile(ScriptsFile, ScriptsFile, ScriptNames.data(), ScriptMacros.data(), ScriptEntries,
                       QStringLiteral("Error saving script names")))
        return false;
    ScriptsChanged = false;
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
    const QString name = messages.prompt.InputBox(QStringLiteral("Name new Chemical"),
                                                 QStringLiteral("Enter a name for chemical") + n,
                                                 QStringLiteral("<un-named chemical>"));
    if (name.isEmpty())
        return false;
    const QString caption = messages.prompt.InputBox(QStringLiteral("Caption for new Chemical"),
                                                    QStringLiteral("Enter a caption for chemical") + n,
                                                    QStringLiteral("<no-caption>"));
    if (caption.isEmpty())
        return false;
    ChemicalNames[size_t(slot)] = name;
    ChemicalCaptions[size_t(slot)] = caption;
    ChemicalsChanged = true;
    return true;
}

bool NameLists::AddChemical(int &slot)
{
    slot = FirstFreeChemicalSlot();
    if (slot < 0) {
        messages.ShowError(QStringLiteral("No chemical slots left, delete un-used chemicals"));
        return false;
    }
    return AskNewChemical(slot);
}

bool NameLists::AddChemicalHere(int slot)
{
    if (slot <= 0 || slot >= SlotsInUse) {
        messages.ShowError(QStringLiteral("You cannot add over chemical 0"));
        return false;
    }
    const QString &name = ChemicalNames[size_t(slot)];
    if (NumericValue(name) == 0
        && messages.ShowMessage(QStringLiteral("Are you sure you wish to write over ") + Quoted(name), 35)
               != Prompt::Yes)
        return false;
    return AskNewChemical(slot);
}

bool NameLists::DeleteChemical(int slot)
{
    if (slot <= 0 || slot >= SlotsInUse) {
        messages.ShowError(QStringLiteral("You cannot delete chemical 0"));
        return false;
    }
    const QString name = ChemicalNames[size_t(slot)];
    if (IsFreeName(name)) {
        messages.ShowError(QStringLiteral("Chemical") + Text::Str(slot) + QStringLiteral(" is already deleted"));
        return false;
    }
    if (messages.ShowMessage(QStringLiteral("Are you sure you wish to delete ") + Quoted(name) + QLatin1Char('?'), 35)
        != Prompt::Yes)
        return false;
    ChemicalNames[size_t(slot)] = QString::number(slot);
    ChemicalCaptions[size_t(slot)].clear();
    ChemicalsChanged = true;
    return true;
}

bool NameLists::RenameChemical(int slot)
{
    if (slot <= 0 || slot >= SlotsInUse) {
        messages.ShowError(QStringLiteral("You cannot rename chemical 0"));
        return false;
    }
    const QString name = ChemicalNames[size_t(slot)];
    if (IsFreeName(name)) {
        messages.ShowError(QStringLiteral("Chemical") + Text::Str(slot)
                          + QStringLiteral(" is empty and cannot be renamed"));
        return false;
    }
    const QString answer = messages.prompt.InputBox(QStringLiteral("Rename Chemical"),
                                                   QStringLiteral("Rename Chemical ") + Quoted(name), name);
    if (answer.isEmpty())
        return false;
    ChemicalNames[size_t(slot)] = answer;
    ChemicalsChanged = true;
    return true;
}

bool NameLists::CaptionChemical(int slot)
{
    if (slot <= 0 || slot >= SlotsInUse) {
        messages.ShowError(QStringLiteral("You cannot edit the description for chemical 0"));
        return false;
    }
    if (IsFreeName(ChemicalNames[size_t(slot)])) {
        messages.ShowError(QStringLiteral("Chemical") + Text::Str(slot)
                          + QStringLiteral(" is empty and the caption cannot be edited"));
        return false;
    }
    const QString caption = ChemicalCaptions[size_t(slot)];
    const QString answer = messages.prompt.InputBox(QStringLiteral("Edit Chemical Caption"),
                                                   QStringLiteral("Edit Caption ") + Quoted(caption), caption);
    if (answer.isEmpty())
        return false;
    ChemicalCaptions[size_t(slot)] = answer;
    ChemicalsChanged = true;
    return true;
}

// --- pose commands -------------------------------------------------------------------------------

bool NameLists::DeletePose(int slot)
{
    if (slot < 0 || slot >= SlotsInUse)
        return false;
    const QString name = PoseNames[size_t(slot)];
    if (IsFreeName(name) || name == QLatin1String("0")) {
        messages.ShowError(QStringLiteral("Pose") + Text::Str(slot) + QStringLiteral(" is already deleted"));
        return false;
    }
    if (messages.ShowMessage(QStringLiteral("Are you sure you wish to delete ") + Quoted(name) + QLatin1Char('?'), 35)
        != Prompt::Yes)
        return false;
    PoseNames[size_t(slot)] = QString::number(slot);
    PoseCaptions[size_t(slot)].clear();
    PosesChanged = true;
    return true;
}

bool NameLists::RenamePose(int slot)
{
    if (slot < 0 || slot >= SlotsInUse)
        return false;
    const QString name = PoseNames[size_t(slot)];
    const QString answer = messages.prompt.InputBox(QStringLiteral("Rename Pose"),
                                                   QStringLiteral("Rename Pose ") + Quoted(name), name);
    if (answer.isEmpty())
        return false;
    PoseNames[size_t(slot)] = answer;
    PosesChanged = true;
    return true;
}

bool NameLists::CaptionPose(int slot)
{
    if (slot < 0 || slot >= SlotsInUse)
        return false;
    const QString name = PoseNames[size_t(slot)];
    const QString answer = messages.prompt.InputBox(QStringLiteral("Describe Pose"),
                                                   QStringLiteral("Describe Pose ") + Quoted(name),
                                                   PoseCaptions[size_t(slot)]);
    if (answer.isEmpty())
        return false;
    PoseCaptions[size_t(slot)] = answer;
    PosesChanged = true;
    return true;
}
