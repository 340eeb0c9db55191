// What every gene editor must do, whatever its kind, run over all sixteen kinds: it carries
// its dialog name and F1 topic; Tab crosses the header row by row and reaches the buttons
// last; Close (or the close box) without touching anything gives the gene's bytes back (save
// for the foldings the kind names); Cancel (or Escape) changes nothing however much was
// touched; the gene's row is refreshed once; and an encode takes what an open editor shows,
// exactly what Close would then store.
#include "EditorTestKit.h"
#include "support/KindBodies.h"

#include <QSignalSpy>

using namespace GenomeBytes;

namespace {

// Where a gene's body starts in an image of one gene: "dna2", "gene", seven header bytes.
constexpr int BodyStart = 4 + 4 + 7;

// Body bytes that an editor may change although nobody touched it, by the kind's own rules.
struct Foldings
{
    QList<int> onOpening; // corrected as the editor opens: they reach the gene even on Cancel
    QList<int> onClose;   // what Close stores of a value the controls cannot hold
};

// The offsets in which two images of one gene differ, save those allowed: body offsets, so a
// byte of the header shows as a negative one.
QList<int> Unexpected(const QByteArray &a, const QByteArray &b, const QList<int> &allowed)
{
    QList<int> at;
    for (int i = 0; i < qMax(a.size(), b.size()); ++i)
        if (a.mid(i, 1) != b.mid(i, 1) && !allowed.contains(i - BodyStart))
            at << i - BodyStart;
    return at;
}

// What a user could do to every control of a dialog without pressing a button: each enabled
// combo moves to its next item, each slider to another value, each check box toggles, the
// first unselected option is chosen, each text box gets a new text.
void TouchEverything(QWidget *dialog)
{
    for (QComboBox *c : dialog->findChildren<QComboBox *>())
        if (c->isEnabled() && c->count() > 1)
            c->setCurrentIndex((c->currentIndex() + 1) % c->count());
    for (QAbstractSlider *s : dialog->findChildren<QAbstractSlider *>())
        if (s->isEnabled() && s->maximum() > s->minimum())
            s->setValue(s->value() == s->minimum() ? s->maximum() : s->minimum());
    for (QCheckBox *c : dialog->findChildren<QCheckBox *>())
        if (c->isEnabled())
            c->toggle();
    for (QRadioButton *o : dialog->findChildren<QRadioButton *>())
        if (o->isEnabled() && !o->isChecked()) {
            o->setChecked(true);
            break;
        }
    // A number box gets another number; a text box its own letters turned by one, so that a
    // text of a fixed length (a moniker) stays valid.
    for (QLineEdit *t : dialog->findChildren<QLineEdit *>()) {
        const QString text = t->text();
        const bool number = QRegularExpression(QStringLiteral("^\\d*$")).match(text).hasMatch();
        if (t->isEnabled() && !t->isReadOnly())
            t->setText(!number ? text.mid(1) + text.left(1) : text == QLatin1String("7") ? "9" : "7");
    }
}

} // namespace

Q_DECLARE_METATYPE(Foldings)

class TestEveryEditor : public QObject
{
    Q_OBJECT
    EditorTestKit kit;
    Session *s() { return kit.session.get(); }

    QByteArray Encoded()
    {
        s()->EncodeGenome();
        return ImageBytes(*s(), s()->GenomeImage.WriteCursor);
    }
    // The genome of the row's one gene, decoded afresh; its editor opened, every control
    // touched if asked.
    Gene *Load()
    {
        QFETCH(int, type);
        QFETCH(int, subType);
        QFETCH(QByteArray, body);
        return DecodeBytes(*s(), File(Header(type, subType) + body)) ? s()->GeneAt(0) : nullptr;
    }
    GeneEditor *Open(bool touched)
    {
        GeneEditor *e = Load() ? kit.Open(s()->GeneAt(0)) : nullptr;
        if (e && touched)
            TouchEverything(e);
        return e;
    }

private slots:
    void init()
    {
        kit.Init();
        kit.mainWindow->show(); // so that its frame is known when an editor is placed
    }
    void cleanup() { kit.Cleanup(); }

    void everyKind_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subType");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<bool>("fresh");
        QTest::addColumn<QString>("dialog");
        QTest::addColumn<int>("help");
        QTest::addColumn<Foldings>("foldings");

