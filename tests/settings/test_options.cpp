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
    void init()
    {
        FreshSession(sandbox, prompt, session);
        session->AppDirectory = sandbox->path() + QStringLiteral("/app/");
    }

    void cleanup()
    {
        dialog.reset();
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
    }

    // Without the game's setting the reset says so and puts the program's folder in the drawer.
    void resetWithoutTheGameSetting()
    {
        Open();
        prompt.AnswerMessage(Prompt::Ok);
        Click("ResetToRegistryButton");
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 16, "Error reading registry key -- defaulting\r\n"
                                                                       "to current directory."));
        QCOMPARE(Drawer(), session->AppDirectory);
    }

    // On opening the boxes show the value of each string modulo 2, the drawer the last genome folder.
    // Cancel takes nothing over; Close takes everything, and the very next read uses the new key.
    // The reset reads under the key the session holds, not the one typed into the dialog.
    void openThenCloseOrCancel()
    {
        sandbox->SetGameValue("Kelmoth Technology", "Arkenfold 2", "9.9", "Genetics Directory", "/games/genetics/");
        sandbox->SetGameValue("Co", "Prod", "7.0", "Genetics Directory", "/seven/");
        QList<QStringList> after;
        for (const char *button : {"CancelCommand", "CloseCommand"}) {
            dialog.reset();
            session.reset(new Session(prompt));
            session->UseDefaultCaptions = QStringLiteral("3");
            session->CompatibilityMode = QStringLiteral("2");
            session->LastGenomeDirectory = QStringLiteral("/pets/");
            session->RegistryVersion = QStringLiteral("9.9");
            Open();
            dialog->show();
            QCOMPARE(QList<bool>({Check("DefaultCaptionsCheckBox")->isChecked(),
                                  Check("CompatibilityCheckBox")->isChecked(), dialog->isModal()}),
                     QList<bool>({true, false, false}));
            QCOMPARE(QStringList({dialog->windowTitle(), Drawer(), Field("RegistryCompany")->text(),
                                  Field("RegistryVersion")->text(), Field("RegistryProduct")->text()}),
                     QStringList({"Advanced Options", "/pets/", "Kelmoth Technology", "9.9", "Arkenfold 2"}));
            Check("DefaultCaptionsCheckBox")->setChecked(false);
            Check("CompatibilityCheckBox")->setChecked(true);
            for (auto [field, text] :
                 {std::pair("RegistryCompany", "Co"), {"RegistryVersion", "7.0"}, {"RegistryProduct", "Prod"}})
                Field(field)->setText(QString::fromLatin1(text));
            Click("ResetToRegistryButton");
            Click(button);
            QVERIFY(!dialog->isVisible());
            after << QStringList({session->UseDefaultCaptions.Text(), session->CompatibilityMode.Text(), session->RegistryCompany,
                                  session->RegistryVersion, session->RegistryProduct, session->LastGenomeDirectory});
        }
        QCOMPARE(after, QList<QStringList>({{"3", "2", "Kelmoth Technology", "9.9", "Arkenfold 2", "/pets/"},
                                            {"0", "1", "Co", "7.0", "Prod", "/games/genetics/"}}));
        QCOMPARE(session->ReadGameSetting(QStringLiteral("Genetics Directory")), QStringLiteral("/seven/"));
    }

private:
    void Open() { dialog.reset(new frmOptions(*session)); }
    template <typename T> T *Named(const char *name) { return dialog->findChild<T *>(QString::fromLatin1(name)); }
    QCheckBox *Check(const char *name) { return Named<QCheckBox>(name); }
    QLineEdit *Field(const char *name) { return Named<QLineEdit>(name); }
    void Click(const char *name) { Named<QPushButton>(name)->click(); }
    QString Drawer() { return Named<QLabel>("GeneticsDrawerLabel")->text(); }

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    std::unique_ptr<frmOptions> dialog;
};

QTEST_MAIN(TestOptions)
#include "test_options.moc"
