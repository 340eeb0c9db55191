// The "Advanced Options" dialog: what it shows on opening, the reset of the genetics
// drawer, and what Close and Cancel leave in the session.
#include "core/Session.h"
#include "settings/frmOptions.h"
#include "support/ShownText.h"
#include "support/TestEnv.h"

#include <QtTest>
#include <QtWidgets>

class TestOptions : public QObject
{
    Q_OBJECT

private slots:
    void init() { FreshSession(sandbox, prompt, session); }

    void cleanup()
    {
        dialog.reset();
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
    }

    // On opening the boxes show the value of each string modulo 2, the drawer the last genome folder.
    // Cancel takes nothing over; Close takes everything, and the very next read uses the new key.
    // The reset reads under the key the session holds, not the one typed into the dialog; before
    // Cancel the game has no setting there, and the reset says so and puts the program's folder
    // in the drawer.
    void openThenCloseOrCancel()
    {
        sandbox->SetGameValue("Co", "Prod", "7.0", "Genetics Directory", "/seven/");
        QList<QStringList> after;
        for (const char *button : {"CancelCommand", "CloseCommand"}) {
            session.reset(new Session(prompt));
            session->UseDefaultCaptions = QStringLiteral("3");
            session->CompatibilityMode = QStringLiteral("2");
            session->LastGenomeDirectory = QStringLiteral("/pets/");
            session->RegistryVersion = QStringLiteral("9.9");
            session->AppDirectory = QStringLiteral("/app/");
            dialog.reset(new frmOptions(*session));
            frmOptions &d = *dialog;
            d.show();
            QCOMPARE(QList<bool>({d.DefaultCaptionsCheckBox->isChecked(), d.CompatibilityCheckBox->isChecked(), d.isModal()}),
                     QList<bool>({true, false, false}));
            QCOMPARE(QStringList({d.windowTitle(), d.GeneticsDrawerLabel->text(), d.RegistryCompany->text(),
                                  d.RegistryVersion->text(), d.RegistryProduct->text()}),
                     QStringList({"Advanced Options", "/pets/", "Kelmoth Technology", "9.9", "Arkenfold 2"}));
            d.DefaultCaptionsCheckBox->setChecked(false);
            d.CompatibilityCheckBox->setChecked(true);
            d.RegistryCompany->setText(QStringLiteral("Co"));
            d.RegistryVersion->setText(QStringLiteral("7.0"));
            d.RegistryProduct->setText(QStringLiteral("Prod"));
            if (after.isEmpty())
                prompt.AnswerMessage(Prompt::Ok);
            Click("ResetToRegistryButton");
            after << QStringList({d.GeneticsDrawerLabel->text(), QString::number(prompt.shown.size())});
            sandbox->SetGameValue("Kelmoth Technology", "Arkenfold 2", "9.9", "Genetics Directory", "/games/genetics/");
            Click(button);
            QVERIFY(!d.isVisible());
            after << QStringList({session->UseDefaultCaptions.Text(), session->CompatibilityMode.Text(), session->RegistryCompany,
                                  session->RegistryVersion, session->RegistryProduct, session->LastGenomeDirectory});
        }
        QCOMPARE(after, QList<QStringList>({{"/app/", "1"}, {"3", "2", "Kelmoth Technology", "9.9", "Arkenfold 2", "/pets/"},
                                            {"/games/genetics/", "1"}, {"0", "1", "Co", "7.0", "Prod", "/games/genetics/"}}));
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 16, "Error reading registry key -- defaulting\r\n"
                                                                       "to current directory."));
        QCOMPARE(session->ReadGameSetting(QStringLiteral("Genetics Directory")), QStringLiteral("/seven/"));
    }

private:
    void Click(const char *name) { dialog->findChild<QPushButton *>(QString::fromLatin1(name))->click(); }

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    std::unique_ptr<frmOptions> dialog;
};

QTEST_MAIN(TestOptions)
#include "test_options.moc"
