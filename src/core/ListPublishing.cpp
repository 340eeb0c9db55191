#include "core/ListPublishing.h"

#include "base/FileFault.h"
#include "base/FileSteps.h"
#include "base/FileNames.h"
#include "base/Text.h"
#include "core/Session.h"
#include "vocab/PublishedChemicals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using Text::CRLF;

namespace ListPublishing {

using namespace FileSteps;

namespace {

// Puts bytes in place of the file at path: written aside, then renamed over it. A file the
// user may not change stays as it is.
void Replace(const QString &path, const QByteArray &bytes, FileFault &fault)
{
    const QFileInfo info(path);
    if (info.exists() && (info.isDir() || !info.isWritable())) {
        Keep(fault, info.isDir() ? FileFault::AtPath(FileFault::AccessError, path)
                                 : FileFault::AtPath(FileFault::PermissionDenied, path));
        return;
    }
    FileFault failed;
    switch (SmallFiles::ReplaceFile(path, bytes, failed)) {
    case SmallFiles::Replaced::NotOpened: Keep(fault, Refused(path, FileFault::AccessError)); break;
    case SmallFiles::Replaced::NotWritten: Keep(fault, failed); break;
    case SmallFiles::Replaced::Done: break;
    }
}

} // namespace

bool InstallChemicalList(Session &session)
{
    if (session.ShowMessage(QStringLiteral("This will install the currently loaded chemical list") + CRLF
                                + QStringLiteral("into Arkenfold. Arkenfold's existing list will be lost. Are you sure?"),
                            35)
        != Prompt::Yes)
        return false;
    const QString value = session.ReadGameSetting(QStringLiteral("Main Directory"));
    if (value == Session::ErrorMark) {
        session.ShowError(QStringLiteral("Error reading registry key -- ensure Arkenfold") + CRLF
                          + QStringLiteral("is installed on this system."));
        return false;
    }
    const QString folder = Session::NormalisePath(value);
    // The game's files may be spelled in any case; a new file takes the spelling above.
    const QString backup = FileNames::ResolveFileName(folder, BackupFileName);
    const QString list = FileNames::ResolveFileName(folder, ListFileName);

    // The backup: the old backup goes, the game's list takes its place. A backup that isn't
    // there to delete counts as a failure too, so the first install of all asks.
    FileFault fault;
    Remove(backup, fault);
    Copy(list, backup, fault);
    if (fault.Failed()
        && session.ShowMessage(QStringLiteral("I could not create a backup file. Continue anyway?"), 35) != Prompt::Yes)
        return false;

    // The list replaces the game's own. As with the backup, a list that isn't there to be
    // replaced is reported, after the new one has been written.
    fault = FileFault();
    if (!QFileInfo::exists(list))
        Keep(fault, Missing(list));
    Replace(list, PublishedChemicals::AllChemicalsFile(session.Lists), fault);
    if (fault.Failed()) {
        session.ShowFault(fault.Number, fault.Description, QStringLiteral("Unable to install new chemicals file"));
        return false;
    }
    return true;
}

bool MakeSpeciesCaptionFile(Session &session)
{
    if (session.GeneCount == 0) {
        session.ShowInfo(QStringLiteral("No genome/caption file loaded."));
        return false;
    }
    QString name = session.CaptionStore.DefaultCaptionFileName();
    if (name.size() > 4)
        name.chop(4); // the extension
    if (session.ShowMessage(QStringLiteral("This will overwrite the default caption file for ") + QStringLiteral("species '")
                                + name + QStringLiteral("'.") + CRLF + QStringLiteral("Are you sure you wish ")
                                + QStringLiteral("to do this?"),
                            35)
        != Prompt::Yes)
        return false;
    session.CaptionStore.SaveDefaultCaptions();
    return true;
}

} // namespace ListPublishing
