// Help and About: F1 in every kind of window opens the help at that window's topic, every
// topic the program can ask for exists in the shipped help file, a missing or damaged help
// file is ignored without a word, and the About box says exactly what it should, once.
#include "editors/EditorTestKit.h"
#include "editors/frmSVRule.h"
#include "settings/AboutForm.h"
#include "settings/HelpSystem.h"
#include "settings/HelpTopics.h"
#include "settings/HelpWindow.h"
#include "settings/frmOptions.h"
#include "views/HelixbenchForm.h"
#include "views/NewGeneForm.h"

#include <QRegularExpression>

namespace {

// A help file with every anchor the program can ask for, each on a page of its own words.
QByteArray HelpWithAllAnchors()
{
    QByteArray html = "<html><body>";
    for (const QString &a : HelpTopics::AllAnchors())
        html += "<h1 id=\"" + a.toUtf8() + "\">Page " + a.toUtf8() + "</h1><p>text of " + a.toUtf8()
                + "</p>" + QByteArray(40, '\n') + "<p>.</p>";
    return html + "</body></html>";
}

QString ShippedHelpFile() { return HelpDocument::PathIn(QCoreApplication::applicationDirPath()); }

// Windows other than the given ones that are on screen.
QStringList VisibleWindows()
{
    QStringList names;
    for (QWidget *w : QApplication::topLevelWidgets())
        if (w->isVisible())
            names << (w->objectName().isEmpty() ? QString::fromLatin1(w->metaObject()->className()) : w->objectName());
    names.sort();
    return names;
}

void PressF1(QWidget *window)
{
    QWidget *target = window->focusWidget() ? window->focusWidget() : window;
    QTest::keyClick(target, Qt::Key_F1);
}

} // namespace

class TestHelp : public QObject
{
    Q_OBJECT

    EditorTestKit kit;
    std::unique_ptr<HelpSystem> help;
    QString helpPath;

    QString Shown() const { return help->Window() ? help->Window()->CurrentAnchor() : QStringLiteral("(no window)"); }

private slots:
    void init()
    {
        kit.Init();
        helpPath = kit.sandbox->path() + QStringLiteral("/app/Helixbench.hlp");
        QDir().mkpath(kit.sandbox->path() + QStringLiteral("/app"));
        QVERIFY(TestFiles::Write(helpPath, HelpWithAllAnchors()));
        help.reset(new HelpSystem);
        help->Register(helpPath);
    }

    void cleanup()
    {
        help.reset();
        for (QWidget *w : QApplication::topLevelWidgets())
            if (w->objectName() == QLatin1String("AboutForm"))
                delete w;
        kit.Cleanup();
    }

