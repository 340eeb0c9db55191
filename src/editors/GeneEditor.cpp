#include "editors/GeneEditor.h"

#include "widgets/Placement.h"
#include "core/Gene.h"
#include "core/GeneCommands.h"
#include "core/Session.h"
#include "base/Text.h"
#include "editors/GeneHeaderPanel.h"
#include "editors/GeneNotesForm.h"
#include "widgets/FormBuilder.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>

namespace {
// Mutability flag bits and the header controls that show them.
constexpr quint8 BitMutable = 1, BitDuplicable = 2, BitRemovable = 4, BitMale = 8, BitFemale = 16, BitIgnore = 32;

} // namespace

GeneEditor::GeneEditor(Session &s, Gene &g, QWidget *mainWin, GeneKind kind)
    : QDialog(mainWin), session(s), HelpContext(GeneKinds::Of(kind).helpContext), gene(&g), mainWindow(mainWin)
{
    setObjectName(QLatin1String(GeneKinds::Of(kind).dialogName));
    setModal(false);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setSizeGripEnabled(true);

    Header = new GeneHeaderPanel(GeneKinds::Of(kind).showsOrgan, this);
    btnOk = Form::NamedButton(this, QStringLiteral("btnOk"), QStringLiteral("&Close"));
    btnCancel = Form::NamedButton(this, QStringLiteral("btnCancel"), QStringLiteral("C&ancel"));
    btnNotes = Form::NamedButton(this, QStringLiteral("btnNotes"), QStringLiteral("&Notes"));
    btnOk->setToolTip(QStringLiteral("Close the editor and keep the changes"));
    btnCancel->setToolTip(QStringLiteral("Close the editor and drop the changes"));
    btnNotes->setToolTip(QStringLiteral("Edit the detailed notes of this gene"));

    connect(btnOk, &QPushButton::clicked, this, [this] { close(); });
    connect(btnCancel, &QPushButton::clicked, this, [this] {
        if (Gene *g = Owner ? Owner : gene)
            g->WriteChanges = false;
        close();
    });
    connect(btnNotes, &QPushButton::clicked, this, &GeneEditor::NotesClicked);
}

GeneEditor::~GeneEditor()
{
    // Destroyed without the gene's CloseView (its parent window went first): the gene must
    // not keep a reference to a window that no longer exists.
    if (!disposed && gene && gene->View == static_cast<GeneView *>(this)) {
        gene->View = nullptr;
        gene->IsOpen = false;
    }
}

void GeneEditor::UseStandardLayout(QWidget *body)
{
    auto *column = new QVBoxLayout(this);
    column->addWidget(Header);
    if (body)
        column->addWidget(body, 1);
    column->addLayout(ButtonRow());
}

QBoxLayout *GeneEditor::ButtonRow()
{
    auto *row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(btnNotes);
    row->addSpacing(12);
    row->addWidget(btnOk);
    row->addWidget(btnCancel);
    return row;
}

// The standard buttons are made before the kind's own controls, so the focus chain would reach
// them first; they stand below everything, Notes at the left, and are reached last.
void GeneEditor::PutButtonsLastInTabOrder()
{
    QWidget *last = nullptr;
    for (QWidget *w = nextInFocusChain(); w && w != this; w = w->nextInFocusChain())
        if (w != btnNotes && w != btnOk && w != btnCancel && isAncestorOf(w) && (w->focusPolicy() & Qt::TabFocus))
            last = w;
    if (!last)
        return;
    setTabOrder(last, btnNotes);
    setTabOrder(btnNotes, btnOk);
    setTabOrder(btnOk, btnCancel);
}

// On a screen too small for the whole dialog (a large scale on a small screen) its contents
// scroll inside it, so that the dialog fits on the screen and every control can be reached.
void GeneEditor::ScrollIfLargerThanScreen()
{
    const QWidget *reference = mainWindow ? mainWindow : this;
    QScreen *screen = reference->screen();
    if (!screen || !layout())
        return;
    // A window that was never shown has no frame yet: count the main window's.
    const QSize frame = mainWindow ? mainWindow->frameGeometry().size() - mainWindow->size() : QSize();
    const QSize room = screen->availableGeometry().size() - frame;
    const QSize wanted = sizeHint();
    if (wanted.width() <= room.width() && wanted.height() <= room.height())
        return;
    // The contents move, controls and all, onto a page of a scroll area that fills the dialog.
    // The page is made inside the dialog, so the order Tab takes stays as it was.
    auto *page = new QWidget(this);
    page->setLayout(layout());
    setMinimumSize(0, 0); // the old layout's minimum stays on the dialog until reset
    auto *scroll = new QScrollArea(this);
    scroll->setObjectName(QStringLiteral("scrContents"));
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus); // Tab goes to the controls, and scrolls to show each
    scroll->setWidgetResizable(true);
    scroll->setWidget(page);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(scroll);
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    resize((wanted + QSize(bar, bar)).boundedTo(room));
}

void GeneEditor::EnsureLoaded()
{
    if (loaded)
        return;
    loaded = true;
    PutButtonsLastInTabOrder();
    // The size must be known for the cascade to keep the dialog on the screen.
    adjustSize();
    ScrollIfLargerThanScreen();
    Placement::PlaceEditor(session, this, mainWindow);
    LoadEditor();
}

// --- header panel ---------------------------------------------------------------------------

