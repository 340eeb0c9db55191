// Saves onto a disk that fills up partway through the save: the old file must stay whole, the
// user must hear of it once, and no temporary file may stay behind.
#include "core/Session.h"
#include "support/ShownText.h"
#include "support/TestEnv.h"

#include <QDir>
#include <QMap>
#include <QtTest>

#include <cerrno>
#include <cstring>
#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>

namespace {
enum class Saved { Genome, Captions, Poses, Scripts };

// Every file of a folder with its bytes.
QMap<QString, QByteArray> Contents(const QString &folder)
{
    QMap<QString, QByteArray> files;
    for (const QString &name : QDir(folder).entryList(QDir::Files | QDir::Hidden))
        files.insert(name, TestFiles::Read(folder + QLatin1Char('/') + name));
    return files;
}
} // namespace
Q_DECLARE_METATYPE(Saved)

class TestFullDisk : public QObject
{
    Q_OBJECT

    QTemporaryDir mountPoint; // the small filesystem, private to this process
    QString disk, folder;     // its root (where the filler goes) and the folder of one case
    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    std::unique_ptr<SettingsSandbox> sandbox;

    QString Path(const QString &name) const { return folder + QLatin1Char('/') + name; }

    // Fills the filesystem with a file at its root until at most `room` bytes are free, a whole
    // number of blocks; gives what is free then, or -1.
    qint64 Fill(qint64 room)
    {
        struct statvfs fs {};
        const QByteArray root = QFile::encodeName(disk);
        if (statvfs(root.constData(), &fs) != 0)
            return -1;
        const qint64 block = qint64(fs.f_bsize), fill = qint64(fs.f_bavail) * block - room / block * block;
        QFile filler(disk + QStringLiteral("/filler"));
        if (fill < 0 || !filler.open(QIODevice::WriteOnly) || filler.write(QByteArray(fill, '\xAA')) != fill)
            return -1;
        filler.close();
        return statvfs(root.constData(), &fs) == 0 ? qint64(fs.f_bavail) * block : -1;
    }

    // Runs the save as its command does; a failing one is expected to tell the user.
    void Save(Saved what, bool failing)
    {
        NameLists &lists = session->Lists;
        prompt.Clear();
        if (what == Saved::Genome)
            prompt.AnswerSave(Path("pet.gen"));
        if (failing)
            prompt.AnswerMessage(Prompt::Ok);
        switch (what) {
        case Saved::Genome: session->SaveGenomeAs(); break;
        case Saved::Captions: session->CaptionStore.SaveUniqueCaptions(Path("pet.gen")); break;
        case Saved::Poses: lists.SavePoseList(); break;
        case Saved::Scripts: lists.SaveScriptList(); break;
        }
    }

private slots:
    void initTestCase()
    {
        // A mount namespace of our own: the small filesystem is seen by this process alone and
        // goes with it, even if the process dies.
        disk = mountPoint.path();
        if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0
            || mount("tmpfs", QFile::encodeName(disk).constData(), "tmpfs", 0, "size=128k") != 0)
            QSKIP(qPrintable(QStringLiteral("cannot mount a small filesystem here (root or CAP_SYS_ADMIN needed): ")
                             + QString::fromLocal8Bit(strerror(errno))));
    }

    void cleanupTestCase() { umount2(QFile::encodeName(disk).constData(), MNT_DETACH); }

    // A genome, notes and lists long enough that about half of each file finds room.
    void init()
    {
        folder = disk + QStringLiteral("/case");
        QVERIFY(QDir().mkpath(folder));
        FreshSession(sandbox, prompt, session);
        session->AppDirectory = session->LastGenomeDirectory = folder;
        session->NewGenome();
        session->CaptionStore.SetAnnotation(2, 1, 0, QString(9000, QLatin1Char('n')));
        NameLists &lists = session->Lists;
        lists.PoseCaptions.fill(QStringLiteral("a pose described at some length"));
        lists.ScriptMacros.fill(QString(600, QLatin1Char('m')));
    }

    void cleanup()
    {
        session.reset();
        QDir::setCurrent(QDir::tempPath());
        QFile::remove(disk + QStringLiteral("/filler"));
        QVERIFY(QDir(folder).removeRecursively());
        QVERIFY(prompt.AllAnswered());
    }

    void failedSaveKeepsTheOldFile_data()
    {
        // The message names the file at %1. A save of the genome saves the chemical and pose
        // lists too, and a save of a list clears its changed flag. (The chemical list and the
        // mutation template write as the pose list does; their messages are their own tests'.)
        QTest::addColumn<Saved>("what");
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("style");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("flags"); // chemicals, poses, scripts changed, after the save that fits
        const QString fault = QStringLiteral("\n\rDescription: Error ID 61 (Disk full: %1)");
        QTest::newRow("genome") << Saved::Genome << "pet.gen" << 64 << "Error writing file:\r\n%1\r\nNo space left on device" << "001";
        QTest::newRow("captions") << Saved::Captions << "pet.gno" << 16 << "Error saving caption file %1\n\rDescription: Error ID 61 (Disk full)" << "111";
        QTest::newRow("poses") << Saved::Poses << "PoseName.txt" << 16 << "Error saving pose names" + fault << "101";
        QTest::newRow("scripts") << Saved::Scripts << "scriptnames.txt" << 16 << "Error saving script names" + fault << "110";
    }

    void failedSaveKeepsTheOldFile()
    {
        QFETCH(Saved, what);
        QFETCH(QString, file);
        QFETCH(int, style);
        QFETCH(QString, message);
        NameLists &lists = session->Lists;
        auto flags = [&lists] {
            return QStringLiteral("%1%2%3").arg(lists.ChemicalsChanged).arg(lists.PosesChanged).arg(lists.ScriptsChanged);
        };

        // A first version fits.
        lists.ChemicalsChanged = lists.PosesChanged = lists.ScriptsChanged = true;
        Save(what, false);
        QCOMPARE(prompt.MessageTexts(), QStringList());
        QTEST(flags(), "flags");
        const QMap<QString, QByteArray> before = Contents(folder);
        QVERIFY(before.contains(file));

        // The next one finds room for about half of itself.
        const qint64 room = Fill(before[file].size() / 2);
        QVERIFY(room >= 0 && room < before[file].size());
        lists.ChemicalsChanged = lists.PosesChanged = lists.ScriptsChanged = true;
        Save(what, true);
        QCOMPARE(Contents(folder), before); // the old file whole, and nothing left beside it
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", style, message.arg(Path(file))));
        QCOMPARE(prompt.MessageTexts().size(), 1);
        QCOMPARE(flags(), QStringLiteral("111"));
    }
};

QTEST_GUILESS_MAIN(TestFullDisk)
#include "test_full_disk.moc"
