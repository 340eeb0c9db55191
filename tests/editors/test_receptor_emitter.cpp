// The receptor and emitter editors: the organ, tissue and locus chain with its lists, the
// folding of a place beyond them on opening (kept even by Cancel), the flag bits, the fields
// that go through sliders, and values that no control can show.
#include "EditorTestKit.h"
#include "core/genes/Biochemistry.h"
#include "editors/AttachmentCombos.h"
#include "editors/EditorCommon.h"
#include "editors/frmEmitter.h"
#include "editors/frmReceptor.h"

#include <QScrollBar>

namespace {

// The bytes both kinds share, by name.
struct Shared
{
    quint8 *Organ, *Tissue, *Locus, *Chem, *Flags;
};
Shared Fields(Gene *g)
{
    if (auto *r = dynamic_cast<clsReceptor *>(g))
        return {&r->Organ, &r->Tissue, &r->Locus, &r->Chem, &r->Flags};
    auto *e = static_cast<clsEmitter *>(g);
    return {&e->Organ, &e->Tissue, &e->Locus, &e->Chem, &e->Flags};
}

QComboBox *ComboOf(QWidget *e, const char *name) { return Child<QComboBox>(e, QLatin1String(name)); }

// "index:text" of a combo's selection, "-1" for none.
QString Shown(QComboBox *c)
{
    return c->currentIndex() < 0 ? QStringLiteral("-1") : QString::number(c->currentIndex()) + ":" + c->currentText();
}

} // namespace

