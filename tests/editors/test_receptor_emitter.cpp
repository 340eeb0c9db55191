// The receptor and emitter editors: the organ, tissue and locus chain with the texts of its
// lists, the folding of a place beyond them on opening (kept even by Cancel), what Close
// stores of a place picked, the flag bits, which slider goes into which field, and values
// that no control can show.
#include "EditorTestKit.h"
#include "editors/AttachmentCombos.h"
#include "editors/frmEmitter.h"
#include "editors/frmReceptor.h"

namespace {

// The bytes both kinds share, by name; the sliders' fields in the order of their controls.
struct Shared
{
    quint8 *Organ, *Tissue, *Locus, *Chem, *Flags, *Slid[3];
};
Shared Fields(Gene *g)
{
    if (auto *r = dynamic_cast<clsReceptor *>(g))
        return {&r->Organ, &r->Tissue, &r->Locus, &r->Chem, &r->Flags, {&r->Threshold, &r->Nominal, &r->Gain}};
    auto *e = static_cast<clsEmitter *>(g);
    return {&e->Organ, &e->Tissue, &e->Locus, &e->Chem, &e->Flags, {&e->Threshold, &e->Rate, &e->Gain}};
}
// Organ, tissue, locus and flags.
QList<int> Place(Gene *g) { return {*Fields(g).Organ, *Fields(g).Tissue, *Fields(g).Locus, *Fields(g).Flags}; }

// The organ, tissue and locus shown, "index:text" each ("-1:" for none), then the flag
// controls, 1 for each checked or selected: receptor chkFlags_0, chkFlags_1; emitter
// chkFlags, optAnalogue, optDigital, chkInvert.
QString Shown(QWidget *e)
{
    QStringList shown;
    for (const char *name : {"lstOrgan", "lstTissue", "lstLocus"})
        if (auto *c = Child<QComboBox>(e, QLatin1String(name)))
            shown << QString::number(c->currentIndex()) + ":" + c->currentText();
    QString flags;
    for (const char *name : {"chkFlags_0", "chkFlags_1", "chkFlags", "optAnalogue", "optDigital", "chkInvert"})
        if (auto *b = e->findChild<QAbstractButton *>(QLatin1String(name)))
            flags += b->isChecked() ? '1' : '0';
    return (shown << flags).join('|');
}

} // namespace

