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
const QString LoadFault = QStringLiteral("An error occurred loading an internal file. I shall now attempt to correct this.");
} // namespace

class TestTemplate : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<QTemporaryDir> dir;
    std::unique_ptr<Session> session;
    QString File() const { return dir->path() + QStringLiteral("/mutations.txt"); }

private slots:
    void init()
    {
        prompt.Clear();
        dir.reset(new QTemporaryDir);
        session.reset(new Session(prompt));
        session->AppDirectory = dir->path();
    }

    void cleanup() { QVERIFY(prompt.AllAnswered()); }

    void presetsAreWrittenQuietlyAndFileValuesReplaceThem()
    {
        MutationTemplate &t = session->Template;
        t.LoadDefaultTemplate();
        QVERIFY(prompt.shown.isEmpty());
        QCOMPARE(TestFiles::Read(File()), Presets);

        QByteArray bytes = Presets;
        bytes.replace(40 * 4, 4, QByteArray::fromHex("f9ffffff"));
        QVERIFY(TestFiles::Write(File(), bytes + "behind the last number"));
        t.LoadDefaultTemplate();
        QVERIFY(prompt.shown.isEmpty());
        QCOMPARE(t.DefaultGeneCounts[40], -7);
        QCOMPARE(t.DefaultGeneCounts[6], 104);

        // The writer starts at the first byte and leaves a longer file's tail alone.
        t.DefaultGeneCounts[1] = 0x01020304;
        QVERIFY(t.SaveDefaultTemplate());
        bytes.replace(4, 4, "\x04\x03\x02\x01");
        QCOMPARE(TestFiles::Read(File()), bytes + "behind the last number");
    }

    void aShortFileIsReportedAndWrittenAnew()
    {
        QVERIFY(TestFiles::Write(File(), QByteArray::fromHex("05000000 06000000 0700")));
        prompt.AnswerMessage(Prompt::Ok);
        session->Template.LoadDefaultTemplate();
        QCOMPARE(prompt.MessageTexts(), QStringList{LoadFault});
        QCOMPARE(prompt.Last().style, 16);
        // What was read stands, the presets fill the rest, and the file holds all of it.
        QCOMPARE(TestFiles::Read(File()), QByteArray::fromHex("05000000 06000000") + Presets.mid(8));
    }

    void anUnwritableFileGivesBothMessages()
    {
        QVERIFY(QDir(dir->path()).mkdir(QStringLiteral("mutations.txt")));
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        session->Template.LoadDefaultTemplate();
        const QStringList texts = prompt.MessageTexts();
        QCOMPARE(texts.size(), 2);
        QCOMPARE(texts[0], LoadFault);
        QVERIFY2(texts[1].startsWith(QStringLiteral("An error occured saving the default mutation values.\r\n"
                                                    "It is recommended you quit and restart the Helixbench.\n\r"
                                                    "Description: Error ID")),
                 qPrintable(texts[1]));
        QCOMPARE(session->Template.DefaultGeneCounts[6], 104);
    }
};

QTEST_GUILESS_MAIN(TestTemplate)
#include "test_template.moc"
