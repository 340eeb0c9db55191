// What every gene editor must do, whatever its kind, run over all sixteen kinds: it carries
// its dialog name and F1 topic; Close without touching anything gives the gene's bytes back
// (save for the foldings the kind names); Cancel changes nothing however much was touched;
// the gene's row is refreshed once; and an encode takes what an open editor shows, exactly
// what Close would then store.
#include "EditorTestKit.h"
#include "support/KindBodies.h"

#include <QSignalSpy>

using namespace GenomeBytes;

namespace {

// Where a gene's body starts in an image of one gene: "dna2", "gene", seven header bytes.
constexpr int BodyStart = 4 + 4 + 7;
constexpr int HeaderStart = 4 + 4;

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
    auto byteAt = [](const QByteArray &x, int i) { return i < x.size() ? int(quint8(x[i])) : -1; };
    for (int i = 0; i < qMax(a.size(), b.size()); ++i)
        if (byteAt(a, i) != byteAt(b, i) && !allowed.contains(i - BodyStart))
            at << i - BodyStart;
    return at;
}

// What a user could do to every control of a dialog without pressing a button: each enabled
// combo moves to its next item, each slider to another value, each check box toggles, each
// unselected option is chosen, each text box gets a new text.
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
        if (!t->isEnabled() || t->isReadOnly())
            continue;
        const QString text = t->text();
        bool number = false;
        text.toInt(&number);
        if (number || text.isEmpty())
            t->setText(text == QLatin1String("7") ? QStringLiteral("9") : QStringLiteral("7"));
        else
            t->setText(text.mid(1) + text.left(1));
    }
}

} // namespace

Q_DECLARE_METATYPE(Foldings)

class TestEveryEditor : public QObject
{
    Q_OBJECT
    EditorTestKit kit;
    Session *s() { return kit.session.get(); }

    // The genome of the row's one gene, decoded; the gene and its encoded image.
    Gene *Load()
    {
        QFETCH(int, type);
        QFETCH(int, subType);
        QFETCH(QByteArray, body);
        if (!DecodeBytes(*s(), File(Header(type, subType) + body)))
            return nullptr;
        return s()->GeneAt(0);
    }
    QByteArray Encoded()
    {
        s()->EncodeGenome();
        return ImageBytes(*s(), s()->GenomeImage.WriteCursor);
    }
    // The row's gene loaded afresh, its editor open and every control touched.
    GeneEditor *OpenTouched()
    {
        Gene *g = Load();
        GeneEditor *e = g ? kit.Open(g) : nullptr;
        if (e)
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
                    << k.type << k.subType << (fresh ? k.defaults : k.body) << "frm" + QString(k.name).mid(3)
                    << topics.value(QLatin1String(k.name), 2000) << foldings.value(QLatin1String(k.name));
    }

    void everyKind()
    {
        QFETCH(QString, dialog);
        QFETCH(int, help);
        QFETCH(Foldings, foldings);
        Gene *g = Load();
        QVERIFY(g);
        const QByteArray loaded = Encoded();

        // Its own dialog, its own F1 topic.
        GeneEditor *e = kit.Open(g);
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
        // Tab reaches the buttons last, in the order they stand: Notes, Close, Cancel.
        QStringList lastThree;
        for (QWidget *w = e->btnCancel; lastThree.size() < 3 && w != e; w = w->previousInFocusChain())
            if (w->focusPolicy() & Qt::TabFocus)
                lastThree.prepend(w->objectName());
        QCOMPARE(lastThree, QStringList({"btnNotes", "btnOk", "btnCancel"}));
        for (QWidget *n = e->btnCancel->nextInFocusChain(); n && n != e; n = n->nextInFocusChain())
            QVERIFY2(!(n->focusPolicy() & Qt::TabFocus), qPrintable(n->objectName() + " comes after Cancel"));

        // Close, untouched: the bytes come back but for the named foldings, the row once.
        QSignalSpy rows(s(), &Session::GeneRowChanged);
        e->btnOk->click();
        QCOMPARE(rows, QList<QVariantList>({{int(g->Numeric_ID)}}));
        QCOMPARE(Unexpected(loaded, Encoded(), foldings.onOpening + foldings.onClose), QList<int>());

        // Cancel after touching everything: only what opening folds reaches the gene.
        e = OpenTouched();
        QVERIFY(e);
        rows.clear();
        e->btnCancel->click();
        QCOMPARE(rows.count(), 1);
        QCOMPARE(Unexpected(loaded, Encoded(), foldings.onOpening), QList<int>());

        // An encode while open takes the touched controls; Close then stores the same bytes.
        e = OpenTouched();
        QVERIFY(e);
        const QByteArray whileOpen = Encoded();
        QVERIFY2(whileOpen.mid(HeaderStart) != loaded.mid(HeaderStart), "the encode took nothing of the editor");
        QVERIFY(e->Owner->IsOpen);
        e->btnOk->click();
        QCOMPARE(Encoded(), whileOpen);
    }
};

QTEST_MAIN(TestEveryEditor)
#include "test_every_editor.moc"
