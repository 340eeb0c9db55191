// The link to the running game, end to end over the session bus, with the stand-in game
// on the other side logging every transaction it receives.
#include "LinkTestKit.h"
#include "core/Gene.h"
#include "link/MacroLink.h"

using namespace LinkTestKit;

namespace {
const QString Topic = QStringLiteral("TEST_LINK.EXE");
const QString NoGame = QStringLiteral("Cannot contact Arkenfold application");
QByteArray Bytes(const Session &s) { return QByteArray(reinterpret_cast<const char *>(s.GenomeImage.Bytes.data()), GenomeImage::Size); }
} // namespace

class TestLink : public QObject
{
    Q_OBJECT

    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Standin> game;
    ScriptedPrompt prompt;
    std::unique_ptr<Bench> bench;

    ExportTab &tab() { return *bench->tab; }
    Session &session() { return *bench->session; }
    QString Status() { return tab().InjectStatusLabel->text(); }
    QString Result() { return tab().ScriptListView->topLevelItem(0)->text(2); }
    // The species gene, then genes of the kinds in table order.
    void MakeGenome(int genes)
    {
        session().NewGenome();
        for (int i = 1; i < genes; ++i) {
            const GeneKindInfo &kind = GeneKinds::At(i % GeneKinds::Count);
            QVERIFY(session().CreateGene(kind.type, kind.subType, false));
            session().GeneAt(i)->ID = session().GeneAt(i)->Mutability = quint8(i);
        }
    }
    void AddScript(const QString &macro)
    {
        prompt.AnswerInput(QStringLiteral("script")).AnswerInput(macro);
        tab().AddAutoScriptCommand->click();
        tab().ScriptListView->topLevelItem(0)->setSelected(true);
    }

private slots:
    void initTestCase() { QVERIFY2(QDBusConnection::sessionBus().isConnected(), "run the tests under dbus-run-session"); }

    void init()
    {
        sandbox.reset(new SettingsSandbox);
        game.reset(new Standin(sandbox->path()));
        prompt.Clear();
        bench.reset(new Bench(prompt));
    }

    void cleanup()
    {
        QVERIFY2(prompt.AllAnswered(), "an expected prompt was not shown");
        QVERIFY(!tab().Link().Transport().IsOpen());
        bench.reset();
        game.reset();
    }

    void anEggNeedsTwentyGenesAndArrivesWhole()
    {
        MakeGenome(19);
        QVERIFY(game->Start());
        prompt.AnswerMessage(Prompt::Ok);
        tab().ExportMeCommand->click();
        QCOMPARE(prompt.Last().text, QStringLiteral("Not enough genes for viable life form, \r\n20 genes required"));
        QVERIFY(session().CreateGene(1, 3, false));
        tab().ExportMeCommand->click();
        QCOMPARE(Status(), QStringLiteral("Operation Complete (20 genes injected)"));
        game->WaitForTerminates(1);
        QCOMPARE(game->Column(0), (QStringList{"Initiate", "Execute", "Terminate"})); // the refused attempt sent nothing
        QCOMPARE(game->Log()[1], (QStringList{"Execute", Topic, "",
                                      "inst,sys: wtop,new: simp eggs 8 0 90 0,sys: camt,setv clas 33882624,setv attr 195,"
                                      "anim [0123],new: gene tokn wisp 0 obv0,setv obv1 0,tick 2400,mvto 4964 735,slim,"
                                      "setv grav 1,endm",
                                      "ok", "egg: decoded 20 genes, 36001 bytes"}));

        // wisp.gen is the bench's genome as a save writes it, and decodes gene for gene.
        const QByteArray wisp = TestFiles::Read(game->Genetics() + QStringLiteral("/wisp.gen"));
        QCOMPARE(wisp, Bytes(session()));
        ScriptedPrompt quiet;
        Session reader(quiet);
        std::copy(wisp.cbegin(), wisp.cend(), reinterpret_cast<char *>(reader.GenomeImage.Bytes.data()));
        QVERIFY(reader.DecodeGenome());
        reader.EncodeGenome();
        QCOMPARE(reader.GeneCount, 20);
        QCOMPARE(Bytes(reader), wisp);
    }

