#include "core/BulkResets.h"

#include "base/FileFault.h"
#include "base/FileSteps.h"
#include "base/FileNames.h"
#include "base/Text.h"
#include "core/Gene.h"
#include "core/Session.h"

#include <QDir>

int FoldMutabilityAnswer(const QString &answer)
{
    if (answer.size() >= 4)
        return -1;
    const long long v = Text::RoundHalfEven(NameLists::NumericValue(answer)) % 256;
    // A negative answer ("-5") gets past the length test; it is folded the same way round,
    // so that no gene ends outside 0..255.
    return int(v < 0 ? v + 256 : v);
}

bool ResetMutabilityValues(Session &session)
{
    if (session.GeneCount == 0) {
        session.ShowInfo(QStringLiteral("No genes loaded"));
        return false;
    }
    const QString answer = session.prompt.InputBox(QStringLiteral("Reset Mutability Weightings"),
                                                   QStringLiteral("Enter a value (0 to 255) to reset all mutability weightings to"),
                                                   QStringLiteral("0"));
    if (answer.isEmpty())
        return false;
    const int v = FoldMutabilityAnswer(answer);
    if (v < 0) {
        session.ShowError(QStringLiteral("Invalid number entered. Range is 0 to 255."));
        return false;
    }
    if (session.ShowMessage(QStringLiteral("This will reset all gene mutability percentages to ") + QString::number(v)
                                + QStringLiteral(".") + Text::CRLF
                                + QStringLiteral("Are you sure you wish to perform this action?"),
                            35)
        != Prompt::Yes)
        return false;
    for (int i = 0; i < session.GeneCount; ++i)
        if (Gene *g = session.GeneAt(i))
            g->MutabilityWeighting = quint8(v);
    session.RefreshViews();
    return true;
}

namespace {
struct ListFiles
{
    const char *file;     // the list file the loader reads
    const char *factory;  // the factory list beside it
    const char *question; // what the question names
    const char *context;  // what a fault report says was being done
    void (NameLists::*load)();
};

const ListFiles &FilesOf(ResettableList list)
{
    static const ListFiles chemicals{"chemicals.txt", "chemicals.def", "chemical list",
                                     "Error resetting chemicals to defaults", &NameLists::LoadChemicalList};
    static const ListFiles poses{"posename.txt", "posename.def", "pose description list",
                                 "Error resetting pose descriptions to defaults", &NameLists::LoadPoseList};
    return list == ResettableList::Chemicals ? chemicals : poses;
}

} // namespace

bool ResetListToDefaults(Session &session, ResettableList list)
{
    const ListFiles &f = FilesOf(list);
    if (session.ShowMessage(QStringLiteral("This will delete any changes you have made.") + Text::CRLF
                                + QStringLiteral("Are you sure you wish to reset the ") + QLatin1String(f.question)
                                + QStringLiteral("?"),
                            35)
        != Prompt::Yes)
        return false;

    // The folder the list loaders read: the program's, never the process's working directory.
    const QString folder = session.AppDirectory.isEmpty() ? QDir::currentPath() : session.AppDirectory;
    // The list goes first, then the factory list is copied in its place; a failure of either
    // lets the other run and the list load all the same. Without a factory list the list is
    // gone, and the load falls back on its defaults with its own warning.
    const QString target = ResolveFileName(folder, QLatin1String(f.file));
    FileFault fault;
    FileSteps::Remove(target, fault);
    FileSteps::Copy(ResolveFileName(folder, QLatin1String(f.factory)), target, fault);
    if (fault.Failed())
        session.ShowFault(fault.Number, fault.Description,
                          QLatin1String(f.context) + Text::CRLF + QStringLiteral("Data may have been lost."));
    (session.Lists.*f.load)();
    return true;
}
