// The pigment, pigment bleed, organ and brain organ editors: which dialog each kind opens
// and its help topic, every field through its control and back, the slider read-outs (and
// the one slider without), the number boxes tidied as typed, and a pigment no item names.
#include "EditorTestKit.h"
#include "core/genes/BodyGenes.h"
#include "editors/GeneHeaderPanel.h"
#include "editors/OrganEditor.h"
#include "editors/frmColour.h"

#include <QScrollBar>

namespace {

// The body fields of a gene of the four kinds, in the order their controls are listed below.
QList<quint8 *> Fields(Gene *g)
{
    if (auto *c = dynamic_cast<clsColour *>(g))
        return {&c->Pigment, &c->Intensity};
    if (auto *b = dynamic_cast<clsColourBleed *>(g))
        return {&b->Rotation, &b->Swap};
    if (auto *o = dynamic_cast<OrganGene *>(g))
        return {&o->ClockRate, &o->LTRateChange, &o->LifeForce, &o->BiotickStartValue, &o->ATPDamageCoefficient};
    return {};
}

QList<int> Values(Gene *g)
{
    QList<int> v;
    for (quint8 *f : Fields(g))
        v << *f;
    return v;
}

// What a control shows, as the number it stands for.
int Shown(QWidget *w)
{
    if (auto *s = qobject_cast<QAbstractSlider *>(w))
        return s->value();
    if (auto *c = qobject_cast<QComboBox *>(w))
        return c->currentIndex();
    if (auto *t = qobject_cast<QLineEdit *>(w))
        return t->text().toInt();
    return -1000;
}

// Sets a control as the user would leave it.
void Put(QWidget *w, int value)
{
    if (auto *s = qobject_cast<QAbstractSlider *>(w))
        s->setValue(value);
    else if (auto *c = qobject_cast<QComboBox *>(w))
        c->setCurrentIndex(value);
    else if (auto *t = qobject_cast<QLineEdit *>(w)) {
        t->selectAll();
        QTest::keyClicks(t, QString::number(value));
    }
}

const QString Marker = QStringLiteral("marker");

} // namespace