    void eggsTakePositionVarietySexAndParent()
    {
        MakeGenome(25);
        QVERIFY(game->Start());
        for (int i = 0; i < 6; ++i)
            tab().ExportMeCommand->click();
        tab().EggColourCombo->setCurrentIndex(16);
        tab().SexCombo->setCurrentIndex(2);
        tab().VirginBirthCheck->click();
        // The parent's file is only looked for, its moniker taken as typed, blanks and all; a
        // refused egg takes no position.
        tab().ParentMoniker->setText(QStringLiteral(" ADAM "));
        prompt.AnswerMessage(Prompt::Ok);
        tab().ExportMeCommand->click();
        QCOMPARE(prompt.Last().text, QStringLiteral("V-DNA for parent with moniker [ ADAM ] \r\ndoes not exist. Cannot continue."));
        QVERIFY(TestFiles::Write(game->Genetics() + QStringLiteral("/ ADAM .gen"), "x"));
        tab().ExportMeCommand->click();
        game->WaitForTerminates(7);
        const QStringList macros = game->Column(3).filter(QStringLiteral("inst,")); // what Execute carried
        QStringList positions;
        for (const QString &m : macros)
            positions << m.section(QStringLiteral("mvto "), 1).section(QLatin1Char(' '), 0, 0);
        QCOMPARE(positions, (QStringList{"4964", "5028", "5092", "5156", "5220", "4900", "4964"}));
        QVERIFY2(macros[6].startsWith(QStringLiteral("inst,sys: wtop,new: simp eggs 8 128 90 0,")), qPrintable(macros[6]));
        QVERIFY2(macros[6].contains(QStringLiteral(",new: gene tokn wisp tokn  ADAM  obv0,setv obv1 2,tick")), qPrintable(macros[6]));
        QCOMPARE(Status(), QStringLiteral("Operation Complete (25 genes injected)"));
    }

    void withoutTheGameEachCommandSaysSoOnce()
    {
        MakeGenome(20);
        AddScript(QStringLiteral("dde: getb cnam"));
        auto layEggIn = [&](const QString &folder) {
            if (!folder.isEmpty())
                sandbox->SetGameValue("Kelmoth Technology", "Arkenfold 2", "1.0", "Genetics Directory", sandbox->path() + folder);
            prompt.AnswerMessage(Prompt::Ok);
            tab().ExportMeCommand->click();
        };
        // The game's folder: not set, a leftover wisp.gen that cannot be deleted, not there.
        layEggIn({});
        QVERIFY(QDir().mkpath(sandbox->path() + QStringLiteral("/Stuck/wisp.gen/x")));
        layEggIn(QStringLiteral("/Stuck"));
        layEggIn(QStringLiteral("/Missing"));
        QCOMPARE(Status(), QStringLiteral("Idle"));

        QVERIFY(QDir().mkpath(sandbox->path() + QStringLiteral("/G")));
        session().MacroResult = QStringLiteral("from before");
        layEggIn(QStringLiteral("/G"));
        QCOMPARE(Status(), QStringLiteral("Disconnected"));
        QCOMPARE(session().MacroResult, QString());
        QCOMPARE(session().LayEggOffset, 0); // moves only when a macro is about to go out
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        tab().RemoveSelectedMelkCommand->click();
        tab().UpdateScriptCommand->click();
        tab().TestScriptCommand->click();
        QCOMPARE(prompt.MessageTexts(),
                 (QStringList{"Error reading registry key -- ensure Arkenfold\r\nis installed on this system.",
                              Fault("Error identifying location of Arkenfold on this computer", 75,
                                    "Path/File access error: " + sandbox->path() + "/Stuck/wisp.gen"),
                              Fault("Error saving temporary genome 'wisp.gen'", 76, "Path not found: " + sandbox->path() + "/Missing/"),
                              NoGame, NoGame, NoGame, NoGame}));
        QCOMPARE(Result(), QStringLiteral("Fault: Error initialising DDE link"));
    }

