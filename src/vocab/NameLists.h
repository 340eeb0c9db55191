#pragma once
#include <QString>
#include <QVector>

class Session;

// One name list: entries of a name and a description, as the list files hold them.
struct NameList
{
    QVector<QString> Names;
    QVector<QString> Descriptions;
};

// The chemical, pose and script lists and their files.
class NameLists
{
public:
    explicit NameLists(Session &session) : session(session) {}

    NameList ChemicalList;
    NameList PoseList;
    NameList ScriptList;

    void LoadChemicalList();
    void LoadPoseList();
    void LoadScriptList();
    bool SaveChemicalList();
    bool SavePoseList();
    bool SaveScriptList();

private:
    Session &session;
};
