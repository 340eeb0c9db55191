// The mutation template file mutations.txt: 41 little-endian 32-bit numbers.
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"

#include <QDir>
#include <QtTest>

namespace {
QByteArray Le32(qint32 v)
{
    const quint32 u = quint32(v);
    const char b[4] = {char(u & 0xFF), char((u >> 8) & 0xFF), char((u >> 16) & 0xFF), char(u >> 24)};
    return QByteArray(b, 4);
}

QByteArray PresetBytes()
{
    QByteArray b;
    for (qint32 v : {27, 43, 59, 8, 26, 4, 104, 19, 8, 12, 0, 8, 12, 0})
        b += Le32(v);
    return b + QByteArray(27 * 4, '\0');
}
}

class TestTemplate : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<QTemporaryDir> dir;
    std::unique_ptr<Session> session;

    QString File() const { return dir->path() + QStringLiteral("/mutations.txt"); }
    MutationTemplate &Template() { return session->Template; }

private slots:
    void init()
    {
        prompt.Clear();
        dir.reset(new QTemporaryDir);
        session.reset(new Session(prompt));
        session->AppDirectory = dir->path();
    }

    void cleanup() { QVERIFY2(prompt.AllAnswered(), "a prompt that was expected never came"); }

    void firstStartWritesThePresetsQuietly()
    {
        Template().LoadDefaultTemplate();
        QVERIFY(prompt.shown.isEmpty());
        const QByteArray bytes = TestFiles::Read(File());
        QCOMPARE(bytes.size(), 164);
        QCOMPARE(bytes, PresetBytes());
    }

    void fileValuesReplaceThePresets()
    {
        QByteArray bytes = PresetBytes();
        bytes.replace(6 * 4, 4, Le32(100));
        bytes.replace(40 * 4, 4, Le32(-7));
        bytes += "behind the last number";
        QVERIFY(TestFiles::Write(File(), bytes));
        Template().LoadDefaultTemplate();
        QVERIFY(prompt.shown.isEmpty());
        QCOMPARE(Template().DefaultGeneCounts[6], 100);
        QCOMPARE(Template().DefaultGeneCounts[40], -7);
        QCOMPARE(Template().DefaultGeneCounts[0], 27);

        // The writer starts at the first byte and leaves the longer file's tail alone.
        Template().DefaultGeneCounts[1] = 0x01020304;
        QVERIFY(Template().SaveDefaultTemplate());
        const QByteArray now = TestFiles::Read(File());
        QCOMPARE(now.size(), bytes.size());
        QCOMPARE(now.mid(4, 4), QByteArray("\x04\x03\x02\x01", 4));
        QCOMPARE(now.mid(164), QByteArray("behind the last number"));
    }

    void aShortFileIsReportedAndWrittenAnew()
    {
        QVERIFY(TestFiles::Write(File(), Le32(5) + Le32(6) + QByteArray("\x07\x00", 2)));
        prompt.AnswerMessage(Prompt::Ok);
        Template().LoadDefaultTemplate();
        QCOMPARE(prompt.Last().text,
                 QStringLiteral("An error occurred loading an internal file. I shall now attempt to correct this."));
        QCOMPARE(prompt.Last().style, 16);
        // What was read stands, the presets fill the rest, and the file holds all of it.
        QCOMPARE(Template().DefaultGeneCounts[0], 5);
        QCOMPARE(Template().DefaultGeneCounts[1], 6);
        QCOMPARE(Template().DefaultGeneCounts[2], 59);
        QByteArray expected = PresetBytes();
        expected.replace(0, 8, Le32(5) + Le32(6));
        QCOMPARE(TestFiles::Read(File()), expected);
    }

    void anUnwritableFileGivesBothMessages()
    {
        QVERIFY(QDir(dir->path()).mkdir(QStringLiteral("mutations.txt")));
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        Template().LoadDefaultTemplate();
        const QStringList texts = prompt.MessageTexts();
        QCOMPARE(texts.size(), 2);
        QCOMPARE(texts[0],
                 QStringLiteral("An error occurred loading an internal file. I shall now attempt to correct this."));
        QVERIFY2(texts[1].startsWith(QStringLiteral("An error occured saving the default mutation values.\r\n"
                                                    "It is recommended you quit and restart the Helixbench.\n\r"
                                                    "Description: Error ID")),
                 qPrintable(texts[1]));
        QCOMPARE(Template().DefaultGeneCounts[6], 104);
    }
};

QTEST_GUILESS_MAIN(TestTemplate)
#include "test_template.moc"