    // F1 in each gene editor opens the help at its kind's context number.
    void f1InGeneEditors_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("anchor");
        const char *anchors[GeneKinds::Count] = {"2001", "2003", "2000", "2000", "2000", "2000", "2000", "2000",
                                                 "2000", "2000", "2000", "2000", "2002", "2000", "2000", "2003"};
        for (int i = 0; i < GeneKinds::Count; ++i)
            QTest::newRow(GeneKinds::At(i).dialogName) << i << QString::fromLatin1(anchors[i]);
    }
    void f1InGeneEditors()
    {
        QFETCH(int, kind);
        QFETCH(QString, anchor);
        const GeneKindInfo &info = GeneKinds::At(kind);
        Gene *g = kit.Add(info.type, info.subType);
        QVERIFY(g);
        auto *editor = EditorTestKit::Open(g);
        QVERIFY(editor);
        QCOMPARE(editor->objectName(), QLatin1String(info.dialogName));
        PressF1(editor);
        QCOMPARE(Shown(), anchor);
        QVERIFY(help->Window()->isVisible());
    }

    // F1 in the other dialogs: by their context numbers; the notes dialog, a message box and the
    // help window itself have none and open the contents.
    void f1InOtherDialogs_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("anchor");
        QTest::newRow("frmOptions") << "frmOptions" << "3001";
        QTest::newRow("NewGeneForm") << "NewGeneForm" << "3003";
        QTest::newRow("frmChromosomeMap") << "frmChromosomeMap" << "3000";
        QTest::newRow("GeneNotesForm") << "GeneNotesForm" << "contents";
        QTest::newRow("message box") << "" << "contents";
        QTest::newRow("AboutForm") << "AboutForm" << "contents";
    }
    void f1InOtherDialogs()
    {
        QFETCH(QString, name);
        QFETCH(QString, anchor);
        std::unique_ptr<QWidget> dialog;
        if (name == QLatin1String("frmOptions"))
            dialog.reset(new frmOptions(*kit.session));
        else if (name == QLatin1String("NewGeneForm"))
            dialog.reset(new NewGeneForm(*kit.session));
        else if (name == QLatin1String("AboutForm"))
            dialog.reset(AboutForm::Open(nullptr));
        else if (name.isEmpty())
            dialog.reset(new QMessageBox(QMessageBox::Information, QStringLiteral("Helixbench"), QStringLiteral("x")));
        else {
            // The dialogs made elsewhere are known by name alone.
            dialog.reset(new QDialog);
            dialog->setObjectName(name);
            new QLineEdit(dialog.get());
        }
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
        PressF1(dialog.get());
        QCOMPARE(Shown(), anchor);
        // From the help window itself F1 goes to the contents.
        PressF1(help->Window());
        QCOMPARE(Shown(), QStringLiteral("contents"));
    }

    // The rule dialog is modal: F1 there opens the help as a window of that dialog (a modal
    // dialog blocks every window but its own), so it can be read and scrolled while the dialog
    // waits; when the dialog closes, the help stays open on its own.
    void f1InTheModalRuleDialog()
    {
        bool seen = false;
        QString shownInDialog;
        bool helpBelongsToDialog = false;
        WhenModal<frmSVRule>(&seen, [&](frmSVRule *d) {
            PressF1(d);
            shownInDialog = Shown();
            helpBelongsToDialog = help->Window() && help->Window()->parentWidget() == d && help->Window()->isVisible();
            d->reject();
        });
        EditStateRule(*kit.session, StateRule{});
        QVERIFY(seen);
        QCOMPARE(shownInDialog, QStringLiteral("3002"));
        QVERIFY(helpBelongsToDialog);
        QVERIFY(help->Window());
        QCOMPARE(help->Window()->parentWidget(), nullptr);
        QVERIFY(help->Window()->isVisible());
    }

    // F1 in the main window opens the page of the tab shown; Help > Contents the contents.
    void mainWindowAndHelpMenu()
    {
        HelixbenchForm form(*kit.session);
        form.Help->Register(helpPath);
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
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
        form.Help->Window()->close();
    }

    // A help file that is missing or damaged: Contents and F1 show nothing and say nothing.
    void missingOrDamagedFile_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("exists");
        QTest::newRow("missing") << QByteArray() << false;
        QTest::newRow("empty") << QByteArray() << true;
        QTest::newRow("binary") << QByteArray("\x00\x01\xff\xfe garbage \x80", 14) << true;
        QTest::newRow("plain text") << QByteArray("Help text without any mark-up.\n") << true;
        QTest::newRow("html without contents") << QByteArray("<html><body><a name=\"2000\"></a>x</body></html>") << true;
        QTest::newRow("cut off") << HelpWithAllAnchors().left(20) << true;
    }
    void missingOrDamagedFile()
    {
        QFETCH(QByteArray, content);
        QFETCH(bool, exists);
        QFile::remove(helpPath);
        if (exists)
            QVERIFY(TestFiles::Write(helpPath, content));
        HelixbenchForm form(*kit.session);
        form.Help->Register(helpPath);
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        const QStringList before = VisibleWindows();
        form.findChild<QAction *>(QStringLiteral("gapphContents"))->trigger();
        PressF1(&form);
        QVERIFY(!form.Help->ShowHelpAnchor(QStringLiteral("2000")));
        QCoreApplication::processEvents();
        QCOMPARE(form.Help->Window(), nullptr);
        QCOMPARE(VisibleWindows(), before);
        // ScriptedPrompt fails the case on any prompt; none was expected.
        QCOMPARE(kit.prompt.shown.size(), 0);
    }

    // A topic the file lacks opens the contents rather than nothing.
    void unknownTopicOpensTheContents()
    {
        QVERIFY(TestFiles::Write(helpPath, "<html><body><h1 id=\"contents\">c</h1><p>x</p><h1 id=\"2000\">e</h1></body></html>"));
        help->ShowHelpTopic(3001);
        QCOMPARE(Shown(), QStringLiteral("contents"));
        help->ShowHelpTopic(2000);
        QCOMPARE(Shown(), QStringLiteral("2000"));
    }

    // The path of the help file has exactly one '/' before the name.
    void helpFilePath_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("path");
        QTest::newRow("no slash") << "/opt/hb" << "/opt/hb/Helixbench.hlp";
        QTest::newRow("slash") << "/opt/hb/" << "/opt/hb/Helixbench.hlp";
        QTest::newRow("root") << "/" << "/Helixbench.hlp";
    }
    void helpFilePath()
    {
        QFETCH(QString, folder);
        QFETCH(QString, path);
        QCOMPARE(HelpDocument::PathIn(folder), path);
    }

    // Back and forward walk the pages seen; the search finds a word, wraps round the page, and
    // says so when the word is not there.
    void navigateAndFind()
    {
        help->ShowHelpTopic(2000);
        help->ShowHelpTopic(3001);
        HelpWindow *w = help->Window();
        QVERIFY(w->HelpBackButton->isEnabled());
        QVERIFY(!w->HelpForwardButton->isEnabled());
        w->HelpBackButton->click();
        QCOMPARE(w->CurrentAnchor(), QStringLiteral("2000"));
        w->HelpForwardButton->click();
        QCOMPARE(w->CurrentAnchor(), QStringLiteral("3001"));
        w->HelpContentsButton->click();
        QCOMPARE(w->CurrentAnchor(), QStringLiteral("contents"));

        w->HelpFindText->setText(QStringLiteral("text of 3003"));
        QVERIFY(w->Find(false));
        QCOMPARE(w->HelpBrowser->textCursor().selectedText(), QStringLiteral("text of 3003"));
        QVERIFY(w->Find(false)); // the only match: found again from the top
        QCOMPARE(w->HelpBrowser->textCursor().selectedText(), QStringLiteral("text of 3003"));
        QVERIFY(w->Find(true));
        w->HelpFindText->setText(QStringLiteral("no such words"));
        QVERIFY(!w->Find(false));
        QCOMPARE(w->HelpFindStatus->text(), QStringLiteral("Not found"));
    }

    // The shipped help file: every anchor the program can open exists, every link inside it
    // lands on an anchor, and every picture it shows is beside it.
    void shippedHelpFileIsComplete()
    {
        const QString path = ShippedHelpFile();
        const QStringList anchors = HelpDocument::Anchors(path);
        QVERIFY2(!anchors.isEmpty(), qPrintable(path + " is missing or has no contents"));
        QStringList missing;
        for (const QString &a : HelpTopics::AllAnchors())
            if (!anchors.contains(a))
                missing << a;
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString html = QString::fromUtf8(file.readAll());
        for (const auto &m : QRegularExpression(QStringLiteral("href=\"#([^\"]+)\"")).globalMatch(html))
            if (!anchors.contains(m.captured(1)))
                missing << QStringLiteral("link #") + m.captured(1);
        for (const auto &m : QRegularExpression(QStringLiteral("<img src=\"([^\"]+)\"")).globalMatch(html))
            if (!QFile::exists(QFileInfo(path).dir().filePath(m.captured(1))))
                missing << QStringLiteral("picture ") + m.captured(1);
        QCOMPARE(missing, QStringList());
    }

    // The About box: its caption, its one label in its frame with the exact text, its button,
    // not modal, and one box however often it is opened.
    void aboutBox()
    {
        QCoreApplication::setApplicationVersion(QStringLiteral("2.0.0.87"));
        QWidget owner;
        AboutForm *first = AboutForm::Open(&owner);
        AboutForm *second = AboutForm::Open(&owner);
        QCOMPARE(second, first);
        QCOMPARE(owner.findChildren<AboutForm *>().size(), 1);
        QCOMPARE(QStringList({first->windowTitle(), first->AboutLabel->text(), first->CloseCommand->text(),
                              first->AboutLabel->parentWidget()->metaObject()->className()}),
                 QStringList({"About Arkenfold 2 Helixbench", "Helixbench 3.42 mc-c (17.12.98) build 87", "&Close",
                              "QGroupBox"}));
        QVERIFY(first->isVisible());
        QVERIFY(!first->isModal());
        QPointer<AboutForm> gone = first;
        first->CloseCommand->click();
        FlushDeletes();
        QVERIFY(gone.isNull());
        QCoreApplication::setApplicationVersion(QStringLiteral("3.42.0.1"));
        QCOMPARE(AboutForm::AboutText(), QStringLiteral("Helixbench 3.42 mc-c (17.12.98) build 1"));
        QCoreApplication::setApplicationVersion(QString());
        QCOMPARE(AboutForm::AboutText(), QStringLiteral("Helixbench 3.42 mc-c (17.12.98) build 0"));
    }

    // The menu entry opens the one box of the main window.
    void aboutFromTheMenu()
    {
        HelixbenchForm form(*kit.session);
        QAction *about = form.findChild<QAction *>(QStringLiteral("gapphAbout"));
        about->trigger();
        about->trigger();
        const auto boxes = form.findChildren<AboutForm *>();
        QCOMPARE(boxes.size(), 1);
        QVERIFY(boxes.first()->isVisible());
    }
};

QTEST_MAIN(TestHelp)
#include "test_help.moc"
