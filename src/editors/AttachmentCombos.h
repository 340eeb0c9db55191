#pragma once
// The place a receptor or emitter attaches to, walked down in three combos that depend on one
// another: organ target, tissue, locus. Each level's item index is the byte stored in the gene.
// Picking an organ refills the tissues and selects the first; picking a tissue refills the
// loci and selects the first. The current organ has one tissue, and its loci come with the
// organ, so picking that one tissue leaves the locus as it stands.
#include "editors/EditorBinding.h"
#include "vocab/ReferenceTables.h"
#include "widgets/FormBuilder.h"

#include <QObject>

class QComboBox;
class QGroupBox;
class QWidget;
class Session;

// Owned by the dialog it is built in (its QObject parent).
class AttachmentCombos : public QObject
{
    Form::FrameGrid rows; // first: the frame and the combos are made in it

public:
    using Side = ReferenceTables::Attachment;

    // Builds the frame with its caption and the three captioned combos in it.
    AttachmentCombos(Session &session, Side side, QWidget *owner, const QString &frameCaption);

    QGroupBox *const frame;
    QComboBox *const lstOrgan;
    QComboBox *const lstTissue;
    QComboBox *const lstLocus;

    // The editor's load: the three organ targets, the first selected (which fills the rest).
    void Load();
    // A new organ target: its tissues, the first selected; for the current organ, its loci.
    // No target selected empties both lists below.
    void OrganClick();
    // A new tissue: its loci, the first selected. Nothing for the current organ.
    void TissueClick();

    // Binds the three fields, in this order. The organ's chain runs even if its item does not
    // change, so the lists below always belong to the gene's organ. A tissue or locus past
    // the end of its list is folded to the last item, into the gene at once. An organ beyond
    // the targets selects nothing, leaves the lists below empty, and all three bytes are kept
    // until the user picks an organ.
    void BindPlace(Bindings &bind, ByteRef organ, ByteRef tissue, ByteRef locus);

private:
    Session &session;
    const Side side;
};

class ChemicalCombo;

// Adds the row "Chemical:" with the chemical combo "lstChem" to the frame (the first row of
// the "Chemical Information" frame of a receptor or emitter).
ChemicalCombo *ChemicalRow(Session &session, Form::FrameGrid &rows);
