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
#include "settings/AboutForm.h"
#include "settings/HelpSystem.h"
#include "settings/HelpWindow.h"
#include "settings/frmOptions.h"
#include "tools/frmChromosomeMap.h"
#include "tools/frmRTFChemicalList.h"
#include "tools/frmReorganise.h"
#include "views/GenomeCompareForm.h"
#include "views/HelixbenchForm.h"
#include "views/NewGeneForm.h"
#include "views/frmChangeDefaultTemplate.h"
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

int Widest(const QFontMetrics &fm, const QString &text)
{
    int w = 0;
    for (const QString &line : text.split(QLatin1Char('\n')))
        w = qMax(w, fm.horizontalAdvance(line));
    return w;
}

// The room a control has for its text and the width its text needs; (0, 0) when it holds no
// text of its own that must be seen whole.
QPair<int, int> TextRoom(QWidget *w)
{
    const QFontMetrics fm = w->fontMetrics();
    QStyle *style = w->style();
    if (auto *b = qobject_cast<QPushButton *>(w))
        return {b->width() - 2 * style->pixelMetric(QStyle::PM_ButtonMargin, nullptr, b) + 4,
                fm.horizontalAdvance(Shown(b->text())) + (b->icon().isNull() ? 0 : b->iconSize().width())};
    if (qobject_cast<QCheckBox *>(w) || qobject_cast<QRadioButton *>(w)) {
        auto *b = static_cast<QAbstractButton *>(w);
        const bool check = qobject_cast<QCheckBox *>(w);
        const int indicator = style->pixelMetric(check ? QStyle::PM_IndicatorWidth : QStyle::PM_ExclusiveIndicatorWidth, nullptr, b)
            + style->pixelMetric(check ? QStyle::PM_CheckBoxLabelSpacing : QStyle::PM_RadioButtonLabelSpacing, nullptr, b);
        return {b->width() - indicator, fm.horizontalAdvance(Shown(b->text()))};
    }
    if (auto *l = qobject_cast<QLabel *>(w)) {
        if (l->text().isEmpty() || Qt::mightBeRichText(l->text()))
            return {0, 0};
        if (l->wordWrap())
            return {l->height(), l->heightForWidth(l->width())};
        const int frame = l->frameWidth() + qMax(l->margin(), 0);
        return {l->width() - 2 * frame, Widest(fm, Shown(l->text()))};
    }
    if (auto *c = qobject_cast<QComboBox *>(w)) {
        QStyleOptionComboBox opt;
        opt.initFrom(c);
        opt.editable = c->isEditable();
        const QRect field = style->subControlRect(QStyle::CC_ComboBox, &opt, QStyle::SC_ComboBoxEditField, c);
        return {field.width(), fm.horizontalAdvance(c->currentText())};
    }
    if (auto *e = qobject_cast<QLineEdit *>(w)) {
        // Free text scrolls; a field of a few characters (a number, a moniker) must show whole.
        if (e->maxLength() > 32 && !qobject_cast<QAbstractSpinBox *>(e->parentWidget()))
            return {0, 0};
        QStyleOptionFrame opt;
        opt.initFrom(e);
        opt.lineWidth = e->hasFrame() ? style->pixelMetric(QStyle::PM_DefaultFrameWidth, &opt, e) : 0;
        const QRect r = style->subElementRect(QStyle::SE_LineEditContents, &opt, e);
        const QMargins m = e->textMargins();
        // A box of four characters or fewer holds a number: it has room for all its digits.
        const QString widest = e->maxLength() <= 4 ? QString(e->maxLength(), QLatin1Char('0')) : QString();
        return {r.width() - m.left() - m.right() - 4, qMax(fm.horizontalAdvance(e->text()), fm.horizontalAdvance(widest))};
    }
    if (auto *g = qobject_cast<QGroupBox *>(w))
        return {g->width() - 8, g->title().isEmpty() ? 0 : fm.horizontalAdvance(Shown(g->title()))};
    return {0, 0};
}

// Column headers that cut their own caption.
QStringList CutHeaders(QHeaderView *h)
{
    QStringList cut;
    const QFontMetrics fm = h->fontMetrics();
    const int margin = 2 * h->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, h);
    for (int i = 0; i < h->count(); ++i) {
        if (h->isSectionHidden(i))
            continue;
        const QString text = h->model()->headerData(i, h->orientation()).toString();
        if (fm.horizontalAdvance(text) + margin > h->sectionSize(i))
            cut << QStringLiteral("column \"%1\" %2 < %3").arg(text).arg(h->sectionSize(i)).arg(fm.horizontalAdvance(text) + margin);
    }
    return cut;
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
// meant to) or cuts its text.
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
            found << QStringLiteral("%1 at %2,%3 %4x%5 outside its parent %6x%7").arg(name).arg(w->x()).arg(w->y())
                         .arg(w->width()).arg(w->height()).arg(parent->width()).arg(parent->height());
        if (parent->layout() && !InLayout(parent->layout(), w) && !qobject_cast<QSizeGrip *>(w))
            found << name + QStringLiteral(" is in no layout of its parent ") + parent->objectName();
        const auto room = TextRoom(w);
        if (room.second > room.first)
            found << QStringLiteral("%1 \"%2\" needs %3, has %4").arg(name, w->property("text").toString().left(40))
                         .arg(room.second).arg(room.first);
        if (auto *h = qobject_cast<QHeaderView *>(w); h && h->orientation() == Qt::Horizontal)
            for (const QString &c : CutHeaders(h))
                found << name + QLatin1Char(' ') + c;
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
    // The other windows, each opened as the program opens it.
    using Opener = std::function<QWidget *(Session &, QWidget *)>;
    const QList<QPair<QString, Opener>> dialogs = {
        {"frmSVRule", [](Session &s, QWidget *m) { return new frmSVRule(s, m); }},
        {"GeneNotesForm", [](Session &s, QWidget *m) { return new GeneNotesForm(s, m); }},
        {"NewGeneForm", [](Session &s, QWidget *m) { return new NewGeneForm(s, m); }},
        {"frmOptions", [](Session &s, QWidget *m) { return new frmOptions(s, m); }},
        {"frmChangeDefaultTemplate", [](Session &s, QWidget *m) { return frmChangeDefaultTemplate::Open(s, m); }},
        {"frmReorganise", [](Session &s, QWidget *m) { return frmReorganise::Open(s, [] {}, m); }},
        {"frmChromosomeMap", [](Session &s, QWidget *m) { return new frmChromosomeMap(s, m); }},
        {"frmRTFChemicalList", [](Session &s, QWidget *m) { return frmRTFChemicalList::Open(s, m); }},
        {"GenomeCompareForm", [](Session &s, QWidget *m) { return GenomeCompareForm::Open(s, m); }},
        {"AboutForm", [](Session &, QWidget *m) { return AboutForm::Open(m); }},
        {"HelpWindow", [this](Session &, QWidget *) -> QWidget * {
             return window->Help->ShowHelpAnchor(QStringLiteral("contents")) ? window->Help->Window() : nullptr;
         }},
    };

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
        qInfo("screen %dx%d, device pixel ratio %g", window->screen()->size().width(), window->screen()->size().height(),
              window->devicePixelRatioF());
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
