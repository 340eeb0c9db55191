// Every window fits: the main window's tabs and each dialog, just above the size at which the
// main window stops laying itself out and at a large size, show every control inside its
// parent and every text whole. Run once at scale 1 and once more under QT_SCALE_FACTOR=2.
#include "base/AutoPrompt.h"
#include "core/Gene.h"
#include "core/GeneKind.h"
#include "core/Session.h"
#include "editors/EditorRegistry.h"
#include "editors/GeneEditor.h"
#include "editors/GeneNotesForm.h"
#include "editors/frmSVRule.h"
#include "views/HelixbenchForm.h"
#include "views/NewGeneForm.h"
#include "widgets/Placement.h"

#include <QtTest>
#include <QtWidgets>

#include <functional>

namespace {

// Answers as AutoPrompt does, but a file dialog picks the sample genome.
struct SamplePrompt : AutoPrompt
{
    QString OpenFileName(const QString &, const QString &, const QString &, const QString &) override
    {
        return QStringLiteral(HELIX_SAMPLE_GENOME);
    }
};

QString Shown(QString text) { return text.remove(QRegularExpression(QStringLiteral("&(?!&)"))); }

// The size a control has for a text of its own that must be seen whole, and the size that text
// needs; both empty when it holds no such text.
std::pair<QSize, QSize> TextRoom(QWidget *w)
{
    const QFontMetrics fm = w->fontMetrics();
    auto *l = qobject_cast<QLabel *>(w);
    if (l && (l->text().isEmpty() || Qt::mightBeRichText(l->text())))
        return {};
    if (l && l->wordWrap())
        return {QSize(0, l->height()), QSize(0, l->heightForWidth(l->width()))};
    // A button or a label of one line asks for the size its text needs.
    if (auto *b = qobject_cast<QAbstractButton *>(w); l || (b && !b->text().isEmpty()))
        return {w->size(), w->minimumSizeHint()};
    if (auto *c = qobject_cast<QComboBox *>(w)) {
        QStyleOptionComboBox opt;
        opt.initFrom(c);
        opt.editable = c->isEditable();
        const QRect field = w->style()->subControlRect(QStyle::CC_ComboBox, &opt, QStyle::SC_ComboBoxEditField, c);
        return {QSize(field.width(), 0), QSize(fm.horizontalAdvance(c->currentText()), 0)};
    }
    // Free text scrolls; a field of a few characters (a number, a moniker) must show whole, and
    // a box of four characters or fewer holds a number: it has room for all its digits.
    if (auto *e = qobject_cast<QLineEdit *>(w); e && e->maxLength() <= 32) {
        QStyleOptionFrame opt;
        opt.initFrom(e);
        opt.lineWidth = e->hasFrame() ? w->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &opt, e) : 0;
        const QRect r = w->style()->subElementRect(QStyle::SE_LineEditContents, &opt, e);
        const QString widest = e->maxLength() <= 4 ? QString(e->maxLength(), QLatin1Char('0')) : QString();
        const int need = qMax(fm.horizontalAdvance(e->text()), fm.horizontalAdvance(widest));
        return {QSize(r.width() - e->textMargins().left() - e->textMargins().right() - 4, 0), QSize(need, 0)};
    }
    if (auto *g = qobject_cast<QGroupBox *>(w))
        return {QSize(g->width() - 8, 0), QSize(fm.horizontalAdvance(Shown(g->title())), 0)};
    return {};
}

bool InsideScrolledContent(const QWidget *w, const QWidget *window)
{
    for (const QWidget *p = w->parentWidget(); p && p != window; p = p->parentWidget())
        if (auto *area = qobject_cast<const QAbstractScrollArea *>(p->parentWidget()); area && area->viewport() == p)
            return true;
    return false;
}

// Whether a layout, or one nested in it, holds the widget.
bool InLayout(const QLayout *l, const QWidget *w)
{
    for (int i = 0; l && i < l->count(); ++i)
        if (QLayoutItem *item = l->itemAt(i); item->widget() == w || InLayout(item->layout(), w))
            return true;
    return l && l->menuBar() == w;
}

// Every visible control of a window that lies outside its parent, escapes the layout its
// parent has (it would sit at its parent's corner, over other controls; only a size grip is
// meant to), cuts its text, or has a column header that cuts its caption.
QStringList Misfits(QWidget *window)
{
    QStringList found;
    for (QWidget *w : window->findChildren<QWidget *>()) {
        if (!w->isVisible() || w->isWindow() || InsideScrolledContent(w, window))
            continue;
        const QString name = QStringLiteral("%1 %2").arg(QString::fromLatin1(w->metaObject()->className()),
                                                         w->objectName());
        const QWidget *parent = w->parentWidget();
        if (!parent->rect().contains(w->geometry()))
            found << QStringLiteral("%1 at %2 outside its parent %3").arg(name, QDebug::toString(w->geometry()),
                                                                        QDebug::toString(parent->size()));
        if (parent->layout() && !InLayout(parent->layout(), w) && !qobject_cast<QSizeGrip *>(w))
            found << name + QStringLiteral(" is in no layout of its parent ") + parent->objectName();
        const auto [room, need] = TextRoom(w);
        if (need.width() > room.width() || need.height() > room.height())
            found << QStringLiteral("%1 \"%2\" needs %3, has %4").arg(name, w->property("text").toString().left(40),
                                                                      QDebug::toString(need), QDebug::toString(room));
        auto *h = qobject_cast<QHeaderView *>(w);
        for (int i = 0; h && h->orientation() == Qt::Horizontal && i < h->count(); ++i) {
            const QString text = h->model()->headerData(i, Qt::Horizontal).toString();
            const int margin = h->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, h);
            const int least = h->fontMetrics().horizontalAdvance(text) + 2 * margin;
            if (!h->isSectionHidden(i) && h->sectionSize(i) < least)
                found << QStringLiteral("%1 column \"%2\" %3 < %4").arg(name, text).arg(h->sectionSize(i)).arg(least);
        }
    }
    return found;
}

