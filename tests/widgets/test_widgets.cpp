// The widgets every window shares, as the user meets them: the progress window, the message
// and input boxes (icon, buttons, the code each way out gives, where a box raised from a
// dialog stands and where the focus goes back), the open dialog, and the wide group box.
#include "widgets/ProcessingForm.h"
#include "widgets/QtPrompt.h"
#include "widgets/WideGroupBox.h"

#include <QtTest>
#include <QtWidgets>

namespace {
// Once the event loop runs inside the box's exec, hands the modal box to act.
template <typename Box, typename F> void WhenShown(F act)
{
    QTimer::singleShot(0, [act] {
        if (auto *box = qobject_cast<Box *>(QApplication::activeModalWidget()))
            act(box);
    });
}


// Whether a box has room for its title in bold beside the buttons of the title bar.
bool WideEnough(QWidget *box)
{
    QFont bold = box->font();
    bold.setBold(true);
    const QFontMetrics fm(bold);
    return box->width() >= fm.horizontalAdvance(box->windowTitle()) + 3 * fm.height();
}
} // namespace

class TestWidgets : public QObject
{
    Q_OBJECT

private slots:
    // Loaded it stands hidden, centred, titled; shown it is not modal and has nothing to press;
    // values that come faster than it can draw end with the latest on the bar.
    void progressWindow()
    {
        ProcessingForm bare;
        QCOMPARE(bare.windowTitle() + "|" + bare.StatusLabel->text(), QStringLiteral("Please Wait|Thinking ..."));

        QWidget mainWindow;
        mainWindow.show();
        QtPrompt prompt;
        prompt.SetParentWindow(&mainWindow);
        prompt.ProgressLoad(QStringLiteral("Building Chromosome Map"));
        prompt.ProgressLoad(QStringLiteral("Updating organ layout...")); // the first one goes
        const QList<ProcessingForm *> forms = mainWindow.findChildren<ProcessingForm *>();
        QCOMPARE(forms.size(), 1);
        ProcessingForm *form = forms[0];
        QVERIFY(!prompt.ProgressVisible() && form->ProgressBar->value() == 0);
        QCOMPARE(form->windowTitle(), QStringLiteral("Updating organ layout..."));
        prompt.ProgressShow();
        QVERIFY(QTest::qWaitForWindowExposed(form));
        QVERIFY(prompt.ProgressVisible() && !form->isModal() && form->findChildren<QAbstractButton *>().isEmpty());
        const QRect area = form->screen()->availableGeometry(), at = form->frameGeometry();
        QVERIFY2(area.contains(at) && (at.center() - area.center()).manhattanLength() <= 4, qPrintable(QDebug::toString(at)));

        prompt.ProgressSetValue(10);
        QCOMPARE(form->ProgressBar->value(), 10); // the first value shows at once
        prompt.ProgressSetValue(20);
        prompt.ProgressSetValue(150); // held to 100
        QTRY_COMPARE(form->ProgressBar->value(), 100);
        QTest::qWait(40);
        prompt.ProgressSetValue(-5); // a frame later: at once
        QCOMPARE(form->ProgressBar->value(), 0);
        prompt.ProgressSetStatus(QStringLiteral("Working on gene 3 of 9"));
        QCOMPARE(form->StatusLabel->text(), QStringLiteral("Working on gene 3 of 9"));

        prompt.ProgressUnload();
        QVERIFY(mainWindow.findChildren<ProcessingForm *>().isEmpty() && !prompt.ProgressVisible());
        prompt.ProgressSetValue(50); // nothing to update: no harm
    }

    // style: button set + icon; key: what the user presses; icon, buttons: what the box shows;
    // code: what the prompt gives back.
    void messageBox_data()
    {
        using B = QMessageBox;
        const int yesNoCancel = B::Yes | B::No | B::Cancel;
        QTest::addColumn<QList<int>>("row"); // style, key, icon, buttons, code
        QTest::newRow("16 critical, Enter") << QList<int>{16, Qt::Key_Return, B::Critical, B::Ok, 1};
        QTest::newRow("48 exclamation, Escape") << QList<int>{48, Qt::Key_Escape, B::Warning, B::Ok, 1};
        QTest::newRow("64 information") << QList<int>{64, Qt::Key_Return, B::Information, B::Ok, 1};
        QTest::newRow("35 question, Enter is Yes") << QList<int>{35, Qt::Key_Return, B::Question, yesNoCancel, 6};
        QTest::newRow("35, Escape cancels") << QList<int>{35, Qt::Key_Escape, B::Question, yesNoCancel, 2};
        QTest::newRow("4 no icon, Escape is No") << QList<int>{4, Qt::Key_Escape, B::NoIcon, B::Yes | B::No, 7};
    }
    void messageBox()
    {
        QFETCH(QList<int>, row);
        QString seen;
        QList<int> shown;
        WhenShown<QMessageBox>([&](QMessageBox *box) {
            seen = box->windowTitle() + "|" + box->text();
            shown = {int(box->icon()), int(box->standardButtons())};
            if (box->defaultButton())
                seen += "|default " + box->defaultButton()->text();
            seen += WideEnough(box) ? "|wide enough" : "|narrower than its title";
            QTest::keyClick(box, Qt::Key(row[1]));
        });
        QtPrompt prompt;
        shown << prompt.Message(QStringLiteral("Now we're pickled"), QStringLiteral("one\r\ntwo\n\rthree"), row[0]);
        const QString yes = row[3] & QMessageBox::Yes ? "|default &Yes" : "";
        QCOMPARE(seen, "Now we're pickled|one\ntwo\nthree" + yes + "|wide enough");
        QCOMPARE(shown, row.mid(2));
    }