class TestReceptorEmitter : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

    // A gene with its organ, tissue, locus and flags.
    Gene *AddGene(bool emitter, QList<int> place = {0, 0, 0, 0})
    {
        Gene *g = kit.Add(1, emitter ? 1 : 0);
        Shared f = Fields(g);
        *f.Organ = quint8(place[0]), *f.Tissue = quint8(place[1]), *f.Locus = quint8(place[2]), *f.Flags = quint8(place[3]);
        return g;
    }

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    // What each list offers, by what a place shows when it opens: a tissue or locus beyond
    // its list shows the last item and goes into the gene at once, so Cancel keeps it, and
    // Close stores what is shown. The brain receptor list goes on by rule from item 59 to
    // item 255. An organ beyond the three targets shows nothing and is kept, as are the
    // bytes below it. The flag controls show their bits, and only the bits with a control
    // survive Close.
    void openingAndClosing_data()
    {
        QTest::addColumn<bool>("emitter");
        QTest::addColumn<QList<int>>("stored"); // organ, tissue, locus, flags
        QTest::addColumn<QList<int>>("opened"); // in the gene once the editor has opened
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("closedFlags");
        using L = QList<int>;
        QTest::newRow("receptor gait 30, flags 8") << false << L{1, 4, 30, 8} << L{1, 4, 23, 8} << "1:Creature|4:Sensorimotor|23:Special gait 15|00" << 0;
        QTest::newRow("receptor tissue 9, flags 0xFF") << false << L{1, 9, 20, 0xFF} << L{1, 5, 16, 0xFF} << "1:Creature|5:Drive levels|16:STRESS|11" << 3;
        QTest::newRow("receptor brain 59, flags 0xF6") << false << L{0, 7, 59, 0xF6} << L{0, 7, 59, 0xF6} << "0:Brain|7:Attention/Seek o/ps|59:Cell(40) State|01" << 2;
        QTest::newRow("receptor brain 255") << false << L{0, 3, 255, 1} << L{0, 3, 255, 1} << "0:Brain|3:Verb i/ps|255:Cell(236) State|10" << 1;
        QTest::newRow("receptor organ 2 tissue 7") << false << L{2, 7, 9, 0} << L{2, 0, 2, 0} << "2:Current Organ|0:<no tissue>|2:Injury|00" << 0;
        QTest::newRow("emitter brain 100, flags 0xFF") << true << L{0, 0, 100, 0xFF} << L{0, 0, 42, 0xFF} << "0:Brain|0:Perceptible i/ps|42:Cell(39) Output|1011" << 7;
        QTest::newRow("emitter lobe 200, flags 0xF9") << true << L{0, 200, 0, 0xF9} << L{0, 31, 0, 0xF9} << "0:Brain|31:Lobe 31|0:Lobe activity|1100" << 1;
        QTest::newRow("emitter organ 2 locus 9, flags 6") << true << L{2, 0, 9, 6} << L{2, 0, 2, 6} << "2:Current Organ|0:<no tissue>|2:Life force|0011" << 6;
        QTest::newRow("emitter immune 1, flags 2") << true << L{1, 3, 1, 2} << L{1, 3, 0, 2} << "1:Creature|3:Immune|0:I'm dead (post-mortem chemistry)|0010" << 2;
        QTest::newRow("emitter reproductive 5") << true << L{1, 2, 5, 0} << L{1, 2, 1, 0} << "1:Creature|2:Reproductive|1:I am pregnant (egg&sperm ready)|0100" << 0;
        QTest::newRow("emitter sensorimotor 200") << true << L{1, 4, 200, 0} << L{1, 4, 13, 0} << "1:Creature|4:Sensorimotor|13:Speed of wind coming from behind|0100" << 0;
        QTest::newRow("emitter organ 5 kept") << true << L{5, 40, 200, 0} << L{5, 40, 200, 0} << "-1:|-1:|-1:|0100" << 0;
    }
    void openingAndClosing()
    {
        QFETCH(bool, emitter);
        QFETCH(QList<int>, stored);
        QFETCH(QList<int>, opened);
        Gene *g = AddGene(emitter, stored);
        GeneEditor *e = kit.Open(g);
        QCOMPARE(Place(g), opened); // before any close
        QTEST(Shown(e), "shown");
        e->btnCancel->click();
        QCOMPARE(Place(g), opened);
        kit.Open(g)->btnOk->click();
        QFETCH(int, closedFlags);
        QCOMPARE(Place(g), opened.mid(0, 3) << closedFlags);
    }

    // Any change of organ or tissue sets the levels below to their first item; the current
    // organ's one tissue leaves its locus as it stands.
    void chainResetsTheLevelsBelow()
    {
        auto *e = kit.Open<frmReceptor>(AddGene(false, {1, 4, 10, 0}));
        e->lstOrgan->setCurrentIndex(0);
        QCOMPARE(Shown(e), QStringLiteral("0:Brain|0:Perceptible i/ps|0:Threshold|00"));
        e->lstLocus->setCurrentIndex(70);
        e->lstTissue->setCurrentIndex(12);
        QCOMPARE(Shown(e), QStringLiteral("0:Brain|12:Lobe 12|0:Threshold|00"));

        e->lstOrgan->setCurrentIndex(2);
        e->lstLocus->setCurrentIndex(2);
        e->lstTissue->setCurrentIndex(0); // the one tissue, picked again
        e->Place->TissueClick();          // and its handler run regardless
        QCOMPARE(Shown(e), QStringLiteral("2:Current Organ|0:<no tissue>|2:Injury|00"));
    }

    // The chemical and each slider show their own field and go back into it, with a read-out.
    void slidersAndChemical()
    {
        for (bool emitter : {false, true}) {
            Gene *g = AddGene(emitter);
            Shared f = Fields(g);
            *f.Chem = 250, *f.Slid[0] = 11, *f.Slid[1] = 22, *f.Slid[2] = 33;
            GeneEditor *e = kit.Open(g);
            QString shown;
            for (const char *name : {"scrThreshold", emitter ? "scrRate" : "scrNominal", "scrGain"}) {
                auto *bar = Child<QScrollBar>(e, QLatin1String(name));
                shown += QString::number(bar->value()) + ' ';
                bar->setValue(bar->value() + 100);
            }
            QCOMPARE(shown, QStringLiteral("11 22 33 "));
            QCOMPARE(kit.session->StatusPanel[2], QStringLiteral("Slider: 133"));
            QCOMPARE(Child<QComboBox>(e, "lstChem")->currentIndex(), 250);
            Child<QComboBox>(e, "lstChem")->setCurrentIndex(9);
            e->btnOk->click();
            QCOMPARE(QList<int>({*f.Chem, *f.Slid[0], *f.Slid[1], *f.Slid[2]}), QList<int>({9, 111, 122, 133}));
        }
    }
};

QTEST_MAIN(TestReceptorEmitter)
#include "test_receptor_emitter.moc"
