// Help and About: F1 in every kind of window opens the help at that window's topic, every
// topic the program can ask for exists in the shipped help file, a missing or damaged help
// file is ignored without a word, and the About box says exactly what it should, once.
#include "editors/EditorTestKit.h"
#include "editors/frmSVRule.h"
#include "settings/AboutForm.h"
#include "settings/HelpSystem.h"
#include "settings/HelpTopics.h"
#include "settings/HelpWindow.h"
#include "views/HelixbenchForm.h"

namespace {

// A help file with every anchor the program can ask for, each on a page of its own words.
QByteArray HelpWithAllAnchors()
{
    QByteArray html = "<html><body>";
    for (const QString &a : HelpTopics::AllAnchors())
        html += "<h1 id=\"" + a.toUtf8() + "\">Page " + a.toUtf8() + "</h1><p>text of " + a.toUtf8() + "</p>";
    return html + "</body></html>";
}

// How many windows are on screen.
int VisibleWindows()
{
    const QWidgetList all = QApplication::topLevelWidgets();
    return int(std::count_if(all.begin(), all.end(), [](QWidget *w) { return w->isVisible(); }));
}

void PressF1(QWidget *window) { QTest::keyClick(window->focusWidget() ? window->focusWidget() : window, Qt::Key_F1); }

} // namespace

class TestHelp : public QObject
{
    Q_OBJECT

    EditorTestKit kit;
    std::unique_ptr<HelpSystem> help;
    QString helpPath;

    // The page the help window shows, if it is on screen.
    QString Shown() const { return help->Window() && help->Window()->isVisible() ? help->Window()->CurrentAnchor() : "-"; }

private slots:
    void init()
    {
        kit.Init();
        helpPath = kit.sandbox->path() + QStringLiteral("/Helixbench.hlp");
        QVERIFY(TestFiles::Write(helpPath, HelpWithAllAnchors()));
        help.reset(new HelpSystem);
        help->Register(helpPath);
    }
    void cleanup() { help.reset(), kit.Cleanup(); }