class TestColourOrgan : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    void dialogs_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subType");
        QTest::addColumn<QString>("dialog");
        QTest::addColumn<QString>("frame");
        QTest::addColumn<int>("topic");
        QTest::newRow("pigment") << 2 << 6 << "frmColour" << "Colour Information" << 2000;
        QTest::newRow("pigment bleed") << 2 << 7 << "frmColourBleed" << "Colour Information" << 2000;
        QTest::newRow("organ") << 3 << 0 << "frmOrgan" << "Header Information" << 2003;
        QTest::newRow("brain organ") << 0 << 1 << "frmBorgan" << "Header Information" << 2003;
    }
    // Each kind opens a dialog of its own class (so a brain organ is not shown by the organ's
    // dialog), under its name, with its frame, no organ label and its help topic.
    void dialogs()
    {
        QFETCH(int, type);
        QFETCH(int, subType);
        QFETCH(QString, dialog);
        QFETCH(QString, frame);
        QFETCH(int, topic);
        GeneEditor *e = kit.Open(kit.Add(type, subType));
        QVERIFY(e);
        QCOMPARE(QLatin1String(e->metaObject()->className()), dialog);
        QCOMPARE(e->objectName(), dialog);
        QStringList frames;
        for (QGroupBox *box : e->findChildren<QGroupBox *>())
            frames << box->title();
        QCOMPARE(frames, QStringList({"Gene Header", frame}));
        QVERIFY(!e->Header->OrganIDLabel);
        QSignalSpy help(e, &GeneEditor::HelpRequested);
        QTest::keyClick(e, Qt::Key_F1);
        QCOMPARE(help, QList<QVariantList>({{topic}}));
    }

    void fields_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subType");
        QTest::addColumn<QStringList>("controls");
        QTest::addColumn<QList<int>>("stored");
        QTest::addColumn<QList<int>>("changed");
        QTest::newRow("pigment") << 2 << 6 << QStringList{"lstPigment", "scrIntensity"} << QList<int>{2, 7}
                                 << QList<int>{1, 250};
        QTest::newRow("pigment bleed") << 2 << 7 << QStringList{"scrRotation", "scrSwap"} << QList<int>{3, 255}
                                       << QList<int>{200, 0};
        const QStringList organ = {"scrClockRate", "scrLTRateChange", "scrLifeForce", "BioTickText", "ATPText"};
        QTest::newRow("organ") << 3 << 0 << organ << QList<int>{1, 2, 3, 4, 5} << QList<int>{255, 0, 77, 200, 9};
        QTest::newRow("brain organ") << 0 << 1 << organ << QList<int>{250, 240, 0, 255, 6}
                                     << QList<int>{5, 15, 25, 35, 45};
    }
    // Each field shows in its own control; Close untouched keeps it, Cancel drops what was
    // changed, Close stores every change.
    void fields()
    {
        QFETCH(int, type);
        QFETCH(int, subType);
        QFETCH(QStringList, controls);
        QFETCH(QList<int>, stored);
        QFETCH(QList<int>, changed);
        Gene *g = kit.Add(type, subType);
        const QList<quint8 *> fields = Fields(g);
        QCOMPARE(fields.size(), controls.size());
        for (int k = 0; k < fields.size(); ++k)
            *fields[k] = quint8(stored[k]);

        GeneEditor *e = kit.Open(g);
        QList<int> shown;
        for (const QString &name : controls)
            shown << Shown(Child<QWidget>(e, name));
        QCOMPARE(shown, stored);
        e->btnOk->click();
        QCOMPARE(Values(g), stored);

        for (bool keep : {false, true}) {
            e = kit.Open(g);
            for (int k = 0; k < controls.size(); ++k)
                Put(Child<QWidget>(e, controls[k]), changed[k]);
            (keep ? e->btnOk : e->btnCancel)->click();
            QCOMPARE(Values(g), keep ? changed : stored);
        }
    }

    void readouts_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subType");
        QTest::addColumn<QString>("slider");
        QTest::addColumn<bool>("readout");
        QTest::newRow("intensity") << 2 << 6 << "scrIntensity" << true;
        QTest::newRow("rotation") << 2 << 7 << "scrRotation" << true;
        QTest::newRow("swap") << 2 << 7 << "scrSwap" << true;
        QTest::newRow("organ clock rate") << 3 << 0 << "scrClockRate" << true;
        QTest::newRow("organ vulnerability") << 3 << 0 << "scrLTRateChange" << true;
        QTest::newRow("organ life force") << 3 << 0 << "scrLifeForce" << false;
        QTest::newRow("brain organ vulnerability") << 0 << 1 << "scrLTRateChange" << true;
        QTest::newRow("brain organ life force") << 0 << 1 << "scrLifeForce" << false;
    }
    // A large step moves a slider by 16 and shows its value; the life force slider shows nothing.
    void readouts()
    {
        QFETCH(int, type);
        QFETCH(int, subType);
        QFETCH(QString, slider);
        QFETCH(bool, readout);
        Gene *g = kit.Add(type, subType);
        for (quint8 *f : Fields(g))
            *f = 100;
        auto *bar = Child<QScrollBar>(kit.Open(g), slider);
        kit.session->SetStatusPanel(2, Marker);
        bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
        QCOMPARE(bar->value(), 116);
        QCOMPARE(kit.session->StatusPanel[2], readout ? QStringLiteral("Slider: 116") : Marker);
    }

    // Filling the sliders runs the read-out of those that move from where they stand before
    // a gene is shown (128), as a user's move would.
    void openingShowsTheSlidersThatMove()
    {
        // A new pigment bleed gene: Rotation 0 moves its slider, Swap 128 does not.
        Gene *bleed = kit.Add(2, 7);
        auto *e = kit.Open(bleed);
        QCOMPARE(Child<QScrollBar>(e, "scrRotation")->value(), 0);
        QCOMPARE(kit.session->StatusPanel[2], QStringLiteral("Slider: 0"));

        // An organ whose only field away from 128 is the life force: no slider shows, and
        // the panel keeps the genome space figure that opening an editor writes there.
        auto *organ = static_cast<OrganGene *>(kit.Add(3, 0));
        organ->LTRateChange = 128, organ->LifeForce = 9;
        e = kit.Open(organ);
        QCOMPARE(Child<QScrollBar>(e, "scrLifeForce")->value(), 9);
        QVERIFY2(kit.session->StatusPanel[2].endsWith(QStringLiteral("genome space remaining")),
                 qPrintable(kit.session->StatusPanel[2]));
    }

    void numberBoxes_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subType");
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("input");
        QTest::addColumn<bool>("pasted");
        QTest::addColumn<QString>("shown");
        QTest::newRow("999 typed") << 3 << 0 << "BioTickText" << "999" << false << "255";
        QTest::newRow("1000 typed") << 0 << 1 << "ATPText" << "1000" << false << "255";
        QTest::newRow("minus falls away") << 3 << 0 << "ATPText" << "-7" << false << "7";
        QTest::newRow("letters") << 0 << 1 << "BioTickText" << "abc" << false << "0";
        QTest::newRow("point typed falls away") << 3 << 0 << "BioTickText" << "12.5" << false << "125";
        QTest::newRow("12.5 pasted rounds to even") << 0 << 1 << "ATPText" << "12.5" << true << "12";
        QTest::newRow("leading number of a paste") << 3 << 0 << "ATPText" << "42 apples" << true << "42";
        QTest::newRow("emptied") << 0 << 1 << "BioTickText" << "" << true << "0";
    }
    // A number box is tidied on every change, so it always holds a whole number from 0 to
    // 255, and Close stores that number.
    void numberBoxes()
    {
        QFETCH(int, type);
        QFETCH(int, subType);
        QFETCH(QString, box);
        QFETCH(QString, input);
        QFETCH(bool, pasted);
        QFETCH(QString, shown);
        auto *organ = static_cast<OrganGene *>(kit.Add(type, subType));
        organ->BiotickStartValue = 77, organ->ATPDamageCoefficient = 77;
        GeneEditor *e = kit.Open(organ);
        auto *text = Child<QLineEdit>(e, box);
        if (pasted) {
            text->setText(input);
        } else {
            text->selectAll();
            QTest::keyClicks(text, input);
        }
        QCOMPARE(text->text(), shown);
        e->btnOk->click();
        QCOMPARE(int(box == "ATPText" ? organ->ATPDamageCoefficient : organ->BiotickStartValue), shown.toInt());
        QCOMPARE(int(box == "ATPText" ? organ->BiotickStartValue : organ->ATPDamageCoefficient), 77);
    }

    void pigmentWithoutItem_data()
    {
        QTest::addColumn<int>("pigment");
        QTest::newRow("3") << 3;
        QTest::newRow("255") << 255;
    }
    // A pigment beyond the three items (a load folds it; a gene made otherwise can hold it)
    // selects nothing and stays through Close and an encode, until the user picks a pigment.
    void pigmentWithoutItem()
    {
        QFETCH(int, pigment);
        auto *g = static_cast<clsColour *>(kit.Add(2, 6));
        g->Pigment = quint8(pigment);
        auto *e = kit.Open<frmColour>(g);
        QCOMPARE(e->lstPigment->currentIndex(), -1);
        QCOMPARE(e->lstPigment->currentText(), QString());
        kit.session->EncodeGenome();
        QCOMPARE(int(g->Pigment), pigment);
        e->btnOk->click();
        QCOMPARE(int(g->Pigment), pigment);

        e = kit.Open<frmColour>(g);
        e->lstPigment->setCurrentIndex(2);
        e->btnOk->click();
        QCOMPARE(int(g->Pigment), 2);
    }
};

QTEST_MAIN(TestColourOrgan)
#include "test_colour_organ.moc"
