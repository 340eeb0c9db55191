// Boxes raised from a dialog: each stands over that dialog, is wide enough for its title (and
// an input box for its prompt), and gives the focus back to where it was when it goes.
#include "widgets/QtPrompt.h"

#include <QtTest>
#include <QtWidgets>

class TestPrompt : public QObject
{
    Q_OBJECT

private slots:
    void boxesStandOverTheirDialog_data()
    {
        QTest::addColumn<bool>("input");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::newRow("short message, long title") << false << "Helixbench" << "Ok";
        QTest::newRow("input box, long title") << true << "Change Default Template" << "Name:";
        QTest::newRow("input box, a sentence") << true << "Name Chemical"
            << "Enter a short description of this chemical, the one that shows in its row";
    }
    void boxesStandOverTheirDialog()
    {
        QFETCH(bool, input);
        QFETCH(QString, title);
        QFETCH(QString, text);
        QWidget mainWindow;
        mainWindow.show();
        QDialog dialog(&mainWindow);
        auto *layout = new QVBoxLayout(&dialog);
        layout->addWidget(new QLineEdit);
        auto *second = new QLineEdit;
        layout->addWidget(second);
        dialog.show();
        dialog.activateWindow();
        second->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTRY_COMPARE(QApplication::focusWidget(), second);

        QtPrompt prompt;
        prompt.SetParentWindow(&mainWindow);
        // What the box was while it stood (it is gone once the prompt returns): its owner, and
        // whether it has room for its title in bold with the buttons of the title bar, and
        // shows its prompt whole, on one line or wrapped over as many as it needs.
        QStringList seen;
        QTimer poll;
        connect(&poll, &QTimer::timeout, this, [&] {
            for (QWidget *w : QApplication::topLevelWidgets())
                if ((qobject_cast<QMessageBox *>(w) || qobject_cast<QInputDialog *>(w)) && w->isVisible()) {
                    QFont bold = w->font();
                    bold.setBold(true);
                    const int titleRoom = QFontMetrics(bold).horizontalAdvance(title) + 3 * QFontMetrics(bold).height();
                    seen << (w->parentWidget() == &dialog ? "over the dialog" : "elsewhere")
                         << (w->width() >= titleRoom ? QStringLiteral("wide enough")
                                                     : QStringLiteral("width %1 < %2").arg(w->width()).arg(titleRoom));
                    for (QLabel *l : w->findChildren<QLabel *>())
                        if (input && l->text() == text)
                            seen << ((l->wordWrap() ? l->height() >= l->heightForWidth(l->width())
                                                    : l->width() >= l->fontMetrics().horizontalAdvance(text))
                                         ? "prompt whole" : "prompt cut");
                    static_cast<QDialog *>(w)->accept();
                }
        });
        poll.start(10);
        if (input)
            prompt.InputBox(title, text, QStringLiteral("x"));
        else
            prompt.Message(title, text, 0);
        poll.stop();
        QCOMPARE(seen, QStringList({"over the dialog", "wide enough"}) + QStringList(input, QStringLiteral("prompt whole")));
        QTRY_COMPARE(QApplication::activeWindow(), &dialog);
        QTRY_COMPARE(QApplication::focusWidget(), second);
    }
};

QTEST_MAIN(TestPrompt)
#include "test_prompt.moc"
