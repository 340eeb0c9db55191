// The mutation template file mutations.txt: 41 little-endian 32-bit numbers.
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"

#include <QDir>
#include <QtTest>

namespace {
// 27, 43, 59, 8, 26, 4, 104, 19, 8, 12, 0, 8, 12, 0, then 27 zeros: 164 bytes.
const QByteArray Presets = QByteArray::fromHex("1b000000 2b000000 3b000000 08000000 1a000000 04000000 68000000"
                                               "13000000 08000000 0c000000 00000000 08000000 0c000000 00000000")
    + QByteArray(27 * 4, '\0');
} // namespace

class TestTemplate : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    QTemporaryDir dir;
    Session session{prompt};
    QString File() const { return dir.path() + QStringLiteral("/mutations.txt"); }

private slots:
    // The presets are written quietly (any message would be an unexpected prompt), values read
    // replace them, and faulty files are reported and mended.
    void templateFile()
    {
        session.AppDirectory = dir.path();
        MutationTemplate &t = session.Template;
        t.LoadDefaultTemplate();
        QCOMPARE(TestFiles::Read(File()), Presets);

        QByteArray bytes = Presets;
        bytes.replace(40 * 4, 4, QByteArray::fromHex("f9ffffff"));
        QVERIFY(TestFiles::Write(File(), bytes + "behind the last number"));
        t.LoadDefaultTemplate();
        // Saved over a longer file: the values read (the -7 too) from the first byte, the tail left alone.
        QVERIFY(QFile::remove(File()) && TestFiles::Write(File(), QByteArray(200, 'z')));
        QVERIFY(t.SaveDefaultTemplate());
        QCOMPARE(TestFiles::Read(File()), bytes + QByteArray(36, 'z'));

        // A short file: what was read stands, the values in hand fill the rest, and the file holds all.
        QVERIFY(TestFiles::Write(File(), QByteArray::fromHex("05000000 06000000 0700")));
        prompt.AnswerMessage(Prompt::Ok);
        t.LoadDefaultTemplate();
        const QString loadFault = QStringLiteral("An error occurred loading an internal file. I shall now attempt to correct this.");
        QCOMPARE(prompt.Last().text + QString::number(prompt.Last().style), loadFault + "16");
        QCOMPARE(TestFiles::Read(File()), QByteArray::fromHex("05000000 06000000") + bytes.mid(8));

        // A folder in the file's place: the load fault, then the save fault; the values stand.
        QVERIFY(QFile::remove(File()) && QDir(dir.path()).mkdir(QStringLiteral("mutations.txt")));
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        t.LoadDefaultTemplate();
        QCOMPARE(prompt.shown[1].text, loadFault);
        QVERIFY(prompt.Last().text.startsWith(QStringLiteral("An error occured saving the default mutation values.\r\n"
                                                             "It is recommended you quit and restart the Helixbench.\n\r"
                                                             "Description: Error ID")));
        QCOMPARE(t.DefaultGeneCounts[6], 104);
        QVERIFY(prompt.AllAnswered());
    }
};

QTEST_GUILESS_MAIN(TestTemplate)
#include "test_template.moc"