        // Each kind's dialog is its class's name with "frm" for "cls"; its F1 topic is 2000 but
        // for these.
        const QHash<QString, int> topics = {
            {"clsBrainLobe", 2001}, {"clsInstinct", 2002}, {"clsBorgan", 2003}, {"clsOrgan", 2003}};
        // The bytes each kind's own rules may fold without a touch; a kind not named folds
        // nothing. Body offsets.
        const QHash<QString, Foldings> foldings = {
            // Time sliders store position * 8: Leakage and each dendrite type's relaxations.
            {"clsBrainLobe", {{}, {6, 22 + 10, 22 + 11, 109 + 10, 109 + 11}}},
            // Tissue and locus beyond their organ's lists fold to the last row as the editor
            // opens; the flag bits without a box are lost on Close.
            {"clsReceptor", {{1, 2}, {7}}},
            {"clsEmitter", {{1, 2}, {7}}},
            // The rate on its time slider.
            {"clsReaction", {{}, {8}}},
            // The feature bits without a box.
            {"clsStimulus", {{}, {4}}},
            // A neurone beyond its lobe's list.
            {"clsInstinct", {{}, {1, 3, 5}}},
        };

        QCOMPARE(Kinds().size(), 16);
        for (const Kind &k : Kinds())
            for (bool fresh : {false, true})
                QTest::addRow("%s %s", k.name, fresh ? "fresh" : "values")
                    << k.type << k.subType << (fresh ? k.defaults : k.body) << fresh << "frm" + QString(k.name).mid(3)
                    << topics.value(QLatin1String(k.name), 2000) << foldings.value(QLatin1String(k.name));
    }

    // A fresh row leaves by the close box and Escape, the other by the buttons.
    void everyKind()
    {
        QFETCH(bool, fresh);
        QFETCH(QString, dialog);
        QFETCH(int, help);
        QFETCH(Foldings, foldings);
        const QByteArray loaded = Load() ? Encoded() : QByteArray();

        // Its own dialog, its own F1 topic.
        GeneEditor *e = Open(false);
        QVERIFY(e);
        QCOMPARE(e->objectName(), dialog);
        // On the screen whatever the scale, frame and all; where the screen is too small the
        // contents scroll.
        e->show();
        const QRect area = e->screen()->availableGeometry(), at = e->frameGeometry();
        QVERIFY2(area.contains(at), qPrintable(QDebug::toString(at)));
        QSignalSpy helps(e, &GeneEditor::HelpRequested);
        QTest::keyClick(e, Qt::Key_F1);
        QCOMPARE(helps, QList<QVariantList>({{help}}));
        // Tab crosses the header row by row, as its controls stand, and reaches the buttons
        // last, in the order they stand.
        QStringList order;
        for (QWidget *w = e->nextInFocusChain(); w && w != e; w = w->nextInFocusChain())
            if (w->focusPolicy() & Qt::TabFocus)
                order << w->objectName();
        QCOMPARE(order.mid(order.indexOf("lstSwitchOn"), 9).join(' '),
                 QStringLiteral("lstSwitchOn chkMutable txtMutability chkDuplicable chkRemovable optSex_0 optSex_1 optSex_2 "
                                "chkIgnore"));
        QCOMPARE(order.mid(order.size() - 3).join(' '), QStringLiteral("btnNotes btnOk btnCancel"));

        // Close, untouched: the bytes come back but for the named foldings, the row once.
        QSignalSpy rows(s(), &Session::GeneRowChanged);
        fresh ? (void)e->close() : e->btnOk->click();
        QCOMPARE(rows, QList<QVariantList>({{0}}));
        QCOMPARE(Unexpected(loaded, Encoded(), foldings.onOpening + foldings.onClose), QList<int>());

        // Cancel after touching everything: only what opening folds reaches the gene.
        e = Open(true);
        QVERIFY(e);
        rows.clear();
        fresh ? QTest::keyClick(e, Qt::Key_Escape) : e->btnCancel->click();
        QCOMPARE(rows.count(), 1);
        QCOMPARE(Unexpected(loaded, Encoded(), foldings.onOpening), QList<int>());
        QVERIFY(s()->GeneAt(0)->WriteChanges && !s()->GeneAt(0)->IsOpen && !s()->GeneAt(0)->View);

        // An encode while open takes the touched controls; Close then stores the same bytes.
        e = Open(true);
        QVERIFY(e);
        const QByteArray whileOpen = Encoded();
        QVERIFY2(whileOpen.mid(4 + 4) != loaded.mid(4 + 4), "the encode took nothing of the editor");
        QVERIFY(e->Owner->IsOpen);
        e->btnOk->click();
        QCOMPARE(Encoded(), whileOpen);
    }
};

QTEST_MAIN(TestEveryEditor)
#include "test_every_editor.moc"
