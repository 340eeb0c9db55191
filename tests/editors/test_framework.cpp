// What every gene editor shares: the header panel's binding, the ways out, the count and the
// main title, the cascade, the organ label, chemical combos, slider read-outs, notes, F1.
#include "app/Placement.h"
#include "core/Gene.h"
#include "core/Session.h"
#include "editors/EditorCommon.h"
#include "editors/EditorRegistry.h"
#include "editors/GeneEditor.h"
#include "editors/GeneHeaderPanel.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"
#include "views/GeneNotesForm.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTextEdit>
#include <QtTest>

namespace {
void FlushDeletes() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

template <typename T> T *Child(QWidget *w, const char *name)
{
    T *c = w->findChild<T *>(QLatin1String(name));
    if (!c)
        qWarning("no control %s", name);
    return c;
}

// A time slider whose thumb position can be asked of the style.
class ProbeSlider : public TimeSlider
{
public:
    using TimeSlider::TimeSlider;
    int ThumbCentre()
    {
        QStyleOptionSlider opt;
        initStyleOption(&opt);
        return style()->subControlRect(QStyle::CC_ScrollBar, &opt, QStyle::SC_ScrollBarSlider, this).center().x();
    }
};
} // namespace

class TestFramework : public QObject
{
    Q_OBJECT

    std::unique_ptr<SettingsSandbox> sandbox;
    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    std::unique_ptr<QWidget> mainWindow;

    Gene *Add(int type, int subType, const QString &caption = QString())
    {
        if (!session->CreateGene(quint8(type), quint8(subType), false))
            return nullptr;
        Gene *g = session->GeneAt(session->GeneCount - 1);
        g->ID = quint8(session->GeneCount);
        if (!caption.isNull())
            session->CaptionStore.SetCaption(type, subType, g->ID, caption);
        return g;
    }
    static GeneEditor *EditorOf(Gene *g) { return g ? dynamic_cast<GeneEditor *>(g->View) : nullptr; }

private slots:
    void init()
    {
        sandbox.reset(new SettingsSandbox);
        prompt.Clear();
        session.reset(new Session(prompt));
        session->AppDirectory = sandbox->path();
        session->Tables.Build();
        mainWindow.reset(new QWidget);
        mainWindow->resize(300, 200);
        mainWindow->move(40, 30);
        RegisterEditors(*session, mainWindow.get());
    }

    void cleanup()
    {
        session->CloseAllViews();
        FlushDeletes();
        session.reset();
        mainWindow.reset();
        QVERIFY(prompt.AllAnswered());
    }

    void headerShowsTheGene()
    {
        Gene *g = Add(2, 3);
        g->SwitchOn = 4;
        g->Mutability = 1 | 8 | 16 | 32; // both sexes set: male wins
        g->MutabilityWeighting = 77;
        g->OpenView();
        GeneEditor *e = EditorOf(g);
        QVERIFY(e);
        QCOMPARE(e->objectName(), QStringLiteral("frmPose"));
        QCOMPARE(e->Owner, g);
        QVERIFY(e->isVisible());

        auto *lst = Child<QComboBox>(e, "lstSwitchOn");
        QCOMPARE(lst->count(), 7);
        QCOMPARE(lst->itemText(0), QStringLiteral("Embryo"));
        QCOMPARE(lst->itemText(6), QStringLiteral("Senile"));
        QCOMPARE(lst->currentIndex(), 4);
        QVERIFY(Child<QCheckBox>(e, "chkMutable")->isChecked());
        QVERIFY(!Child<QCheckBox>(e, "chkDuplicable")->isChecked());
        QVERIFY(!Child<QCheckBox>(e, "chkRemovable")->isChecked());
        QVERIFY(Child<QCheckBox>(e, "chkIgnore")->isChecked());
        QVERIFY(Child<QRadioButton>(e, "optSex_1")->isChecked());
        QCOMPARE(Child<QLineEdit>(e, "txtMutability")->text(), QStringLiteral("77"));

        // Close keeps male only, with the other flags as they show.
        Child<QCheckBox>(e, "chkDuplicable")->setChecked(true);
        Child<QPushButton>(e, "btnOk")->click();
        QCOMPARE(int(g->Mutability), 1 | 2 | 8 | 32);
        QCOMPARE(int(g->MutabilityWeighting), 77);
        QCOMPARE(int(g->SwitchOn), 4);

        // Female only shows F; B stores neither bit.
        g->Mutability = 16;
        g->OpenView();
        e = EditorOf(g);
        QVERIFY(Child<QRadioButton>(e, "optSex_2")->isChecked());
        QVERIFY(!Child<QCheckBox>(e, "chkMutable")->isChecked());
        Child<QRadioButton>(e, "optSex_0")->setChecked(true);
        Child<QComboBox>(e, "lstSwitchOn")->setCurrentIndex(6);
        e->close();
        QCOMPARE(int(g->Mutability), 0);
        QCOMPARE(int(g->SwitchOn), 6);
    }

