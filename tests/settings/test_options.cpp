// The "Advanced Options" dialog: what it shows on opening, the reset of the genetics
// drawer, and what Close and Cancel leave in the session.
#include "core/Session.h"
#include "settings/frmOptions.h"
#include "support/ScriptedPrompt.h"
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
    }

    void cleanup()
    {
        dialog.reset();
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
    }

    void openingShowsTheSession_data()
    {
        QTest::addColumn<QString>("captions");
        QTest::addColumn<QString>("compatibility");
        QTest::addColumn<bool>("captionsChecked");
        QTest::addColumn<bool>("compatibilityChecked");
        QTest::newRow("1 and 0") << QString("1") << QString("0") << true << false;
        QTest::newRow("0 and 1") << QString("0") << QString("1") << false << true;
        // The value of the string modulo 2.
        QTest::newRow("3 and 2") << QString("3") << QString("2") << true << false;
    }

    void openingShowsTheSession()
    {
        QFETCH(QString, captions);
        QFETCH(QString, compatibility);
        QFETCH(bool, captionsChecked);
        QFETCH(bool, compatibilityChecked);
        session->UseDefaultCaptions = captions;
        session->CompatibilityMode = compatibility;
        session->RegistryCompany = QStringLiteral("Co");
        session->RegistryVersion = QStringLiteral("9.9");
        session->RegistryProduct = QStringLiteral("Prod");
        Open();
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Advanced Options"));
        QCOMPARE(Check("DefaultCaptionsCheckBox")->isChecked(), captionsChecked);
        QCOMPARE(Check("CompatibilityCheckBox")->isChecked(), compatibilityChecked);
        QCOMPARE(Field("RegistryCompany")->text(), QStringLiteral("Co"));
        QCOMPARE(Field("RegistryVersion")->text(), QStringLiteral("9.9"));
        QCOMPARE(Field("RegistryProduct")->text(), QStringLiteral("Prod"));
        QVERIFY(!dialog->isModal());
        QVERIFY(prompt.shown.isEmpty());
    }

    void drawerLabelOverwritesItsDesignText()
    {
        // No genome file dialog used yet: "" rather than "(unset)".
        Open();
        QCOMPARE(Drawer()->text(), QString());
        dialog.reset();
        session->LastGenomeDirectory = QStringLiteral("/pets/");
        Open();
        QCOMPARE(Drawer()->text(), QStringLiteral("/pets/"));
    }

    void resetReadsTheGameSetting()
    {
        sandbox->SetGameValue(Company, Product, QStringLiteral("1.0"), Genetics, QStringLiteral("/games/genetics/"));
        Open();
        Button("ResetToRegistryButton")->click();
        QCOMPARE(Drawer()->text(), QStringLiteral("/games/genetics/"));
        QVERIFY(prompt.shown.isEmpty());
    }

    void resetWithoutTheGameSetting()
    {
        session->LastGenomeDirectory = QStringLiteral("/pets/");
        Open();
        prompt.AnswerMessage(Prompt::Ok);
        Button("ResetToRegistryButton")->click();
        QCOMPARE(prompt.shown.size(), 1);
        QCOMPARE(prompt.Last().text, QStringLiteral("Error reading registry key -- defaulting\r\nto current directory."));
        QCOMPARE(prompt.Last().style, 16);
        QCOMPARE(Drawer()->text(), session->AppDirectory);
        // The session keeps its folder until Close.
        QCOMPARE(session->LastGenomeDirectory, QStringLiteral("/pets/"));
    }

    void resetUsesTheKeyOfTheSession()
    {
        // The reset reads under the key the session holds, not the one typed into the dialog.
        sandbox->SetGameValue(Company, Product, QStringLiteral("2.0"), Genetics, QStringLiteral("/v2/"));
        Open();
        Field("RegistryVersion")->setText(QStringLiteral("2.0"));
        prompt.AnswerMessage(Prompt::Ok);
        Button("ResetToRegistryButton")->click();
        QCOMPARE(Drawer()->text(), session->AppDirectory);
    }

    void closeTakesEverythingOver()
    {
        sandbox->SetGameValue(Company, Product, QStringLiteral("1.0"), Genetics, QStringLiteral("/games/genetics/"));
        sandbox->SetGameValue(Company, Product, QStringLiteral("7.0"), Genetics, QStringLiteral("/seven/"));
        session->UseDefaultCaptions = QStringLiteral("3");
        Open();
        dialog->show();
        Check("DefaultCaptionsCheckBox")->setChecked(false);
        Check("CompatibilityCheckBox")->setChecked(true);
        Button("ResetToRegistryButton")->click();
        Field("RegistryCompany")->setText(Company);
        Field("RegistryVersion")->setText(QStringLiteral("7.0"));
        Field("RegistryProduct")->setText(Product);
        Button("CloseCommand")->click();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(session->UseDefaultCaptions, QStringLiteral("0"));
        QCOMPARE(session->CompatibilityMode, QStringLiteral("1"));
        QCOMPARE(session->RegistryCompany, Company);
        QCOMPARE(session->RegistryVersion, QStringLiteral("7.0"));
        QCOMPARE(session->RegistryProduct, Product);
        QCOMPARE(session->LastGenomeDirectory, QStringLiteral("/games/genetics/"));
        // The very next read looks under the new key.
        QCOMPARE(session->ReadGameSetting(Genetics), QStringLiteral("/seven/"));
        QVERIFY(prompt.shown.isEmpty());
    }

    void cancelTakesNothingOver()
    {
        sandbox->SetGameValue(Company, Product, QStringLiteral("1.0"), Genetics, QStringLiteral("/games/genetics/"));
        session->LastGenomeDirectory = QStringLiteral("/pets/");
        Open();
        dialog->show();
        Check("DefaultCaptionsCheckBox")->setChecked(true);
        Check("CompatibilityCheckBox")->setChecked(true);
        Button("ResetToRegistryButton")->click();
        QCOMPARE(Drawer()->text(), QStringLiteral("/games/genetics/"));
        Field("RegistryCompany")->setText(QStringLiteral("X"));
        Field("RegistryVersion")->setText(QStringLiteral("Y"));
        Field("RegistryProduct")->setText(QStringLiteral("Z"));
        Button("CancelCommand")->click();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(session->UseDefaultCaptions, QStringLiteral("0"));
        QCOMPARE(session->CompatibilityMode, QStringLiteral("0"));
        QCOMPARE(session->RegistryCompany, Company);
        QCOMPARE(session->RegistryVersion, QStringLiteral("1.0"));
        QCOMPARE(session->RegistryProduct, Product);
        QCOMPARE(session->LastGenomeDirectory, QStringLiteral("/pets/"));
    }

    void captionsOfTheControls()
    {
        Open();
        QCOMPARE(Check("DefaultCaptionsCheckBox")->text(), QStringLiteral("Use default caption files only"));
        QCOMPARE(Check("CompatibilityCheckBox")->text(), QStringLiteral("Load using Arkenfold 1 DNA-1 format"));
        QCOMPARE(Button("ResetToRegistryButton")->text(), QStringLiteral("&Reset to Arkenfold Setting"));
        QCOMPARE(Button("CloseCommand")->text(), QStringLiteral("&Close"));
        QCOMPARE(Button("CancelCommand")->text(), QStringLiteral("Cancel"));
        QStringList labels;
        for (QLabel *l : dialog->findChildren<QLabel *>())
            labels << l->text();
        QVERIFY(labels.contains(QStringLiteral("Current Genetics Drawer:")));
        QVERIFY(labels.contains(QStringLiteral("Press F1 now for an explanation of the above. DO NOT CHANGE THESE "
                                               "UNTIL YOU ARE AWARE OF THEIR FUNCTION")));
    }

private:
    void Open() { dialog.reset(new frmOptions(*session)); }

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