class TestReceptorEmitter : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

    Gene *AddGene(bool emitter, int organ = 0, int tissue = 0, int locus = 0)
    {
        Gene *g = kit.Add(1, emitter ? 1 : 0);
        if (!g)
            qFatal("no gene made");
        Shared f = Fields(g);
        *f.Organ = quint8(organ), *f.Tissue = quint8(tissue), *f.Locus = quint8(locus);
        return g;
    }
    static QList<int> Place(Gene *g)
    {
        Shared f = Fields(g);
        return {*f.Organ, *f.Tissue, *f.Locus};
    }

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    // The lists at each level, with their length and the wording at their ends.
    void listsOfTheChain_data()
    {
        QTest::addColumn<bool>("emitter");
        QTest::addColumn<int>("organ");
        QTest::addColumn<int>("tissue");
        QTest::addColumn<QString>("tissues"); // count | first | item 7 | item 8 | last
        QTest::addColumn<QString>("loci");    // count | first | item 58 | item 59 | last
        QTest::newRow("receptor brain, lobe 31")
            << false << 0 << 31 << "32|Perceptible i/ps|Attention/Seek o/ps|Lobe 8|Lobe 31"
            << "256|Threshold|Cell(39) State|Cell(40) State|Cell(236) State";
        QTest::newRow("emitter brain, lobe 9")
            << true << 0 << 9 << "32|Perceptible i/ps|Attention/Seek o/ps|Lobe 8|Lobe 31"
            << "43|Lobe activity|||Cell(39) Output";
        QTest::newRow("receptor sensorimotor")
            << false << 1 << 4 << "6|Somatic|||Drive levels" << "24|Involuntary Action 0|||Special gait 15";
        QTest::newRow("emitter sensorimotor")
            << true << 1 << 4 << "6|Somatic|||Drive levels" << "14|Permanently Active (255)|||Speed of wind coming from behind";
        QTest::newRow("receptor drives") << false << 1 << 5 << "6|Somatic|||Drive levels" << "17|PAIN|||STRESS";
        QTest::newRow("emitter reproductive")
            << true << 1 << 2 << "6|Somatic|||Drive levels" << "2|I am fertile (egg/sperm ready)|||I am pregnant (egg&sperm ready)";
        QTest::newRow("receptor current organ") << false << 2 << 0 << "1|<no tissue>|||<no tissue>" << "3|Clock Rate|||Injury";
        QTest::newRow("emitter current organ") << true << 2 << 0 << "1|<no tissue>|||<no tissue>" << "3|Clock Rate|||Life force";
    }
    void listsOfTheChain()
    {
        QFETCH(bool, emitter);
        QFETCH(int, organ);
        QFETCH(int, tissue);
        auto *e = kit.Open(AddGene(emitter, organ, tissue));
        auto summary = [](QComboBox *c, int a, int b) {
            return QString::number(c->count()) + "|" + c->itemText(0) + "|" + c->itemText(a) + "|" + c->itemText(b) + "|"
                   + c->itemText(c->count() - 1);
        };
        QCOMPARE(ComboOf(e, "lstOrgan")->count(), 3);
        QFETCH(QString, tissues);
        QFETCH(QString, loci);
        QCOMPARE(summary(ComboOf(e, "lstTissue"), 7, 8), tissues);
        QCOMPARE(summary(ComboOf(e, "lstLocus"), 58, 59), loci);
        QCOMPARE(ComboOf(e, "lstTissue")->currentIndex(), tissue);
    }

    // A tissue or locus beyond what the organ offers shows the last item and goes into the
    // gene at once: Cancel keeps the folded value. A value within the list stays.
    void placeFoldsOnOpening_data()
    {
        QTest::addColumn<bool>("emitter");
        QTest::addColumn<QList<int>>("stored");
        QTest::addColumn<QList<int>>("after");
        QTest::addColumn<QString>("tissue");
        QTest::addColumn<QString>("locus");
        using L = QList<int>;
        QTest::newRow("receptor gait 30") << false << L{1, 4, 30} << L{1, 4, 23} << "4:Sensorimotor" << "23:Special gait 15";
        QTest::newRow("emitter brain 100") << true << L{0, 0, 100} << L{0, 0, 42} << "0:Perceptible i/ps" << "42:Cell(39) Output";
        QTest::newRow("receptor brain 100") << false << L{0, 0, 100} << L{0, 0, 100} << "0:Perceptible i/ps" << "100:Cell(81) State";
        QTest::newRow("receptor brain 255") << false << L{0, 3, 255} << L{0, 3, 255} << "3:Verb i/ps" << "255:Cell(236) State";
        QTest::newRow("receptor organ 2 tissue 7") << false << L{2, 7, 1} << L{2, 0, 1} << "0:<no tissue>" << "1:Repair Rate";
        QTest::newRow("emitter organ 2 locus 9") << true << L{2, 0, 9} << L{2, 0, 2} << "0:<no tissue>" << "2:Life force";
        QTest::newRow("emitter lobe 200") << true << L{0, 200, 5} << L{0, 31, 5} << "31:Lobe 31" << "5:Cell(2) Output";
        QTest::newRow("receptor tissue 9 locus 20") << false << L{1, 9, 20} << L{1, 5, 16} << "5:Drive levels" << "16:STRESS";
        QTest::newRow("emitter immune locus 1") << true << L{1, 3, 1} << L{1, 3, 0} << "3:Immune" << "0:I'm dead (post-mortem chemistry)";
    }
    void placeFoldsOnOpening()
    {
        QFETCH(bool, emitter);
        QFETCH(QList<int>, stored);
        QFETCH(QList<int>, after);
        QFETCH(QString, tissue);
        QFETCH(QString, locus);
        Gene *g = AddGene(emitter, stored[0], stored[1], stored[2]);
        auto *e = kit.Open(g);
        QCOMPARE(Place(g), after); // before any close
        QCOMPARE(Shown(ComboOf(e, "lstTissue")), tissue);
        QCOMPARE(Shown(ComboOf(e, "lstLocus")), locus);
        e->btnCancel->click();
        QCOMPARE(Place(g), after);
    }

    // Any change of organ or tissue sets the levels below to their first item; the current
    // organ's one tissue leaves its locus as it stands.
    void chainResetsTheLevelsBelow()
    {
        auto *e = kit.Open<frmReceptor>(AddGene(false, 1, 4, 10));
        e->lstOrgan->setCurrentIndex(0);
        QCOMPARE(Shown(e->lstTissue) + " " + Shown(e->lstLocus), QStringLiteral("0:Perceptible i/ps 0:Threshold"));
        e->lstLocus->setCurrentIndex(70);
        e->lstTissue->setCurrentIndex(12);
        QCOMPARE(Shown(e->lstLocus), QStringLiteral("0:Threshold"));

        e->lstOrgan->setCurrentIndex(2);
        e->lstLocus->setCurrentIndex(2);
        e->lstTissue->setCurrentIndex(0); // the one tissue, picked again
        e->Place->TissueClick();          // and its handler run regardless
        QCOMPARE(Shown(e->lstTissue) + " " + Shown(e->lstLocus), QStringLiteral("0:<no tissue> 2:Injury"));

        // The gene's side calls the organ's handler by name: it refills even without a change.
        e->lstOrgan->setCurrentIndex(1);
        e->lstTissue->setCurrentIndex(4);
        e->lstLocus->setCurrentIndex(9);
        e->lstOrgan_Click();
        QCOMPARE(Shown(e->lstTissue) + " " + Shown(e->lstLocus), QStringLiteral("0:Somatic 0:become a child"));
        e->lstTissue->setCurrentIndex(5);
        e->lstLocus->setCurrentIndex(3);
        Gene *g = e->Owner;
        e->btnOk->click();
        QCOMPARE(Place(g), QList<int>({1, 5, 3}));
    }

    // Flags: only the bits with a control survive Close; Cancel changes nothing.
    void flagBits_data()
    {
        QTest::addColumn<bool>("emitter");
        QTest::addColumn<int>("stored");
        QTest::addColumn<QString>("shown"); // per control in order: 1 checked / selected
        QTest::addColumn<QString>("click"); // controls to click
        QTest::addColumn<int>("closed");
        // receptor: chkFlags_0, chkFlags_1; emitter: chkFlags, optAnalogue, optDigital, chkInvert
        QTest::newRow("receptor 8") << false << 8 << "00" << "" << 0;
        QTest::newRow("receptor 0xFF") << false << 0xFF << "11" << "" << 3;
        QTest::newRow("receptor 0xF6, reduce checked") << false << 0xF6 << "01" << "chkFlags_0" << 3;
        QTest::newRow("emitter 0xFF") << true << 0xFF << "1011" << "" << 7;
        QTest::newRow("emitter 2") << true << 2 << "0010" << "" << 2;
        QTest::newRow("emitter 0xF9") << true << 0xF9 << "1100" << "" << 1;
        QTest::newRow("emitter digital chosen") << true << 0x08 << "0100" << "optDigital chkInvert" << 6;
        QTest::newRow("emitter analogue chosen") << true << 0x06 << "0011" << "optAnalogue" << 4;
    }
    void flagBits()
    {
        QFETCH(bool, emitter);
        QFETCH(int, stored);
        QFETCH(QString, shown);
        QFETCH(QString, click);
        QFETCH(int, closed);
        for (bool ok : {false, true}) {
            Gene *g = AddGene(emitter);
            *Fields(g).Flags = quint8(stored);
            auto *e = kit.Open(g);
            QString state;
            const QStringList names = emitter ? QStringList{"chkFlags", "optAnalogue", "optDigital", "chkInvert"}
                                              : QStringList{"chkFlags_0", "chkFlags_1"};
            for (const QString &n : names)
                state += Child<QAbstractButton>(e, n)->isChecked() ? '1' : '0';
            QCOMPARE(state, shown);
            for (const QString &n : click.split(' ', Qt::SkipEmptyParts))
                Child<QAbstractButton>(e, n)->click();
            (ok ? e->btnOk : e->btnCancel)->click();
            QCOMPARE(int(*Fields(g).Flags), ok ? closed : stored);
        }
    }

    // Sliders and the chemical, each into its own field (the emitter's order differs).
    void slidersAndChemical()
    {
        auto *r = static_cast<clsReceptor *>(AddGene(false));
        r->Chem = 7, r->Threshold = 11, r->Nominal = 22, r->Gain = 33;
        auto *e = kit.Open<frmReceptor>(r);
        QCOMPARE(QList<int>({e->lstChem->currentIndex(), e->scrThreshold->value(), e->scrNominal->value(), e->scrGain->value()}),
                 QList<int>({7, 11, 22, 33}));
        e->scrNominal->setValue(200);
        QCOMPARE(kit.session->StatusPanel[2], QStringLiteral("Slider: 200"));
        e->btnOk->click();
        QCOMPARE(QList<int>({r->Chem, r->Threshold, r->Nominal, r->Gain}), QList<int>({7, 11, 200, 33}));

        auto *m = static_cast<clsEmitter *>(AddGene(true));
        m->Chem = 250, m->Threshold = 44, m->Rate = 55, m->Gain = 66;
        auto *f = kit.Open<frmEmitter>(m);
        QCOMPARE(QList<int>({f->scrThreshold->value(), f->scrRate->value(), f->scrGain->value()}), QList<int>({44, 55, 66}));
        QCOMPARE(f->scrRate->minimum(), 1);
        // A renamed chemical shows on the next drop-down, the same chemical still selected.
        kit.session->Lists.ChemicalNames[250] = QStringLiteral("Fresh name");
        f->lstChem->showPopup();
        f->lstChem->hidePopup();
        QCOMPARE(Shown(f->lstChem), QStringLiteral("250:Fresh name"));
        f->scrThreshold->setValue(1);
        f->btnOk->click();
        QCOMPARE(QList<int>({m->Chem, m->Threshold, m->Rate, m->Gain}), QList<int>({250, 1, 55, 66}));
    }

    // An organ beyond the three targets and an emitter rate of 0 (which no load lets
    // through) show nothing and the slider's end, and stay as they are until the user
    // changes that control.
    void unshownValuesAreKept()
    {
        auto *m = static_cast<clsEmitter *>(AddGene(true, 5, 40, 200));
        m->Rate = 0;
        auto *e = kit.Open<frmEmitter>(m);
        QCOMPARE(Shown(e->lstOrgan) + Shown(e->lstTissue) + Shown(e->lstLocus), QStringLiteral("-1-1-1"));
        QCOMPARE(e->lstTissue->count() + e->lstLocus->count(), 0);
        QCOMPARE(e->scrRate->value(), 1);
        e->scrGain->setValue(3); // another control
        e->btnOk->click();
        QCOMPARE(Place(m) << m->Rate, QList<int>({5, 40, 200, 0}));

        e = kit.Open<frmEmitter>(m);
        e->lstOrgan->setCurrentIndex(1);
        QTest::keyClick(e->scrRate, Qt::Key_Home); // at its end already: acted on, not moved
        e->btnOk->click();
        QCOMPARE(Place(m) << m->Rate, QList<int>({1, 0, 0, 1}));
    }

    void organLabelInTheHeader()
    {
        auto *e = kit.Open(AddGene(true));
        QCOMPARE(Child<QLabel>(e, "OrganIDLabel")->text(), QStringLiteral("[no organ] "));
    }
};

QTEST_MAIN(TestReceptorEmitter)
#include "test_receptor_emitter.moc"
