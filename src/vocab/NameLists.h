#pragma once
#include "base/FileFault.h"
#include "base/Messages.h"

#include <QByteArray>
#include <QString>
#include <array>


// The chemical, pose and script name lists and their files. The last entry of each array
// is never shown or edited; it travels through the file as it was read.
//
// A chemical or pose slot has no flag of its own: a free slot is one whose name begins with
// a number above 0 (its own number "17", but also "5HT"). Chemical 0 stands for no chemical
// and is protected; pose 0 is a slot like any other.
class NameLists
{
public:
    static constexpr int ListEntries = 257;  // chemicals and poses: 0..255 in use
    static constexpr int ScriptEntries = 21; // scripts: 0..19 in use
    static constexpr int SlotsInUse = 256;
    static constexpr int ScriptsInUse = 20;

    // The lists report through messages; their files lie in appDirectory (the current
    // directory when it is empty).
    NameLists(UserMessages &messages, const QString &appDirectory) : messages(messages), appDirectory(appDirectory) {}

    // Set by every command that stores into a list; cleared when the list is saved.
    bool ChemicalsChanged = false, PosesChanged = false, ScriptsChanged = false;

    std::array<QString, ListEntries> ChemicalNames, ChemicalCaptions;
    std::array<QString, ListEntries> PoseNames, PoseCaptions;
    std::array<QString, ScriptEntries> ScriptNames, ScriptMacros, ScriptResults;

    // --- files -------------------------------------------------------------------------
    // Each fills its list with the defaults, then reads its file from the program's folder.
    void LoadChemicalList();
    void LoadPoseList();
    void LoadScriptList();
    // Each writes its list; on success it clears the list's changed flag.
    bool SaveChemicalList();
    bool SavePoseList();
    bool SaveScriptList();

    // The defaults alone, as the loaders start from them.
    void SetChemicalDefaults();
    void SetPoseDefaults();
    void SetScriptDefaults();
    // A free slot's name: its number in plain decimal (slot 0 to 255).
    static const QString &SlotNumberText(int slot);

    // The bytes of a list file: every entry of first, then every entry of second, each a
    // 16-bit little-endian byte length and that many single-byte characters. A text longer
    // than the length field can hold is cut at 65535 bytes.
    static QByteArray EncodeListFile(const QString *first, const QString *second, int entries);
    // Reads entries from the front of bytes into first, then second, entry by entry; stops
    // after the last one and ignores what follows. Gives the number of entries read (up to
    // 2 x entries); fewer means the bytes ended inside the list, and the entries read stand.
    static int DecodeListFile(const QByteArray &bytes, QString *first, QString *second, int entries);

    // --- slots -----------------------------------------------------------------------------
    // The value of the decimal number a text begins with, blanks skipped; 0 if none.
    static double NumericValue(const QString &text);
    // A slot whose name begins with a number above 0 is free.
    static bool IsFreeName(const QString &name) { return NumericValue(name) > 0; }
    // The text of a chemical in a list: the name as it stands; an empty name becomes the
    // number, or "<nothing>" for chemical 0, and that text is written back into the name.
    static QString ChemicalListText(int number, QString &name);

    // Free slots as the count lines see them: chemicals 1..255 with an empty or free name,
    // poses 0..255 with a free name.
    int FreeChemicalSlots() const;
    int FreePoseSlots() const;
    QString ChemicalCountText() const;
    QString PoseCountText() const;
    // The first chemical slot from 1 to 255 with a free name, or -1.
    int FirstFreeChemicalSlot() const;

    // --- commands --------------------------------------------------------------------------
    // The chemical and pose commands on a slot (0..255) with their refusals, questions and
    // input boxes. Each gives true when it stored something, and then has set the list's
    // changed flag; the caller rewrites the row and the count line.
    // AddChemical picks the slot itself and gives it back in slot.
    bool AddChemical(int &slot);
    bool AddChemicalHere(int slot);
    bool DeleteChemical(int slot);
    bool RenameChemical(int slot);
    bool CaptionChemical(int slot);
    bool DeletePose(int slot);
    bool RenamePose(int slot);
    bool CaptionPose(int slot);

private:
    // Asks for the name and caption of a new chemical and stores both, or nothing.
    bool AskNewChemical(int slot);
    // Reads a list file; false after a fault (reported with faultContext).
    bool ReadListFile(const QString &path, QString *first, QString *second, int entries,
                      const QString &faultContext);
    // Writes a list file over the first bytes of an existing one (an older, longer file keeps
    // its tail): the file found under the read spelling, or a new one under the written
    // spelling. False after a fault (reported with faultContext).
    bool WriteListFile(const QString &readSpelling, const QString &writeSpelling, const QString *first,
                       const QString *second, int entries, const QString &faultContext);
    // Makes the program's folder the current one and gives the path of a file in it.
    QString ListFilePath(const QString &name) const;

    UserMessages &messages;
    const QString &appDirectory;
};
