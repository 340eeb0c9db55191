#include "editors/AttachmentCombos.h"

#include "core/Session.h"
#include "editors/EditorCommon.h"
#include "widgets/FormBuilder.h"

#include <QComboBox>
#include <QGroupBox>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionComboBox>

#include <algorithm>

namespace {

constexpr int CurrentOrgan = 2;

// Replaces the items without running the change event; afterwards nothing is selected, so
// the caller's selection runs it as a pick by the user would.
void Refill(QComboBox *combo, const QStringList &items)
{
    const QSignalBlocker quiet(combo);
    combo->clear();
    combo->addItems(items);
    combo->setCurrentIndex(-1);
}

void SelectFirst(QComboBox *combo)
{
    if (combo->count() > 0)
        combo->setCurrentIndex(0);
}

// Wide enough for the longest of the texts, so that no list the chain can bring is cut off
// and the dialog keeps its size as the lists change.
void WideEnoughFor(QComboBox *combo, const QStringList &texts)
{
    int widest = 0;
    for (const QString &t : texts)
        widest = std::max(widest, combo->fontMetrics().horizontalAdvance(t));
    QStyleOptionComboBox option;
    option.initFrom(combo);
    const QSize size = combo->style()->sizeFromContents(QStyle::CT_ComboBox, &option,
                                                        QSize(widest, combo->fontMetrics().height()), combo);
    combo->setMinimumWidth(size.width());
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(1);
}

QComboBox *ChainCombo(QWidget *parent, const char *name)
{
    QComboBox *combo = Form::Combo(parent, QLatin1String(name));
    combo->setMaxVisibleItems(20);
    return combo;
}

} // namespace

AttachmentCombos::AttachmentCombos(Session &s, Side sd, QWidget *owner, const QString &frameCaption)
    : QObject(owner),
      rows(owner, frameCaption),
      frame(rows.frame),
      lstOrgan(ChainCombo(frame, "lstOrgan")),
      lstTissue(ChainCombo(frame, "lstTissue")),
      lstLocus(ChainCombo(frame, "lstLocus")),
      session(s),
      side(sd)
{
    rows.row(QStringLiteral("Organ:"), lstOrgan);
    rows.row(QStringLiteral("Tissue:"), lstTissue);
    rows.row(QStringLiteral("Locus:"), lstLocus);

    const ReferenceTables &t = session.Tables;
    QStringList tissues, loci;
    for (int organ = 0; organ < ReferenceTables::OrganTargetCount; ++organ) {
        const QStringList below = t.TargetTissues(organ);
        tissues << below;
        // Every lobe has the same loci, and the current organ's one tissue has its own.
        const int tissuesWithOwnLoci = organ == 1 ? int(below.size()) : 1;
        for (int tissue = 0; tissue < tissuesWithOwnLoci; ++tissue)
            loci << t.TargetLoci(side, organ, tissue);
    }
    WideEnoughFor(lstOrgan, t.OrganTargetNames);
    WideEnoughFor(lstTissue, tissues);
    WideEnoughFor(lstLocus, loci);

    connect(lstOrgan, &QComboBox::currentIndexChanged, this, [this] { OrganClick(); });
    connect(lstTissue, &QComboBox::currentIndexChanged, this, [this] { TissueClick(); });
}

void AttachmentCombos::Load()
{
    Refill(lstOrgan, session.Tables.OrganTargetNames);
    SelectFirst(lstOrgan);
}

void AttachmentCombos::OrganClick()
{
    const int organ = lstOrgan->currentIndex();
    Refill(lstTissue, session.Tables.TargetTissues(organ));
    if (lstTissue->count() > 0)
        lstTissue->setCurrentIndex(0);
    else
        TissueClick(); // no target: nothing below it either
    if (organ == CurrentOrgan) {
        Refill(lstLocus, session.Tables.TargetLoci(side, organ, 0));
        SelectFirst(lstLocus);
    }
}

void AttachmentCombos::TissueClick()
{
    const int organ = lstOrgan->currentIndex();
    if (organ == CurrentOrgan)
        return; // its loci came with the organ
    Refill(lstLocus, session.Tables.TargetLoci(side, organ, lstTissue->currentIndex()));
    SelectFirst(lstLocus);
}

void AttachmentCombos::BindPlace(Bindings &bind, ByteRef organ, ByteRef tissue, ByteRef locus)
{
    bind.Step(
        [this, organ] {
            quint8 *v = organ();
            if (!v)
                return;
            const int item = *v < lstOrgan->count() ? int(*v) : -1;
            // Selecting runs the chain only if the item changes; it must run in any case.
            if (lstOrgan->currentIndex() == item)
                OrganClick();
            else
                lstOrgan->setCurrentIndex(item);
        },
        [this, organ] {
            quint8 *v = organ();
            if (v && lstOrgan->currentIndex() >= 0)
                *v = quint8(lstOrgan->currentIndex());
        });
    ComboMap fold = ComboMap::FoldToLast();
    fold.keepUnshown = true; // an empty list (no organ) folds nothing and stores nothing
    bind.Combo(lstTissue, tissue, fold);
    bind.Combo(lstLocus, locus, fold);
}

// --- the chemical frame -----------------------------------------------------------------------

ChemicalCombo *ChemicalRow(Session &session, Form::FrameGrid &rows)
{
    auto *combo = new ChemicalCombo(session, rows.frame);
    combo->setObjectName(QStringLiteral("lstChem"));
    rows.row(QStringLiteral("Chemical:"), combo);
    return combo;
}