    // F1 in every kind of window opens the help at that window's page: a gene editor at its
    // kind's context number (which number each kind asks for is the editors' test), any other
    // dialog at the number its name carries; the notes dialog, a message box and the About box
    // have none and open the contents, and so does F1 in the help window itself.
    void f1_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("anchor");
        for (const QString row : {"frmBrainLobe=2001", "frmOptions=3001", "NewGeneForm=3003", "frmChromosomeMap=3000",
                                  "GeneNotesForm=contents", "AboutForm=contents", "=contents"})
            QTest::newRow(qPrintable(row.section('=', 0, 0))) << row.section('=', 0, 0) << row.section('=', 1);
    }
    void f1()
    {
        QFETCH(QString, name);
        QFETCH(QString, anchor);
        // Other dialogs are known by name alone, so a plain dialog of the name stands for each
        // (the one without a name is a real message box); the lobe's editor is the real one.
        std::unique_ptr<QWidget> made(name.isEmpty() ? new QMessageBox(QMessageBox::Information, "Helixbench", "x")
                                                     : new QDialog);
        made->setObjectName(name);
        new QLineEdit(made.get());
        QWidget *window = name == "frmBrainLobe" ? EditorTestKit::Open(kit.Add(0, 0)) : made.get();
        window->show();
        PressF1(window);
        QCOMPARE(Shown(), anchor);
        PressF1(help->Window());
        QCOMPARE(Shown(), QStringLiteral("contents"));
        // The help window stands on the screen, frame and all (run again at twice the scale).
        const QRect area = help->Window()->screen()->availableGeometry(), at = help->Window()->frameGeometry();
        QVERIFY2(area.contains(at), qPrintable(QDebug::toString(at) + " on " + QDebug::toString(area)));
    }

    // The rule dialog is modal: F1 there opens the help as a window of that dialog (a modal
    // dialog blocks every window but its own), so it can be read while the dialog waits; when
    // the dialog closes, the help stays open on its own.
    void f1InTheModalRuleDialog()
    {
        bool seen = false;
        WhenModal<frmSVRule>(&seen, [&](frmSVRule *d) {
            const auto close = qScopeGuard([d] { d->reject(); });
            PressF1(d);
            QCOMPARE(Shown(), QStringLiteral("3002"));
            QVERIFY(help->Window()->parentWidget() == d);
        });
        EditStateRule(*kit.session, StateRule{});
        QVERIFY(seen);
        QVERIFY(!help->Window()->parentWidget() && help->Window()->isVisible());
    }

    // F1 in the main window opens the page of the tab shown; Help > Contents the contents; the
    // Help menu has its two entries.
    void mainWindowAndHelpMenu()
    {
        HelixbenchForm form(*kit.session);
        form.Help->Register(helpPath);
        form.show();
        QStringList pages;
        for (int tab : {0, 2, 6}) {
            form.SSTab1->setCurrentIndex(tab);
            PressF1(&form);
            pages << form.Help->Window()->CurrentAnchor();
        }
        QCOMPARE(pages, QStringList({"tab-cover", "tab-geneeditor", "tab-export"}));
        form.findChild<QAction *>(QStringLiteral("gapphContents"))->trigger();
        QCOMPARE(form.Help->Window()->CurrentAnchor(), QStringLiteral("contents"));
        QStringList entries;
        for (QAction *a : form.gappHelp->actions())
            entries << a->objectName() + QLatin1Char('=') + a->text();
        QCOMPARE(entries, QStringList({"gapphContents=Contents", "sep4=", "gapphAbout=About Helixbench"}));
    }

    // A help file that is missing or damaged: Contents and a topic (where F1 leads) show
    // nothing and say nothing (the scripted prompt fails the case on any message).
    void missingOrDamagedFile_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("missing") << QByteArray();
        QTest::newRow("binary") << QByteArray("\x00\x01\xff\xfe garbage \x80", 14);
        QTest::newRow("html without contents") << QByteArray("<html><body><a name=\"2000\"></a>x</body></html>");
        QTest::newRow("cut off") << HelpWithAllAnchors().left(20);
    }
    void missingOrDamagedFile()
    {
        QFETCH(QByteArray, content);
        QFile::remove(helpPath);
        if (!content.isNull())
            QVERIFY(TestFiles::Write(helpPath, content));
        const int before = VisibleWindows();
        help->ShowHelpContents();
        QVERIFY(!help->ShowHelpAnchor(QStringLiteral("2000")));
        QCoreApplication::processEvents();
        QCOMPARE(help->Window(), nullptr);
        QCOMPARE(VisibleWindows(), before);
    }

    // A topic the file lacks opens the contents. Find in the page: Return and the buttons step
    // through the hits and wrap round at either end; a word the page lacks says so, and typing
    // clears that.
    void findInThePage()
    {
        QVERIFY(TestFiles::Write(helpPath, "<html><body><h1 id=\"contents\">c</h1><p>one cat, two cat, three</p></body></html>"));
        help->ShowHelpTopic(3001);
        QCOMPARE(Shown(), QStringLiteral("contents"));
        HelpWindow *w = help->Window();
        auto *text = w->findChild<QLineEdit *>(QStringLiteral("HelpFindText"));
        const auto hit = [w] { return w->findChild<QTextBrowser *>()->textCursor().selectionStart(); };
        const auto click = [w](const char *button) { w->findChild<QPushButton *>(QLatin1String(button))->click(); };
        QTest::keyClicks(text, QStringLiteral("cat"));
        QTest::keyClick(text, Qt::Key_Return);
        QList<int> hits{hit()};
        for (const char *button : {"HelpFindNextButton", "HelpFindNextButton", "HelpFindPreviousButton"})
            click(button), hits << hit();
        QCOMPARE(hits, (QList<int>{6, 15, 6, 15}));
        auto *status = w->findChild<QLabel *>(QStringLiteral("HelpFindStatus"));
        text->setText(QStringLiteral("dog"));
        click("HelpFindNextButton");
        QCOMPARE(status->text(), QStringLiteral("Not found"));
        QTest::keyClick(text, Qt::Key_Backspace);
        QCOMPARE(status->text(), QString());
    }

    // The shipped help file: every anchor the program can open exists, every link inside it
    // lands on an anchor, and every picture it shows is beside it.
    void shippedHelpFileIsComplete()
    {
        const QString path = HelpDocument::PathIn(QCoreApplication::applicationDirPath());
        const QStringList anchors = HelpDocument::Anchors(path);
        QVERIFY2(!anchors.isEmpty(), qPrintable(path + " is missing or has no contents"));
        QStringList missing;
        for (const QString &a : HelpTopics::AllAnchors())
            if (!anchors.contains(a))
                missing << a;
        const QString html = QString::fromUtf8(TestFiles::Read(path));
        for (const auto &m : QRegularExpression(QStringLiteral("href=\"#([^\"]+)\"")).globalMatch(html))
            if (!anchors.contains(m.captured(1)))
                missing << QStringLiteral("link #") + m.captured(1);
        for (const auto &m : QRegularExpression(QStringLiteral("<img src=\"([^\"]+)\"")).globalMatch(html))
            if (!QFile::exists(QFileInfo(path).dir().filePath(m.captured(1))))
                missing << QStringLiteral("picture ") + m.captured(1);
        QCOMPARE(missing, QStringList());
    }

    // The About box: its caption, the exact text of its label (the build is the last number
    // of the version), its button, not modal, one box however often it is opened; Close shuts it.
    void aboutBox()
    {
        QCoreApplication::setApplicationVersion(QStringLiteral("2.0.0.87"));
        QWidget owner;
        AboutForm *first = AboutForm::Open(&owner);
        QCOMPARE(AboutForm::Open(&owner), first);
        QCOMPARE(QStringList({first->windowTitle(), first->AboutLabel->text(), first->CloseCommand->text()}),
                 QStringList({"About Arkenfold 2 Helixbench", "Helixbench 3.42 mc-c (17.12.98) build 87", "&Close"}));
        QVERIFY(first->isVisible() && !first->isModal());
        first->CloseCommand->click();
        QVERIFY(!first->isVisible());
    }
};

QTEST_MAIN(TestHelp)
#include "test_help.moc"