    void repliesLandInTheRowOrInAMessage()
    {
        QVERIFY(game->Start({QStringLiteral("--reply"), QStringLiteral("Wisp\r\nline 2")}));
        AddScript(QStringLiteral("dde: getb cnam"));
        session().ScriptsChanged = false;
        tab().UpdateScriptCommand->click();
        QCOMPARE(Result(), QStringLiteral("Wisp\r\nline 2"));
        QCOMPARE(Status(), QStringLiteral("Operation complete"));
        QVERIFY(!session().ScriptsChanged);
        tab().TestScriptText->setText(QStringLiteral("dde: getb cnam"));
        prompt.AnswerMessage(Prompt::Ok);
        tab().TestScriptCommand->click();
        QCOMPARE(prompt.Last().text + QString::number(prompt.Last().style),
                 QStringLiteral("Results of 'dde: getb cnam' were 'Wisp\r\nline 2'64"));
        game->WaitForTerminates(2);
        // Initiate Poke Request Terminate, twice: the link holds no item until the first poke
        // of the run, and "Macro" from then on.
        QCOMPARE(game->Column(2), (QStringList{"", "", "Macro", "", "", "Macro", "Macro", ""}));

        // An empty reply is a success, and an empty one-shot goes out as it is.
        QVERIFY(game->Start());
        tab().ScriptListView->topLevelItem(0)->setSelected(true);
        tab().UpdateScriptCommand->click();
        QCOMPARE(Result() + Status(), QStringLiteral("Operation complete"));
        tab().TestScriptText->clear();
        prompt.AnswerMessage(Prompt::Ok);
        tab().TestScriptCommand->click();
        QCOMPARE(prompt.Last().text, QStringLiteral("Results of '' were ''"));
    }

    void aMisbehavingGameEndsInItsFault_data()
    {
        QTest::addColumn<QString>("told");
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("shown");   // the message box, or the row's result for "script"
        QTest::addColumn<QString>("methods"); // what reached the game, in order
        QTest::newRow("execute refused") << "--reject=Execute" << "melk"
            << Fault("Error injecting macro", 285, "The game refused the Execute transaction") << "Initiate Execute Terminate";
        QTest::newRow("open refused") << "--reject=Initiate" << "melk"
            << Fault("Error making DDE link with Arkenfold", 285, "The game refused the Initiate transaction") << "Initiate";
        QTest::newRow("poke refused, no request") << "--reject=Poke" << "script"
            << "Fault: 285 (The game refused the Poke transaction)" << "Initiate Poke Terminate";
        QTest::newRow("one-shot asks after a failed poke, shows the last failure") << "--reject=Poke,Request" << "oneshot"
            << Fault("Error sending DDE command", 285, "The game refused the Request transaction") << "Initiate Poke Request Terminate";
        // A time-out's description is the bus's own words: only its beginning is fixed.
        QTest::newRow("execute hangs") << "--hang=Execute" << "melk"
            << "Error injecting macro\n\rDescription: Error ID 286 (" << "Initiate Execute Terminate";
    }

    void aMisbehavingGameEndsInItsFault()
    {
        QFETCH(QString, told);
        QFETCH(QString, command);
        QFETCH(QString, shown);
        QFETCH(QString, methods);
        tab().Link().Transport().SetCallTimeout(2000); // the product leaves the bound to the bus
        QVERIFY(game->Start({told}));
        if (command == QLatin1String("script")) {
            AddScript(QStringLiteral("dde: getb cnam"));
            tab().UpdateScriptCommand->click(); // a run shows no box
        } else {
            prompt.AnswerMessage(Prompt::Ok);
            (command == QLatin1String("melk") ? tab().RemoveSelectedMelkCommand : tab().TestScriptCommand)->click();
        }
        QCOMPARE(prompt.MessageTexts().size(), command == QLatin1String("script") ? 0 : 1);
        const QString actual = command == QLatin1String("script") ? Result() : prompt.Last().text;
        QVERIFY2(shown.endsWith(QLatin1Char('(')) ? actual.startsWith(shown) : actual == shown, qPrintable(actual));
        QCOMPARE(Status(), methods == QLatin1String("Initiate") ? QStringLiteral("Disconnected") : QStringLiteral("Error during macro operation"));
        game->WaitForTerminates(methods.count(QStringLiteral("Terminate")));
        QCOMPARE(game->Column(0).join(QLatin1Char(' ')), methods);
    }
};

QTEST_MAIN(TestLink)
#include "test_link.moc"