    // Ok gives the text in the box, Cancel the empty text whatever the box holds. Raised from a
    // dialog the user works in, a box stands over it, has room for its title in bold beside the
    // buttons of the title bar, and gives that dialog, and its control that had it, the focus back.
    void inputBox()
    {
        QDialog dialog;
        auto *layout = new QVBoxLayout(&dialog);
        auto *second = new QLineEdit;
        layout->addWidget(new QLineEdit);
        layout->addWidget(second);
        dialog.show();
        second->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QtPrompt prompt;
        QStringList got;
        for (bool ok : {true, false}) {
            QString shown;
            WhenShown<QInputDialog>([&, ok](QInputDialog *box) {
                const bool wide = WideEnough(box);
                shown = box->windowTitle() + "|" + box->labelText() + "|" + box->textValue()
                    + (box->parentWidget() == &dialog ? "|over the dialog" : "") + (wide ? "|wide enough" : "");
                box->setTextValue(QStringLiteral("Starch"));
                ok ? box->accept() : box->reject();
            });
            got << prompt.InputBox(QStringLiteral("Change Default Template"), QStringLiteral("Name:"), QStringLiteral("old"))
                << shown;
            QTRY_COMPARE(QApplication::focusWidget(), second);
        }
        const QString shown = "Change Default Template|Name:|old|over the dialog|wide enough";
        QCOMPARE(got, QStringList({"Starch", shown, "", shown}));
    }

    // The open dialog refuses a name with no file behind it, with a warning, and gives the
    // path of one that exists.
    void openDialogTakesOnlyAFileThatExists()
    {
        QtPrompt prompt;
        QTemporaryDir dir;
        QFile(dir.filePath(QStringLiteral("pet.gen"))).open(QIODevice::WriteOnly);
        QString warned;
        WhenShown<QFileDialog>([&](QFileDialog *d) {
            WhenShown<QMessageBox>([&, d](QMessageBox *box) {
                warned = box->text();
                box->accept();
                d->selectFile(dir.filePath(QStringLiteral("pet.gen")));
                static_cast<QDialog *>(d)->accept(); // as the Open button does
            });
            d->selectFile(dir.filePath(QStringLiteral("missing.gen")));
            static_cast<QDialog *>(d)->accept();
        });
        QCOMPARE(prompt.OpenFileName(QStringLiteral("Open"), dir.path(), QStringLiteral("Genomes (*.gen)"), QStringLiteral("gen")),
                 dir.filePath(QStringLiteral("pet.gen")));
        QVERIFY2(warned.contains(QStringLiteral("missing.gen")), qPrintable(warned));
    }

    // A wide group box shows what the style shows for a group box, as it is painted on the
    // screen: large or small, with or without a title. Where the style blurs the seams of its
    // stretched picture the two may part by one level of one channel, never more.
    void wideGroupBox_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("title");
        QTest::newRow("a page") << QSize(760, 535) << QString();
        QTest::newRow("narrow and tall") << QSize(30, 400) << QString();
        QTest::newRow("smaller than its edges") << QSize(7, 5) << QString();
        QTest::newRow("titled") << QSize(300, 200) << QStringLiteral("Brain");
    }
    void wideGroupBox()
    {
        QFETCH(QSize, size);
        QFETCH(QString, title);
        QWidget page;
        page.resize(size.width() + 20, 2 * size.height() + 30);
        QGroupBox plain(title, &page);
        WideGroupBox wide(title, &page);
        plain.setGeometry(QRect(QPoint(10, 10), size));
        wide.setGeometry(QRect(QPoint(10, 20 + size.height()), size));
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        const QImage a = page.grab(plain.geometry()).toImage().convertToFormat(QImage::Format_RGB32);
        const QImage b = page.grab(wide.geometry()).toImage().convertToFormat(QImage::Format_RGB32);
        int most = 0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                for (int shift : {0, 8, 16})
                    most = qMax(most, qAbs(int(a.pixel(x, y) >> shift & 0xff) - int(b.pixel(x, y) >> shift & 0xff)));
        QVERIFY2(most <= 1, qPrintable(QStringLiteral("pixels part by %1 levels").arg(most)));
    }
};

QTEST_MAIN(TestWidgets)
#include "test_widgets.moc"
