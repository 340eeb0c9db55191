#pragma once
#include <QString>
#include <array>

class Session;

// The chemical, pose and script name lists and their files. The last entry of each array
// is never shown or edited; it travels through the file as it was read.
class NameLists
{
public:
    static constexpr int ListEntries = 257;  // chemicals and poses: 0..255 in use
    static constexpr int ScriptEntries = 21; // scripts: 0..19 in use

    explicit NameLists(Session &session) : session(session) {}

    std::array<QString, ListEntries> ChemicalNames, ChemicalCaptions;
    std::array<QString, ListEntries> PoseNames, PoseCaptions;
    std::array<QString, ScriptEntries> ScriptNames, ScriptMacros, ScriptResults;

    void LoadChemicalList();
    void LoadPoseList();
    void LoadScriptList();
    bool SaveChemicalList();
    bool SavePoseList();
    bool SaveScriptList();

private:
    Session &session;
};
