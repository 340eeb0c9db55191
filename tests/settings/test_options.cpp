// The "Advanced Options" dialog: what it shows on opening, the reset of the genetics
// drawer, and what Close and Cancel leave in the session.
#include "core/Session.h"
#include "settings/frmOptions.h"
#include "support/ShownText.h"
#include "support/TestEnv.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {
const QString Company = QStringLiteral("Kelmoth Technology");
const QString Product = QStringLiteral("Arkenfold 2");
const QString Genetics = QStringLiteral("Genetics Directory");
} // namespace

class TestOptions : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        sandbox.reset(new SettingsSandbox);
        prompt.Clear();
        session.reset(new Session(prompt));
        session->AppDirectory = sandbox->path() + QStringLiteral("/app/");
        sandbox->SetGameValue(Company, Product, QStringLiteral("1.0"), Genetics, QStringLiteral("/games/genetics/"));
        sandbox->SetGameValue(QStringLiteral("Co"), QStringLiteral("Prod"), QStringLiteral("7.0"), Genetics,
                              QStringLiteral("/seven/"));
    }

    void cleanup()
    {
        dialog.reset();
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
    }

    void openingShowsTheSession()
    {
        // The boxes show the value of each string modulo 2; the drawer is "" before any genome dialog.
        session->RegistryCompany = QStringLiteral("Co");
        session->RegistryVersion = QStringLiteral("9.9");
        session->RegistryProduct = QStringLiteral("Prod");
        const char *cases[][4] = {{"1", "0", "", ""}, {"2", "3", "/pets/", "/pets/"}};
        for (auto [captions, compatibility, folder, drawer] : cases) {
            session->UseDefaultCaptions = QString::fromLatin1(captions);
            session->CompatibilityMode = QString::fromLatin1(compatibility);
            session->LastGenomeDirectory = QString::fromLatin1(folder);
            Open();
            QCOMPARE(QList<bool>({Check("DefaultCaptionsCheckBox")->isChecked(),
                                  Check("CompatibilityCheckBox")->isChecked()}),
                     QList<bool>({*captions == '1', *compatibility == '3'}));
            QCOMPARE(Drawer()->text(), QString::fromLatin1(drawer));
        }
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Advanced Options"));
        QVERIFY(!dialog->isModal());
        QCOMPARE(QStringList({Field("RegistryCompany")->text(), Field("RegistryVersion")->text(),
                              Field("RegistryProduct")->text()}), QStringList({"Co", "9.9", "Prod"}));
    }

    void resetWithAndWithoutTheGameSetting()
    {
        session->LastGenomeDirectory = QStringLiteral("/pets/");
        Open();
        Button("ResetToRegistryButton")->click();
        QCOMPARE(Drawer()->text(), QStringLiteral("/games/genetics/"));
        // The reset reads under the key the session holds, not the one typed into the dialog.
        session->RegistryVersion = QStringLiteral("3.0");
        Field("RegistryVersion")->setText(QStringLiteral("7.0"));
        prompt.AnswerMessage(Prompt::Ok);
        Button("ResetToRegistryButton")->click();
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 16, "Error reading registry key -- defaulting\r\n"
                                                                       "to current directory."));
        QCOMPARE(Drawer()->text(), session->AppDirectory);
        // The session keeps its folder until Close.
        QCOMPARE(session->LastGenomeDirectory, QStringLiteral("/pets/"));
    }

    void closeTakesEverythingOverCancelNothing()
    {
        QList<QStringList> after;
        for (const char *button : {"CancelCommand", "CloseCommand"}) {
            dialog.reset();
            session.reset(new Session(prompt));
            session->UseDefaultCaptions = QStringLiteral("3");
            session->LastGenomeDirectory = QStringLiteral("/pets/");
            Open();
            dialog->show();
            Check("DefaultCaptionsCheckBox")->setChecked(false);
            Check("CompatibilityCheckBox")->setChecked(true);
            Button("ResetToRegistryButton")->click();
            Field("RegistryCompany")->setText(QStringLiteral("Co"));
            Field("RegistryVersion")->setText(QStringLiteral("7.0"));
            Field("RegistryProduct")->setText(QStringLiteral("Prod"));
            Button(button)->click();
            QVERIFY(!dialog->isVisible());
            after << Values();
        }
        // Cancel took nothing over; Close took everything, and the very next read uses the new key.
        QCOMPARE(after[0], QStringList({"3", "0", Company, "1.0", Product, "/pets/"}));
        QCOMPARE(after[1], QStringList({"0", "1", "Co", "7.0", "Prod", "/games/genetics/"}));
        QCOMPARE(session->ReadGameSetting(Genetics), QStringLiteral("/seven/"));
    }

private:
    void Open() { dialog.reset(new frmOptions(*session)); }

    QStringList Values() const
    {
        return {session->UseDefaultCaptions, session->CompatibilityMode, session->RegistryCompany,
                session->RegistryVersion,    session->RegistryProduct,   session->LastGenomeDirectory};
    }

    template <typename T> T *Named(const char *name)
    {
        T *w = dialog->findChild<T *>(QString::fromLatin1(name));
        if (!w)
            qFatal("no control named %s", name);
        return w;
    }
    QCheckBox *Check(const char *name) { return Named<QCheckBox>(name); }
    QLineEdit *Field(const char *name) { return Named<QLineEdit>(name); }
    QPushButton *Button(const char *name) { return Named<QPushButton>(name); }
    QLabel *Drawer() { return Named<QLabel>("GeneticsDrawerLabel"); }

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    std::unique_ptr<frmOptions> dialog;
};

QTEST_MAIN(TestOptions)
#include "test_options.moc"
