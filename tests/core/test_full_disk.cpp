// Saves onto a disk that fills up partway through the save: the old file must stay whole, the
// user must hear of it once, no temporary file may stay behind, and once there is room again
// the same save must go through.
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
enum class Saved { Genome, Captions, Chemicals, Poses, Scripts, Template };

// Every file of a folder with its bytes.
QMap<QString, QByteArray> Contents(const QString &folder)
{
    QMap<QString, QByteArray> files;
    for (const QString &name : QDir(folder).entryList(QDir::Files | QDir::Hidden))
        files.insert(name, TestFiles::Read(folder + QLatin1Char('/') + name));
    return files;
}

template <size_t N>
QByteArray ListFile(const std::array<QString, N> &first, const std::array<QString, N> &second)
{
    return NameLists::EncodeListFile(first.data(), second.data(), int(N));
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
    NameLists &Lists() { return session->Lists; }

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
        prompt.Clear();
        if (what == Saved::Genome)
            prompt.AnswerSave(Path("pet.gen"));
        if (failing)
            prompt.AnswerMessage(Prompt::Ok);
        switch (what) {
        case Saved::Genome: session->SaveGenomeAs(); break;
        case Saved::Captions: session->CaptionStore.SaveUniqueCaptions(Path("pet.gen")); break;
        case Saved::Chemicals: Lists().SaveChemicalList(); break;
        case Saved::Poses: Lists().SavePoseList(); break;
        case Saved::Scripts: Lists().SaveScriptList(); break;
        case Saved::Template: session->Template.SaveDefaultTemplate(); break;
        }
    }

    // Changes what the next save writes, as the user's edits would, and gives its bytes.
    QByteArray Change(Saved what)
    {
        NameLists &lists = Lists();
        switch (what) {
        case Saved::Genome:
            session->AbandonGenome();
            session->NewGenome();
            session->CreateGene(1, 2, false);
            session->EncodeGenome();
            return QByteArray(reinterpret_cast<const char *>(session->GenomeImage.Bytes.data()), GenomeImage::Size);
        case Saved::Captions:
            session->CaptionStore.SetCaption(2, 1, 0, QStringLiteral("Renamed header"));
            session->CaptionStore.SetAnnotation(2, 1, 0, QString(9000, QLatin1Char('n')));
            return session->CaptionStore.FileBytes();
        case Saved::Chemicals:
            lists.ChemicalCaptions.fill(QStringLiteral("a chemical described at some length"));
            lists.ChemicalsChanged = true;
            return ListFile(lists.ChemicalNames, lists.ChemicalCaptions);
        case Saved::Poses:
            lists.PoseCaptions.fill(QStringLiteral("a pose described at some length"));
            lists.PosesChanged = true;
            return ListFile(lists.PoseNames, lists.PoseCaptions);
        case Saved::Scripts:
            lists.ScriptMacros.fill(QString(600, QLatin1Char('m')));
            lists.ScriptsChanged = true;
            return ListFile(lists.ScriptNames, lists.ScriptMacros);
        case Saved::Template:
            session->Template.DefaultGeneCounts[3] = 1000;
            return session->Template.Encode();
        }
        return {};
    }

    // What the session shows of the save: the genome's name, or a list's changed flag.
    QString State(Saved what) const
    {
        const NameLists &l = session->Lists;
        const bool changed[] = {false, false, l.ChemicalsChanged, l.PosesChanged, l.ScriptsChanged, false};
        if (what == Saved::Genome)
            return session->StatusPanel[1];
        return changed[int(what)] ? "changed" : (what == Saved::Captions || what == Saved::Template ? "" : "saved");
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

    void init()
    {
        folder = disk + QStringLiteral("/case");
        QVERIFY(QDir().mkpath(folder));
        FreshSession(sandbox, prompt, session);
        session->AppDirectory = session->LastGenomeDirectory = folder;
        session->NewGenome();
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
        // The message names the file at %1; the state after the second save, its name's end.
        QTest::addColumn<Saved>("what");
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("style");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("saved");
        const QString fault = QStringLiteral("\n\rDescription: Error ID 61 (Disk full: %1)");
        QTest::newRow("genome") << Saved::Genome << "pet.gen" << 64 << "Error writing file:\r\n%1\r\nNo space left on device" << "...%1";
        QTest::newRow("captions") << Saved::Captions << "pet.gno" << 16 << "Error saving caption file %1\n\rDescription: Error ID 61 (Disk full)" << "";
        QTest::newRow("chemicals") << Saved::Chemicals << "Chemicals.txt" << 16 << "Error saving chemical names" + fault << "saved";
        QTest::newRow("poses") << Saved::Poses << "PoseName.txt" << 16 << "Error saving pose names" + fault << "saved";
        QTest::newRow("scripts") << Saved::Scripts << "scriptnames.txt" << 16 << "Error saving script names" + fault << "saved";
        QTest::newRow("template") << Saved::Template << "mutations.txt" << 16
                                  << "An error occured saving the default mutation values.\r\nIt is recommended you quit and restart the Helixbench." + fault << "";
    }

    void failedSaveKeepsTheOldFile()
    {
        QFETCH(Saved, what);
        QFETCH(QString, file);
        QFETCH(int, style);
        QFETCH(QString, message);

        // A first version fits.
        Save(what, false);
        QCOMPARE(prompt.MessageTexts(), QStringList());
        const QMap<QString, QByteArray> before = Contents(folder);
        QVERIFY(before.contains(file));

        // The next one finds room for about half of itself.
        const QByteArray next = Change(what);
        QVERIFY(next != before[file]);
        const QString state = State(what);
        const qint64 room = Fill(next.size() / 2);
        QVERIFY(room >= 0 && room < next.size());

        Save(what, true);
        QCOMPARE(Contents(folder), before); // the old file whole, and nothing left beside it
        QCOMPARE(prompt.MessageTexts(), QStringList(message.arg(Path(file))));
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", style, message.arg(Path(file))));
        QCOMPARE(State(what), state);

        // With room again, the same save goes through.
        QVERIFY(QFile::remove(disk + QStringLiteral("/filler")));
        Save(what, false);
        QCOMPARE(prompt.MessageTexts(), QStringList());
        QCOMPARE(TestFiles::Read(Path(file)), next);
        QCOMPARE(Contents(folder).keys(), before.keys());
        QTEST(State(what).replace(Path(file).right(20), "%1"), "saved");
    }
};

QTEST_GUILESS_MAIN(TestFullDisk)
#include "test_full_disk.moc"
