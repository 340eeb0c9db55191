// Help and About: F1 in every kind of window opens the help at that window's topic, every
// topic the program can ask for exists in the shipped help file, a missing or damaged help
// file is ignored without a word, and the About box says exactly what it should.
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
    // dialog at the number its name carries, the main window at the page of the tab shown; the
    // notes dialog, a message box and the About box have none and open the contents, and so
    // does F1 in the help window itself. F1 in a modal window (the rule dialog, a message box)
    // opens the help as a window of that one (a modal window blocks every window but its own),
    // so it can be read while the dialog waits; when the dialog closes, the help stays open on
    // its own.
    void f1_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("anchor");
        for (const QString row : {"frmBrainLobe=2001", "frmSVRule=3002", "frmOptions=3001", "NewGeneForm=3003", "frmChromosomeMap=3000",
                                  "GeneNotesForm=contents", "AboutForm=contents", "=contents",
                                  "tab0=tab-cover", "tab6=tab-export"})
            QTest::newRow(qPrintable(row.section('=', 0, 0))) << row.section('=', 0, 0) << row.section('=', 1);
    }
    void f1()
    {
        QFETCH(QString, name);
        QFETCH(QString, anchor);
        // Other dialogs are known by name alone, so a plain dialog of the name stands for each
        // (the one without a name is a real message box); the lobe's editor and the main window
        // are the real ones.
        const bool tab = name.startsWith(QLatin1String("tab"));
        std::unique_ptr<QWidget> made(name.isEmpty() ? new QMessageBox(QMessageBox::Information, "Helixbench", "x")
                                      : tab          ? static_cast<QWidget *>(new HelixbenchForm(*kit.session))
                                                     : new QDialog);
        made->setObjectName(name);
        if (tab)
            static_cast<HelixbenchForm *>(made.get())->SSTab1->setCurrentIndex(name.mid(3).toInt());
        new QLineEdit(made.get());
        QWidget *window = name == "frmBrainLobe" ? EditorTestKit::Open(kit.Add(0, 0))
                          : name == "frmSVRule"  ? new frmSVRule(*kit.session, made.get())
                                                 : made.get();
        window->show();
        PressF1(window);
        QCOMPARE(Shown(), anchor);
        const bool lent = help->Window()->parentWidget() == window;
        window->hide();
        QCOMPARE(QList<bool>({lent, !help->Window()->parentWidget() && help->Window()->isVisible()}),
                 QList<bool>({name == "frmSVRule" || name.isEmpty(), true})); // the two modal ones
        PressF1(help->Window());
        QCOMPARE(Shown(), QStringLiteral("contents"));
        // The help window stands on the screen, frame and all (run again at twice the scale).
        const QRect area = help->Window()->screen()->availableGeometry(), at = help->Window()->frameGeometry();
        QVERIFY2(area.contains(at), qPrintable(QDebug::toString(at) + " on " + QDebug::toString(area)));
    }

    // A help file that is missing or damaged: Contents and a topic (where F1 leads) show
    // nothing and say nothing (the scripted prompt fails the case on any message).
    void missingOrDamagedFile_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("missing") << QByteArray();
        QTest::newRow("binary") << QByteArray("\x00\x01\xff\xfe garbage \x80", 14);
    }
    void missingOrDamagedFile()
    {
        QFETCH(QByteArray, content);
        QFile::remove(helpPath);
        QVERIFY(content.isNull() || TestFiles::Write(helpPath, content));
        help->ShowHelpContents();
        QVERIFY(!help->ShowHelpAnchor(QStringLiteral("2000")));
        QCoreApplication::processEvents();
        QCOMPARE(help->Window(), nullptr);
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
        QStringList missing;
        for (const QString &a : HelpTopics::AllAnchors())
            if (!anchors.contains(a))
                missing << a;
        const QString html = QString::fromUtf8(TestFiles::Read(path));
        for (const auto &m : QRegularExpression(QStringLiteral("(href=\"#|<img src=\")([^\"]+)\"")).globalMatch(html))
            if (m.captured(1).startsWith('h') ? !anchors.contains(m.captured(2)) : !QFileInfo::exists(QFileInfo(path).dir().filePath(m.captured(2))))
                missing << m.captured(0);
        QCOMPARE(missing, QStringList());
    }

    // The About box: its caption, the exact text of its label (the build is the last number
    // of the version), its button; Close shuts it.
    void aboutBox()
    {
        QCoreApplication::setApplicationVersion(QStringLiteral("2.0.0.87"));
        QWidget owner;
        AboutForm *first = AboutForm::Open(&owner);
        QCOMPARE(QStringList({first->windowTitle(), first->AboutLabel->text(), first->CloseCommand->text()}),
                 QStringList({"About Arkenfold 2 Helixbench", "Helixbench 3.42 mc-c (17.12.98) build 87", "&Close"}));
        first->CloseCommand->click();
        QVERIFY(!first->isVisible());
    }
};

QTEST_MAIN(TestHelp)
#include "test_help.moc"