    void mutabilityText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("stored");
        QTest::newRow("1000 wraps") << "1000" << 232;
        QTest::newRow("300 wraps") << "300" << 44;
        QTest::newRow("half to even down") << "2.5" << 2;
        QTest::newRow("design dash") << "-" << 0;
        QTest::newRow("leading number") << "12ab" << 12;
        QTest::newRow("negative folds up") << "-1" << 255;
    }

    void mutabilityText()
    {
        QFETCH(QString, text);
        QFETCH(int, stored);
        Gene *g = Add(1, 3);
        g->MutabilityWeighting = 9;
        g->OpenView();
        GeneEditor *e = EditorOf(g);
        Child<QLineEdit>(e, "txtMutability")->setText(text);
        // Nothing tidies the box while typing.
        QCOMPARE(Child<QLineEdit>(e, "txtMutability")->text(), text);
        Child<QPushButton>(e, "btnOk")->click();
        QCOMPARE(int(g->MutabilityWeighting), stored);
    }

    void everyWayOutRunsCloseViewOnce()
    {
        QSignalSpy rows(session.get(), &Session::GeneRowChanged);
        Gene *g = Add(2, 6);
        g->SwitchOn = 1;

        // Cancel drops the change and leaves WriteChanges set again.
        g->OpenView();
        QPointer<GeneEditor> e = EditorOf(g);
        Child<QComboBox>(e, "lstSwitchOn")->setCurrentIndex(3);
        Child<QPushButton>(e, "btnCancel")->click();
        QCOMPARE(int(g->SwitchOn), 1);
        QVERIFY(g->WriteChanges && !g->IsOpen && !g->View);
        QCOMPARE(session->EditorCount, qint16(0));
        QCOMPARE(rows.count(), 1);
        QCOMPARE(rows.last().at(0).toInt(), int(g->Numeric_ID));
        FlushDeletes();
        QVERIFY(e.isNull());

        // The close box keeps the change, as Close does.
        g->OpenView();
        e = EditorOf(g);
        Child<QComboBox>(e, "lstSwitchOn")->setCurrentIndex(3);
        QVERIFY(e->close());
        QCOMPARE(int(g->SwitchOn), 3);
        QCOMPARE(rows.count(), 2);
        // A second close of a dialog on its way out reaches the gene no more.
        e->close();
        QCOMPARE(rows.count(), 2);
        QCOMPARE(session->EditorCount, qint16(0));
        FlushDeletes();
        QVERIFY(e.isNull());

        // Closing all editors keeps what each shows and closes each once.
        Gene *h = Add(2, 7);
        g->OpenView();
        h->OpenView();
        Child<QComboBox>(EditorOf(g), "lstSwitchOn")->setCurrentIndex(5);
        Child<QComboBox>(EditorOf(h), "lstSwitchOn")->setCurrentIndex(2);
        QPointer<GeneEditor> eh = EditorOf(h);
        session->CloseAllViews();
        QCOMPARE(int(g->SwitchOn), 5);
        QCOMPARE(int(h->SwitchOn), 2);
        QCOMPARE(rows.count(), 4);
        QCOMPARE(session->EditorCount, qint16(0));
        FlushDeletes();
        QVERIFY(eh.isNull());
    }

    void openingAnOpenGeneOnlyFocusesIt()
    {
        Gene *g = Add(2, 2, QStringLiteral("Arms"));
        g->OpenView();
        GeneEditor *e = EditorOf(g);
        const QPoint placed = e->pos();
        const QString title = e->windowTitle();
        const qint16 step = session->PlacementStep;
        Child<QLineEdit>(e, "txtMutability")->setText(QStringLiteral("42"));
        g->WriteChanges = false; // as if a Cancel were half done

        g->OpenView();
        QCOMPARE(EditorOf(g), e);
        QVERIFY(g->WriteChanges);
        QCOMPARE(session->EditorCount, qint16(1));
        QCOMPARE(session->PlacementStep, step);
        QCOMPARE(e->pos(), placed);
        QCOMPARE(e->windowTitle(), title);
        // Not refilled: the edit is still there.
        QCOMPARE(Child<QLineEdit>(e, "txtMutability")->text(), QStringLiteral("42"));
    }

    void countAndMainTitle()
    {
        QVERIFY(session->CreateGene(2, 3, false));
        QVERIFY(session->CreateGene(2, 4, false));
        QVERIFY(session->CreateGene(2, 5, false));
        session->CountEditorWindow(nullptr);
        QCOMPARE(session->EditorCount, qint16(0));
        QCOMPARE(session->MainTitle, QStringLiteral("Helixbench (no windows open)"));

        session->GeneAt(0)->OpenView();
        QCOMPARE(session->MainTitle, QStringLiteral("Helixbench (1 window open)"));
        QVERIFY(session->StatusPanel[2].endsWith(QStringLiteral("% genome space remaining")));
        session->GeneAt(1)->OpenView();
        session->GeneAt(2)->OpenView();
        QCOMPARE(session->MainTitle, QStringLiteral("Helixbench ( 3 windows open)"));
        QCOMPARE(session->EditorCount, qint16(3));

        EditorOf(session->GeneAt(1))->close();
        QCOMPARE(session->MainTitle, QStringLiteral("Helixbench ( 2 windows open)"));
        session->CloseAllViews();
        QCOMPARE(session->MainTitle, QStringLiteral("Helixbench (no windows open)"));
        QCOMPARE(session->EditorCount, qint16(0));
    }

    void editorTitle()
    {
        for (int i = 0; i < 12; ++i)
            QVERIFY(session->CreateGene(2, 6, false));
        Gene *g = Add(2, 3, QStringLiteral("007 Sitting - Pose"));
        QCOMPARE(int(g->Numeric_ID), 12);
        g->OpenView();
        QCOMPARE(EditorOf(g)->windowTitle(), QStringLiteral("(# 12) 007 Sitting - Pose (Creature: Pose)"));
    }

    void cascadeWrapsAndStaysOnScreen()
    {
        const int step = Placement::TwipsToPixels(240, mainWindow.get());
        QList<Gene *> genes;
        for (int i = 0; i < 12; ++i)
            genes << Add(2, 6);
        for (int i = 0; i < 12; ++i) {
            // The main window's outer corner, frame included, when the editor is placed.
            const QPoint corner = mainWindow->frameGeometry().topLeft();
            genes[i]->OpenView();
            const int k = i % 11; // steps 0 to 10, then 0 again
            QCOMPARE(EditorOf(genes[i])->pos(), corner + QPoint(step * (k + 2), step * (k + 2)));
        }
        QCOMPARE(session->PlacementStep, qint16(0));
        session->CloseAllViews();

        // Near the bottom right corner of the screen the editor is pulled back onto it.
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        mainWindow->move(screen.right() - 20, screen.bottom() - 20);
        Gene *g = Add(2, 7);
        g->OpenView();
        GeneEditor *e = EditorOf(g);
        // Placed before it is first shown, when its size is that of its client area.
        const QSize size = e->geometry().size();
        QCOMPARE(e->pos(), QPoint(screen.right() + 1 - size.width(), screen.bottom() + 1 - size.height()));
    }

    void organLabel()
    {
        Gene *early = Add(1, 0);                             // before any organ
        Add(3, 0, QStringLiteral("001 Heart - Organ"));
        Gene *receptor = Add(1, 0);
        Add(0, 1, QStringLiteral("002 Brain organ"));        // a brain organ counts too
        Gene *emitter = Add(1, 1);
        Gene *reaction = Add(1, 2);
        Gene *halfLife = Add(1, 3);

        early->OpenView();
        receptor->OpenView();
        emitter->OpenView();
        reaction->OpenView();
        halfLife->OpenView();
        QCOMPARE(Child<QLabel>(EditorOf(early), "OrganIDLabel")->text(), QStringLiteral("[no organ] "));
        QCOMPARE(Child<QLabel>(EditorOf(receptor), "OrganIDLabel")->text(), QStringLiteral("001 Heart - Organ "));
        QCOMPARE(Child<QLabel>(EditorOf(emitter), "OrganIDLabel")->text(), QStringLiteral("002 Brain organ "));
        QCOMPARE(Child<QLabel>(EditorOf(reaction), "OrganIDLabel")->text(), QStringLiteral("002 Brain organ "));
        QVERIFY(!EditorOf(halfLife)->findChild<QLabel *>(QStringLiteral("OrganIDLabel")));
    }

    void chemicalLists()
    {
        session->Lists.ChemicalNames[17] = QString();
        session->Lists.ChemicalNames[18] = QStringLiteral("Glucose");
        ChemicalCombo combo(*session);
        QSignalSpy changed(&combo, &QComboBox::currentIndexChanged);
        FillChemicalList(*session, &combo);
        QCOMPARE(combo.count(), 256);
        QCOMPARE(combo.itemText(0), QStringLiteral("<nothing>"));
        QCOMPARE(combo.itemText(17), QStringLiteral("17"));
        QCOMPARE(combo.itemText(18), QStringLiteral("Glucose"));
        QCOMPARE(changed.count(), 0);
        combo.setCurrentIndex(17);
        QCOMPARE(changed.count(), 1);

        // A renamed chemical shows when the combo next drops down, still selected.
        session->Lists.ChemicalNames[17] = QStringLiteral("Starch");
        QCOMPARE(combo.itemText(17), QStringLiteral("17"));
        combo.showPopup();
        QCOMPARE(combo.itemText(17), QStringLiteral("Starch"));
        QCOMPARE(combo.currentIndex(), 17);
        QCOMPARE(changed.count(), 1);
        combo.hidePopup();
    }

    void sliderReadouts()
    {
        ShowSlider(*session, 5);
        QCOMPARE(session->StatusPanel[2], QStringLiteral("Slider: 5"));

        ProbeSlider time(*session, QStringLiteral("scrTest"));
        time.resize(200, 16);
        time.setValue(31);
        QCOMPARE(session->StatusPanel[2], QStringLiteral("Slider: 248 (Max to 0 in apprx. 52 years)"));
        QCOMPARE(time.StoredValue(), 248);
        const int left = time.ThumbCentre();
        time.setValue(0);
        QCOMPARE(session->StatusPanel[2], QStringLiteral("Slider: 0 (Max to 0 in apprx. Instantly)"));
        QVERIFY2(left < time.ThumbCentre(), "position 31 stands at the left end");

        time.SetStoredValue(20);
        QCOMPARE(session->StatusPanel[2], QStringLiteral("Slider: 16 (Max to 0 in apprx. 1 sec)"));
    }

    void notesOutliveACancel()
    {
        Gene *g = Add(2, 4);
        g->OpenView();
        GeneEditor *e = EditorOf(g);
        bool driven = false;
        QTimer::singleShot(0, [&driven] {
            auto *form = qobject_cast<GeneNotesForm *>(QApplication::activeModalWidget());
            if (!form)
                return;
            form->NotesRichTextBox->setPlainText(QStringLiteral("Walks faster"));
            form->GeneNotesClose->click();
            driven = true;
        });
        Child<QPushButton>(e, "btnNotes")->click();
        QVERIFY(driven);
        const QString stored = session->CaptionStore.GetAnnotation(2, 4, g->ID);
        QVERIFY(stored.contains(QStringLiteral("Walks faster")));
        Child<QPushButton>(e, "btnCancel")->click();
        QCOMPARE(session->CaptionStore.GetAnnotation(2, 4, g->ID), stored);
    }

    void encodeTakesTheOpenEditor()
    {
        Gene *g = Add(2, 6);
        g->SwitchOn = 0;
        g->OpenView();
        Child<QComboBox>(EditorOf(g), "lstSwitchOn")->setCurrentIndex(2);
        session->EncodeGenome();
        QCOMPARE(int(g->SwitchOn), 2);
        // A later Cancel does not undo what the encode took.
        Child<QPushButton>(EditorOf(g), "btnCancel")->click();
        QCOMPARE(int(g->SwitchOn), 2);
    }

    void f1AndEscape()
    {
        Gene *instinct = Add(2, 5);
        instinct->OpenView();
        GeneEditor *e = EditorOf(instinct);
        QSignalSpy help(e, &GeneEditor::HelpRequested);
        QTest::keyClick(e, Qt::Key_F1);
        QCOMPARE(help.count(), 1);
        QCOMPARE(help.first().at(0).toInt(), 2002);
        // Escape is no way out: the editor stays open and counted.
        QTest::keyClick(e, Qt::Key_Escape);
        QVERIFY(instinct->IsOpen);
        QCOMPARE(session->EditorCount, qint16(1));
    }
};

QTEST_MAIN(TestFramework)
#include "test_framework.moc"
