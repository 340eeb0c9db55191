// The pigment, pigment bleed, organ and brain organ editors: every field in its own control
// and back, the sliders' large step and read-outs (those an opening moves from 128, each
// move, none for the life force), the number boxes tidied on every change, and a pigment no
// item names kept. Dialog names, F1 and what Close and Cancel keep are in test_every_editor.
#include "EditorTestKit.h"
#include "core/genes/BodyGenes.h"
#include "editors/frmColour.h"

// The body fields of a gene of the four kinds, in the order their controls are listed below.
static QList<quint8 *> Fields(Gene *g)
{
    if (auto *c = dynamic_cast<clsColour *>(g))
        return {&c->Pigment, &c->Intensity};
    if (auto *b = dynamic_cast<clsColourBleed *>(g))
        return {&b->Rotation, &b->Swap};
    auto *o = static_cast<OrganGene *>(g);
    return {&o->ClockRate, &o->LTRateChange, &o->LifeForce, &o->BiotickStartValue, &o->ATPDamageCoefficient};
}

// A kind; its fields as stored, the read-out that opening leaves, what the user enters in
// the first controls and what each control then shows and Close stores in every field.
struct Row {
    int type, subType; QStringList controls; QList<int> stored; QString opened; QStringList entered; QList<int> kept; };

class TestColourOrgan : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    void fields_data()
    {
        QTest::addColumn<Row>("row");
        const QStringList organ = {"scrClockRate", "scrLTRateChange", "scrLifeForce", "BioTickText", "ATPText"};
        QTest::newRow("pigment") << Row{2, 6, {"lstPigment", "scrIntensity"}, {2, 7}, "Slider: 7", {"1", "250"}, {1, 250}};
        // A pigment beyond the three items (a load folds it; a gene made otherwise holds it).
        QTest::newRow("pigment no item names") << Row{2, 6, {}, {3, 7}, "Slider: 7", {}, {3, 7}};
        QTest::newRow("pigment bleed") << Row{2, 7, {"scrRotation", "scrSwap"}, {0, 128}, "Slider: 0", {"255", "3"}, {255, 3}};
        QTest::newRow("organ, 999 and -7 typed") << Row{3, 0, organ, {1, 2, 3, 4, 5}, "Slider: 2",
                                                        {"255", "16", "77", "999", "-7"}, {255, 16, 77, 255, 7}};
        QTest::newRow("brain organ, abc and 12.5 typed") << Row{0, 1, organ, {250, 128, 0, 255, 6}, "Slider: 250",
                                                                {"0", "30", "40", "abc", "12.5"}, {0, 30, 40, 0, 12}};
    }
    void fields()
    {
        QFETCH(Row, row);
        Gene *g = kit.Add(row.type, row.subType);
        for (int k = 0; k < row.stored.size(); ++k)
            *Fields(g)[k] = quint8(row.stored[k]);
        GeneEditor *e = kit.Open(g);
        QCOMPARE(kit.session->StatusPanel[2], row.opened);
        for (int k = 0; k < row.controls.size(); ++k) {
            QWidget *w = Child<QWidget>(e, row.controls[k]);
            const char *value = w->inherits("QAbstractSlider") ? "value" : w->inherits("QComboBox") ? "currentIndex" : "text";
            QCOMPARE(w->property(value).toInt(), row.stored[k]);
            if (auto *bar = qobject_cast<QAbstractSlider *>(w))
                QCOMPARE(bar->pageStep(), 16);
            kit.session->SetStatusPanel(2, QString());
            w->setProperty(value, row.entered[k]);
            QCOMPARE(w->property(value).toString(), QString::number(row.kept[k]));
            const bool readout = w->inherits("QAbstractSlider") && row.controls[k] != "scrLifeForce";
            QCOMPARE(kit.session->StatusPanel[2], readout ? "Slider: " + row.entered[k] : QString());
        }
        e->btnOk->click();
        for (int k = 0; k < row.kept.size(); ++k)
            QCOMPARE(int(*Fields(g)[k]), row.kept[k]);
    }
};

QTEST_MAIN(TestColourOrgan)
#include "test_colour_organ.moc"
