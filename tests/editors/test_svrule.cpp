// The rule dialog and the text of a rule in a label.
#include "core/Session.h"
#include "editors/frmSVRule.h"
#include "support/ScriptedPrompt.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

namespace {
using Rule = std::array<quint8, 12>;
}
Q_DECLARE_METATYPE(StateRule)

class TestSVRule : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;

    QString Text(const StateRule &r) { return StateRuleText(*session, r); }

private slots:
    void init()
    {
        prompt.Clear();
        session.reset(new Session(prompt));
        session->Tables.Build();
    }

    void ruleText()
    {
        QCOMPARE(Text(std::nullopt), QStringLiteral("<undefined>"));
        // Tokens behind a leading 0 do not show.
        QCOMPARE(Text(Rule{0, 5, 6}), QStringLiteral("<undefined>"));
        QCOMPARE(Text(Rule{5, 31, 2, 0, 9}), QStringLiteral("chem 0:PLUS:1:"));
        QCOMPARE(Text(Rule{200}), QStringLiteral("E!(200): "));
        QCOMPARE(Text(Rule{41, 42}), QStringLiteral("<ERROR>:E!(42): "));
        // The two lines run together; a full rule shows twelve words.
        QCOMPARE(Text(Rule{1, 2, 3, 4, 22, 23, 24, 25, 26, 27, 28, 29}),
                 QStringLiteral("0:1:64:255:32:128:rnd const:chem 4:chem 5:leak in:leak out:curr src leak in:"));
    }

    void dialogLayout()
    {
        frmSVRule d(*session);
        QCOMPARE(d.windowTitle(), QStringLiteral("State Variable Rule"));
        QVERIFY(d.isModal());
        for (int i = 0; i < 12; ++i) {
            auto *c = d.findChild<QComboBox *>(QStringLiteral("lstSR_%1").arg(i));
            QVERIFY(c);
            QCOMPARE(c->count(), 42);
            QCOMPARE(c->currentIndex(), 0);
        }
        // Table order, not sorted: the item index is the token.
        QCOMPARE(d.lstSR[0]->itemText(22), QStringLiteral("32"));
        QCOMPARE(d.lstSR[11]->itemText(25), QStringLiteral("chem 4"));
        QCOMPARE(d.lstSR[5]->itemText(41), QStringLiteral("<ERROR>"));
        // Line 1 stands above line 2.
        d.show();
        QVERIFY(d.lstSR[0]->geometry().bottom() < d.lstSR[6]->geometry().top());
        QVERIFY(d.lstSR[0]->geometry().right() < d.lstSR[1]->geometry().left());
    }

    void valueKeepsUnknownTokensUntilOk()
    {
        frmSVRule d(*session);
        d.SetValue(Rule{0, 7, 200, 41, 255});
        // Tokens after a leading 0 show in the combos; unknown ones show the error word.
        QCOMPARE(d.lstSR[1]->currentIndex(), 7);
        QCOMPARE(d.lstSR[2]->currentIndex(), 41);
        QCOMPARE(d.lstSR[4]->currentIndex(), 41);
        QCOMPARE(d.Value(), StateRule(Rule{0, 7, 200, 41, 255}));

        d.lstSR[0]->setCurrentIndex(3);
        QCOMPARE(d.Value(), StateRule(Rule{0, 7, 200, 41, 255})); // the combos are not the value
        d.SVOKCommand->click();
        QCOMPARE(d.result(), int(QDialog::Accepted));
        QCOMPARE(d.Value(), StateRule(Rule{3, 7, 41, 41, 41}));

        frmSVRule empty(*session);
        empty.SetValue(std::nullopt);
        QCOMPARE(empty.Value(), StateRule(Rule{}));
    }

    void editStateRuleWaysOut_data()
    {
        QTest::addColumn<int>("way"); // 0 Ok, 1 Cancel, 2 close box
        QTest::addColumn<StateRule>("start");
        QTest::addColumn<StateRule>("result");
        QTest::newRow("ok takes the combos") << 0 << StateRule(Rule{200, 5}) << StateRule(Rule{9, 5});
        QTest::newRow("cancel keeps 200") << 1 << StateRule(Rule{200, 5}) << StateRule(Rule{200, 5});
        QTest::newRow("close box keeps 200") << 2 << StateRule(Rule{200, 5}) << StateRule(Rule{200, 5});
        QTest::newRow("cancel on absent gives zeros") << 1 << StateRule() << StateRule(Rule{});
    }

    void editStateRuleWaysOut()
    {
        QFETCH(int, way);
        QFETCH(StateRule, start);
        QFETCH(StateRule, result);
        bool driven = false;
        QTimer::singleShot(0, [way, &driven] {
            auto *d = qobject_cast<frmSVRule *>(QApplication::activeModalWidget());
            if (!d)
                return;
            d->lstSR[0]->setCurrentIndex(9);
            if (way == 0)
                d->SVOKCommand->click();
            else if (way == 1)
                d->SCCancelCommand->click();
            else
                d->close();
            driven = true;
        });
        const StateRule got = EditStateRule(*session, start);
        QVERIFY(driven);
        QCOMPARE(got, result);
    }
};

QTEST_MAIN(TestSVRule)
#include "test_svrule.moc"