void GeneEditor::SetHeaderControls()
{
    Owner = gene;
    if (!Owner)
        return;
    const Gene &g = *Owner;
    GeneHeaderPanel &h = *Header;

    h.lstSwitchOn->clear();
    for (int i = 0; i < ReferenceTables::LifeStageCount && i < session.Tables.LifeStageNames.size(); ++i)
        h.lstSwitchOn->addItem(session.Tables.LifeStageNames.at(i));
    h.lstSwitchOn->setCurrentIndex(g.SwitchOn < h.lstSwitchOn->count() ? int(g.SwitchOn) : -1);

    h.chkMutable->setChecked(g.Mutability & BitMutable);
    h.chkDuplicable->setChecked(g.Mutability & BitDuplicable);
    h.chkRemovable->setChecked(g.Mutability & BitRemovable);
    h.chkIgnore->setChecked(g.Mutability & BitIgnore);

    // Male wins when a file sets both sexes.
    if (g.Mutability & BitMale)
        h.optSex[1]->setChecked(true);
    else if (g.Mutability & BitFemale)
        h.optSex[2]->setChecked(true);
    else
        h.optSex[0]->setChecked(true);

    h.txtMutability->setText(QString::number(g.MutabilityWeighting));
}

void GeneEditor::GetHeaderControls()
{
    Gene *g = Owner ? Owner : gene;
    if (!g)
        return;
    const GeneHeaderPanel &h = *Header;

    quint8 flags = 0;
    if (h.chkMutable->isChecked())
        flags |= BitMutable;
    if (h.chkDuplicable->isChecked())
        flags |= BitDuplicable;
    if (h.chkRemovable->isChecked())
        flags |= BitRemovable;
    if (h.chkIgnore->isChecked())
        flags |= BitIgnore;
    if (h.optSex[1]->isChecked())
        flags |= BitMale;
    if (h.optSex[2]->isChecked())
        flags |= BitFemale;
    g->Mutability = flags;

    // The leading number, rounded half to even, then folded into a byte; a negative number
    // folds the same way (-1 gives 255).
    long long weight = Text::RoundHalfEven(Text::Val(h.txtMutability->text())) % 256;
    if (weight < 0)
        weight += 256;
    g->MutabilityWeighting = quint8(weight);

    g->SwitchOn = quint8(qMax(0, h.lstSwitchOn->currentIndex()));
}

// --- the gene's view ------------------------------------------------------------------------

void GeneEditor::SetControls()
{
    EnsureLoaded();
    SetHeaderControls();
    SetKindControls();
}

void GeneEditor::GetControls()
{
    EnsureLoaded();
    GetHeaderControls();
    GetKindControls();
}

void GeneEditor::SetEditorCaption()
{
    EnsureLoaded();
    if (!gene)
        return;
    setWindowTitle(QStringLiteral("(#") + Text::Str(gene->Numeric_ID) + QStringLiteral(") ")
                   + session.CaptionStore.GetCaption(gene->GeneType, gene->GeneSubType, gene->ID)
                   + QStringLiteral(" (") + GeneCommands::DescribeGene(session, *gene, false) + QStringLiteral(")"));
}

void GeneEditor::ShowGeneOrgan()
{
    EnsureLoaded();
    if (!gene || !Header->OrganIDLabel)
        return;
    // The gene belongs to the organ gene that stands last before it; a brain organ counts.
    QString text = QStringLiteral("[no organ] ");
    for (int i = gene->Numeric_ID; i >= 0; --i) {
        const Gene *g = session.GeneAt(i);
        if (g && (g->Is(GeneKind::Organ) || g->Is(GeneKind::BrainOrgan))) {
            text = session.CaptionStore.GetCaption(g->GeneType, g->GeneSubType, g->ID) + QStringLiteral(" ");
            break;
        }
    }
    Header->OrganIDLabel->setText(text);
}

void GeneEditor::ShowEditor()
{
    EnsureLoaded();
    show();
}

void GeneEditor::BringToFront()
{
    EnsureLoaded();
    show();
    raise();
    activateWindow();
    setFocus(Qt::OtherFocusReason);
}

void GeneEditor::RequestClose() { close(); }

void GeneEditor::Dispose()
{
    if (disposed)
        return;
    disposed = true;
    gene = nullptr;
    Owner = nullptr;
    hide();
    deleteLater();
}

void GeneEditor::closeEvent(QCloseEvent *event)
{
    // Every way out ends here, and here the gene's CloseView runs once; CloseView then reads
    // the controls (unless cancelled) and disposes of this dialog.
    event->accept();
    if (disposed || closing)
        return;
    closing = true;
    Gene *g = Owner ? Owner : gene;
    if (g && g->View == static_cast<GeneView *>(this))
        g->CloseView();
    else
        Dispose();
}

void GeneEditor::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F1) {
        emit HelpRequested(HelpContext);
        event->accept();
        return;
    }
    // Escape is the keyboard's Cancel: it goes the way of the button, so the gene's state is
    // handled as a Cancel handles it (a plain reject would bypass that).
    if (event->key() == Qt::Key_Escape) {
        event->accept();
        btnCancel->click();
        return;
    }
    QDialog::keyPressEvent(event);
}

void GeneEditor::NotesClicked()
{
    if (Owner)
        EditGeneNotes(session, *Owner, this);
}

// --- kinds ------------------------------------------------------------------------------------

BareGeneEditor::BareGeneEditor(Session &s, Gene &g, QWidget *mainWin, GeneKind kind)
    : GeneEditor(s, g, mainWin, kind)
{
    UseStandardLayout(nullptr);
}