void Settle()
{
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
}

} // namespace

class TestFit : public QObject
{
    Q_OBJECT
    SamplePrompt prompt;
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> window;

    QMap<QString, Gene *> editors; // the first gene of each editor's kind
    // The other windows: the modal ones and the new gene dialog made as the program makes them,
    // the rest opened from their menu entries.
    using Opener = std::function<QWidget *(Session &, QWidget *)>;
    const QList<QPair<QString, Opener>> dialogs = {
        {"frmSVRule", [](Session &s, QWidget *m) { return new frmSVRule(s, m); }},
        {"GeneNotesForm", [](Session &s, QWidget *m) { return new GeneNotesForm(s, m); }},
        {"NewGeneForm", [](Session &s, QWidget *m) { return new NewGeneForm(s, m); }},
    };
    const QList<QPair<QString, QString>> entries = {
        {"GenomeCompareForm", "gappcCompareGenome"}, {"frmRTFChemicalList", "gappaRTFChemicalList"},
        {"frmReorganise", "gappaReorganise"}, {"frmChromosomeMap", "gappaPlotChromosomeMap"},
        {"frmChangeDefaultTemplate", "gappaChangeDefaultTemplate"}, {"frmOptions", "gappaAdvancedOptions"},
        {"HelpWindow", "gapphContents"}, {"AboutForm", "gapphAbout"}};

    // Opens the window of that name, as the program would.
    QWidget *Open(const QString &name)
    {
        if (name.startsWith(QLatin1String("tab"))) {
            window->SSTab1->setCurrentIndex(name.mid(3).toInt());
            return window.get();
        }
        if (Gene *g = editors.value(name)) {
            g->OpenView();
            return dynamic_cast<QWidget *>(g->View);
        }
        for (const auto &[dialog, open] : dialogs)
            if (dialog == name)
                return open(*session, window.get());
        for (const auto &[dialog, entry] : entries)
            if (dialog == name)
                window->findChild<QAction *>(entry)->trigger();
        for (QWidget *w : QApplication::topLevelWidgets())
            if (w->objectName() == name && w->isVisible())
                return w;
        return nullptr;
    }

private slots:
    void initTestCase()
    {
        session = std::make_unique<Session>(prompt);
        window = std::make_unique<HelixbenchForm>(*session);
        RegisterEditors(*session, window.get());
        window->Startup(QCoreApplication::applicationDirPath());
        window->show();
        QVERIFY(session->LoadGenomeFile(QStringLiteral(HELIX_SAMPLE_GENOME)));
        // The kinds the sample lacks: a genus and a gait gene.
        QVERIFY(session->CreateGene(2, 1, false));
        QVERIFY(session->CreateGene(2, 4, false));
        for (int n = 0; n < session->GeneCount; ++n) {
            Gene *g = session->GeneAt(n);
            const GeneKindInfo *kind = g ? GeneKinds::Find(g->GeneType, g->GeneSubType) : nullptr;
            if (kind && !editors.contains(QLatin1String(kind->dialogName)))
                editors.insert(QLatin1String(kind->dialogName), g);
        }
    }

    void fits_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("large");
        QStringList names = editors.keys();
        for (int t = 0; t < 7; ++t)
            names << QStringLiteral("tab%1").arg(t);
        for (const auto &dialog : dialogs)
            names << dialog.first;
        for (const auto &entry : entries)
            names << entry.first;
        for (const QString &name : names) {
            QTest::newRow(qPrintable(name + QStringLiteral(" small"))) << name << false;
            QTest::newRow(qPrintable(name + QStringLiteral(" large"))) << name << true;
        }
    }

    // Small is the main window just above the width and height at which it lays itself out
    // anew, and a dialog as it opens; large is 1400x1000, a dialog half as large again.
    void fits()
    {
        QFETCH(QString, name);
        QFETCH(bool, large);
        QPointer<QWidget> w = Open(name);
        QVERIFY2(w, qPrintable(name + QStringLiteral(" did not open")));
        w->show();
        Settle();
        const QSize frame = w->frameGeometry().size() - w->size();
        if (w == window.get())
            w->resize(large ? QSize(1400, 1000)
                            : QSize(Placement::TwipsToPixels(7200, w) + 1, Placement::TwipsToPixels(7500, w) + 1) - frame);
        else if (large)
            w->resize(w->size() * 3 / 2);
        Settle();
        const QStringList misfits = Misfits(w);
        const QString where = QStringLiteral("%1 at %2x%3:\n  ").arg(name).arg(w->width()).arg(w->height());
        if (auto *editor = dynamic_cast<GeneEditor *>(w.data()))
            editor->reject();
        Settle();
        if (w != window.get())
            delete w;
        QVERIFY2(misfits.isEmpty(), qPrintable(where + misfits.join(QStringLiteral("\n  "))));
    }
};

QTEST_MAIN(TestFit)
#include "test_fit.moc"
