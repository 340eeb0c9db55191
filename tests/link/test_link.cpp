// The Export tab: what start-up puts into its controls, the Scriptorium's list commands (which
// find their slots by name), and the link to the running game, end to end over the session bus,
// with the stand-in game on the other side logging every transaction it receives.
#include "core/Gene.h"
#include "core/Session.h"
#include "link/ExportTab.h"
#include "link/MacroLink.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"
#include "views/HelixbenchForm.h"

#include <QtDBus>
#include <QtTest>
#include <QtWidgets>

namespace {

// The stand-in game. Start() returns once it owns its bus name; Stop() once it has let go.
class Standin
{
public:
    explicit Standin(const QString &folder) : folder(folder) {}
    ~Standin() { Stop(); }
    QString Genetics() const { return folder + QStringLiteral("/Genetics"); }

    bool Start(const QStringList &extra = {})
    {
        Stop();
        QFile::remove(LogFile());
        process.reset(new QProcess);
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->start(QCoreApplication::applicationDirPath() + QStringLiteral("/habitat-standin"),
                       QStringList{"--log", LogFile(), "--genetics", Genetics(), "--settings-dir", folder + "/system"} + extra);
        while (process->waitForReadyRead(10000) && !process->canReadLine()) {}
        return process->readLine().trimmed() == "ready";
    }

    void Stop()
    {
        if (!process)
            return;
        process->kill();
        process->waitForFinished(10000);
        process.reset();
        QTRY_VERIFY_WITH_TIMEOUT(!QDBusConnection::sessionBus().interface()->isServiceRegistered("org.arkenfold.Habitat").value(), 10000);
    }

    // One field of every transaction in the log, e.g. 0 for the methods in order. The fields:
    // method, topic, item, data, outcome (and the game's note).
    QStringList Column(int field) const
    {
        QStringList values;
        for (const QByteArray &line : TestFiles::Read(LogFile()).split('\n'))
            if (!line.isEmpty())
                values << QJsonDocument::fromJson(line).array().toVariantList().value(field).toString();
        return values;
    }
    // Waits for the closes: they are sent without waiting for the game.
    void WaitForTerminates(int count) const
    {
        QTRY_COMPARE_WITH_TIMEOUT(Column(0).count(QStringLiteral("Terminate")), count, 10000);
    }

private:
    QString LogFile() const { return folder + QStringLiteral("/standin.log"); }
    QString folder;
    std::unique_ptr<QProcess> process;
};

// A fault message: what was being done, then the error's number and description.
QString Fault(const QString &context, int number, const QString &description)
{ return context + QStringLiteral("\n\rDescription: Error ID %1 (%2)").arg(number).arg(description); }


// What the status label showed each time it was painted, and whether the wait cursor was on.
struct Painted : QObject
{
    QStringList seen;
    bool eventFilter(QObject *o, QEvent *e) override
    {
        if (e->type() == QEvent::Paint) {
            const QCursor *c = QGuiApplication::overrideCursor();
            seen << static_cast<QLabel *>(o)->text() + (c && c->shape() == Qt::WaitCursor ? " (wait)" : "");
        }
        return false;
    }
};

} // namespace

class TestLink : public QObject
{
    Q_OBJECT

    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Standin> game;
    ScriptedPrompt prompt;
    std::unique_ptr<Session> bench;
    std::unique_ptr<HelixbenchForm> form;
    ExportTab *exportTab = nullptr;

    ExportTab &tab() { return *exportTab; }
    Session &session() { return *bench; }
    QString Status() { return tab().InjectStatusLabel->text(); }
    QString Result() { return tab().ScriptListView->topLevelItem(0)->text(2); }
    // The species gene, then genes of the kinds in table order.
    void MakeGenome(int genes)
    {
        session().NewGenome();
        for (int i = 1; i < genes; ++i)
            QVERIFY(session().CreateGene(GeneKinds::At(i % GeneKinds::Count).type, GeneKinds::At(i % GeneKinds::Count).subType, false));
    }
    // The rows' names, then the count line.
    QString Rows()
    {
        QStringList rows;
        for (int i = 0; i < tab().ScriptListView->topLevelItemCount(); ++i)
            rows << tab().ScriptListView->topLevelItem(i)->text(0);
        return rows.join(QLatin1Char(',')) + QLatin1Char('|') + tab().ScriptStatusLabel->text();
    }
    std::array<QString, 21> &names() { return session().Lists.ScriptNames; }
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
        // A session with its main window, started as far as the Export tab needs: all script slots empty.
        bench.reset(new Session(prompt));
        form.reset(new HelixbenchForm(*bench));
        form->SSTab1->setCurrentIndex(6);
        exportTab = form->findChild<ExportTab *>();
        bench->Tables.Build();
        std::fill_n(bench->Lists.ScriptNames.begin(), ExportTab::ScriptSlots, ExportTab::EmptySlot);
        emit bench->ExportViewsMustFill();
    }

    void cleanup()
    {
        QVERIFY2(prompt.AllAnswered(), "an expected prompt was not shown");
        QVERIFY(!tab().Link().Transport().IsOpen()); // every conversation was closed
        form.reset();
        bench.reset();
        game.reset();
    }

    void startUpFillsTheControls()
    {
        QCOMPARE(tab().EggColourCombo->count(), 17); // up to the table's empty row
        // The moniker is open exactly while the box is clear.
        QVERIFY(tab().VirginBirthCheck->isChecked() && !tab().ParentMoniker->isEnabled());
        tab().VirginBirthCheck->click();
        QVERIFY(tab().ParentMoniker->isEnabled());
        // The status stands in a sunken box: its edge is drawn apart from the ground within.
        const QImage status = tab().InjectStatusLabel->grab().toImage();
        QCOMPARE(tab().InjectStatusLabel->text(), QStringLiteral("Idle"));
        QVERIFY(status.pixel(0, status.height() / 2) != status.pixel(4, status.height() / 2));
    }

    void listCommandsFindTheirSlotByName()
    {
        names()[5] = names()[2] = QStringLiteral("dup");
        names()[0] = QStringLiteral("s0");
        tab().RefreshScriptList();
        tab().ScriptListView->topLevelItem(2)->setSelected(true); // the later of two rows of the same name acts on the earlier slot
        tab().RemoveAutoScriptCommand->click();
        QCOMPARE(names()[2] + Rows(), ExportTab::EmptySlot + QStringLiteral("s0,dup|2 of 20 autoscripts used"));
        // An add fills the lowest hole.
        prompt.AnswerInput(QStringLiteral("new")).AnswerInput(QStringLiteral("dde: getb cnam"));
        tab().AddAutoScriptCommand->click();
        QCOMPARE(Rows(), QStringLiteral("s0,new,dup|3 of 20 autoscripts used"));
        // A row whose name has left the list since the last refresh.
        tab().ScriptListView->topLevelItem(2)->setSelected(true);
        names()[5] = QStringLiteral("renamed");
        prompt.AnswerMessage(Prompt::Ok);
        tab().RemoveAutoScriptCommand->click();
        QCOMPARE(prompt.Last().text, QStringLiteral("Error locating item 'dup' for removal"));
        // With every slot taken it refuses before any question.
        std::fill_n(names().begin(), 20, QStringLiteral("taken"));
        prompt.AnswerMessage(Prompt::Ok);
        tab().AddAutoScriptCommand->click();
        QCOMPARE(prompt.Last().text, QStringLiteral("No additional auto-script slots available"));
    }
    // No egg below 20 genes; then each egg is written as wisp.gen, laid at a position that steps
    // along and wraps, with the variety, sex and parent chosen.
    void eggsArriveWholeWithPositionVarietySexAndParent()
    {
        MakeGenome(19);
        QVERIFY(game->Start());
        prompt.AnswerMessage(Prompt::Ok);
        tab().ExportMeCommand->click();
        QCOMPARE(prompt.Last().text, QStringLiteral("Not enough genes for viable life form, \r\n20 genes required"));
        QVERIFY(session().CreateGene(1, 3, false));
        tab().ExportMeCommand->click();
        QCOMPARE(Status(), QStringLiteral("Operation Complete (20 genes injected)"));
        for (int i = 0; i < 5; ++i)
            tab().ExportMeCommand->click();
        tab().EggColourCombo->setCurrentIndex(16);
        tab().SexCombo->setCurrentIndex(2);
        tab().VirginBirthCheck->click();
        // The parent's file is only looked for, in any case, its moniker taken as typed, blanks
        // and all; a refused egg takes no position.
        tab().ParentMoniker->setText(QStringLiteral(" ADAM "));
        prompt.AnswerMessage(Prompt::Ok);
        tab().ExportMeCommand->click();
        QCOMPARE(prompt.Last().text, QStringLiteral("V-DNA for parent with moniker [ ADAM ] \r\ndoes not exist. Cannot continue."));
        QVERIFY(TestFiles::Write(game->Genetics() + QStringLiteral("/ ADAM .GEN"), "x"));
        tab().ExportMeCommand->click();
        game->WaitForTerminates(7);
        // The refused attempts sent nothing; the game decoded the egg with the bench's own reader.
        QCOMPARE(game->Column(0), QStringLiteral("Initiate Execute Terminate ").repeated(7).split(' ', Qt::SkipEmptyParts));
        QCOMPARE(game->Column(1)[1] + '|' + game->Column(5)[1], QStringLiteral("TEST_LINK.EXE|egg: decoded 20 genes, 36001 bytes"));
        const QStringList macros = game->Column(3).filter(QStringLiteral("inst,")); // what Execute carried
        QCOMPARE(macros[0], QStringLiteral("inst,sys: wtop,new: simp eggs 8 0 90 0,sys: camt,setv clas 33882624,setv attr 195,"
                                           "anim [0123],new: gene tokn wisp 0 obv0,setv obv1 0,tick 2400,mvto 4964 735,slim,"
                                           "setv grav 1,endm"));
        QStringList positions;
        for (const QString &m : macros)
            positions << m.section(QStringLiteral("mvto "), 1).section(QLatin1Char(' '), 0, 0);
        QCOMPARE(positions, (QStringList{"4964", "5028", "5092", "5156", "5220", "4900", "4964"}));
        QVERIFY2(macros[6].startsWith(QStringLiteral("inst,sys: wtop,new: simp eggs 8 128 90 0,"))
                     && macros[6].contains(QStringLiteral(",new: gene tokn wisp tokn  ADAM  obv0,setv obv1 2,tick")), qPrintable(macros[6]));
    }

    void withoutTheGameEachCommandSaysSoOnce()
    {
        MakeGenome(20);
        AddScript(QStringLiteral("dde: getb cnam"));
        QVERIFY(QDir().mkpath(sandbox->path() + QStringLiteral("/G")));
        sandbox->SetGameValue("Kelmoth Technology", "Arkenfold 2", "1.0", "Genetics Directory", sandbox->path() + "/G");
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        tab().ExportMeCommand->click();
        QCOMPARE(Status(), QStringLiteral("Disconnected"));
        for (QPushButton *command : {tab().RemoveSelectedMelkCommand, tab().UpdateScriptCommand, tab().TestScriptCommand})
            command->click();
        QCOMPARE(prompt.MessageTexts(), QStringList(4, QStringLiteral("Cannot contact Arkenfold application")));
        QCOMPARE(Result(), QStringLiteral("Fault: Error initialising DDE link"));
    }

    void repliesLandInTheRowOrInAMessage()
    {
        QVERIFY(game->Start({QStringLiteral("--reply"), QStringLiteral("Wisp\r\nline 2")}));
        AddScript(QStringLiteral("dde: getb cnam"));
        tab().UpdateScriptCommand->click();
        QCOMPARE(Result() + '|' + Status(), QStringLiteral("Wisp\r\nline 2|Operation complete"));
        game->WaitForTerminates(1);
        // Initiate Poke Request Terminate: the poke and the request name "Macro".
        QCOMPARE(game->Column(2), (QStringList{"", "Macro", "Macro", ""}));

        // A one-shot macro's reply comes in a message; long macros and replies pass whole.
        const QString macro(40000, QLatin1Char('m')), reply(40000, QLatin1Char('r'));
        QVERIFY(game->Start({QStringLiteral("--reply"), reply}));
        tab().TestScriptText->setText(macro);
        prompt.AnswerMessage(Prompt::Ok);
        tab().TestScriptCommand->click();
        QCOMPARE(prompt.Last().text + QString::number(prompt.Last().style), QStringLiteral("Results of '%1' were '%2'64").arg(macro, reply));
        game->WaitForTerminates(1);
        QCOMPARE(game->Column(3).filter(QStringLiteral("mmm")).value(0).size(), macro.size());
    }

    // The fault of a refused or hung transaction, as a message or in the script's row. While
    // the game is asked, the wait cursor and the waiting words show; both are gone at the end.
    void aMisbehavingGameEndsInItsFault_data()
    {
        QTest::addColumn<QString>("told");
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("shown"); // the message, or the row's result after "|"
        QTest::addColumn<QString>("methods"); // what reached the game, in order
        QTest::newRow("open refused") << "--reject=Initiate" << "RemoveSelectedMelkCommand"
            << Fault("Error making DDE link with Arkenfold", 285, "The game refused the Initiate transaction") << "Initiate";
        // A time-out's description is the bus's own words: only its beginning is fixed.
        QTest::newRow("execute hangs") << "--hang=Execute" << "RemoveSelectedMelkCommand"
            << "Error injecting macro\n\rDescription: Error ID 286 (" << "Initiate Execute Terminate";
        // A one-shot macro asks for its result even after a refused poke.
        QTest::newRow("macro refused") << "--reject=Poke" << "TestScriptCommand"
            << Fault("Error sending DDE command", 285, "The game refused the Poke transaction") << "Initiate Poke Request Terminate";
        QTest::newRow("script refused") << "--reject=Request" << "UpdateScriptCommand"
            << "|Fault: 285 (The game refused the Request transaction)" << "Initiate Poke Request Terminate";
    }

    void aMisbehavingGameEndsInItsFault()
    {
        QFETCH(QString, told);
        QFETCH(QString, command);
        QFETCH(QString, shown);
        QFETCH(QString, methods);
        tab().Link().Transport().SetCallTimeout(2000); // the product leaves the bound to the bus
        QVERIFY(game->Start({told}));
        if (command == QLatin1String("UpdateScriptCommand"))
            AddScript(QStringLiteral("dde: getb cnam"));
        else
            prompt.AnswerMessage(Prompt::Ok);
        tab().TestScriptText->setText(QStringLiteral("dde: getb cnam"));
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        // The label is painted before each call blocks: what it and the cursor show then.
        Painted painted;
        tab().InjectStatusLabel->installEventFilter(&painted);
        tab().findChild<QPushButton *>(command)->click();
        tab().InjectStatusLabel->removeEventFilter(&painted);
        const int asked = int(methods.count(QLatin1Char(' '))) + 1 - int(methods.count(QStringLiteral("Terminate")));
        QCOMPARE(painted.seen, QStringList(asked, MacroLink::WaitingText + " (wait)"));
        QVERIFY(!QGuiApplication::overrideCursor());
        const QString seen = shown.startsWith('|') ? '|' + Result() : prompt.Last().text;
        QVERIFY2(shown.endsWith(QLatin1Char('(')) ? seen.startsWith(shown) : seen == shown, qPrintable(seen));
        QCOMPARE(Status(), methods == QLatin1String("Initiate") ? QStringLiteral("Disconnected") : QStringLiteral("Error during macro operation"));
        game->WaitForTerminates(methods.count(QStringLiteral("Terminate")));
        QCOMPARE(game->Column(0).join(QLatin1Char(' ')), methods);
    }
};

QTEST_MAIN(TestLink)
#include "test_link.moc"
