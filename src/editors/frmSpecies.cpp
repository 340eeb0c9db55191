#include "editors/frmSpecies.h"

#include "core/Session.h"
#include "editors/BodyEditorLists.h"
#include "editors/GeneHeaderPanel.h"
#include "widgets/FormBuilder.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Form;
using G = clsSpecies;

namespace {
constexpr int MonikerLength = 4;
}

frmSpecies::frmSpecies(Session &s, clsSpecies &gene, QWidget *mainWin)
    : KindEditor(s, gene, mainWin, GeneKind::Species)
{
    // The header of the genus gene is shown only; it is still read back on close.
    Header->SetInputEnabled(false);

    FrameGrid f(this, QStringLiteral("Species Gene"), 2);
    lstGenus = Combo(f.frame, QStringLiteral("lstGenus"));
    lstGenus->setMinimumContentsLength(10);
    lstGenus->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    const char *designText[2] = {"EVE_", "ADAM"};
    for (int i = 0; i < 2; ++i) {
        txtFamily[i] = new QLineEdit(QLatin1String(designText[i]), f.frame);
        txtFamily[i]->setObjectName(Indexed("txtFamily", i));
        txtFamily[i]->setMaxLength(MonikerLength);
        txtFamily[i]->setMaximumWidth(txtFamily[i]->fontMetrics().horizontalAdvance(QStringLiteral("WWWWW")) + 16);
    }
    RepairCommand = NamedButton(f.frame, QStringLiteral("RepairCommand"), QStringLiteral("&Repair"));
    RepairCommand->setToolTip(QStringLiteral("Check both monikers now and show what closing would store"));
    lblAutomatic = Label(f.frame, QStringLiteral("lblAutomatic"),
                         QStringLiteral("(Moniker information is automatic after the first generation)"));

    f.row(QStringLiteral("Species of Creature:"), lstGenus, 1);
    f.row(QStringLiteral("Mothers genome moniker:"), txtFamily[0], 1);
    f.row(QStringLiteral("Fathers genome moniker:"), txtFamily[1], 1);
    f.grid->addWidget(RepairCommand, 1, 2, 2, 1, Qt::AlignLeft | Qt::AlignVCenter);
    f.grid->addWidget(lblAutomatic, 3, 0, 1, 3);
    connect(RepairCommand, &QPushButton::clicked, this, &frmSpecies::Repair);

    UseStandardLayout(f.frame);

    // The gene checks both monikers after these are stored (father first), on close and on
    // an encode alike; the editor only copies the texts.
    BindIndexCombo(Bind, lstGenus, Of(&G::Genus));
    Bind.Text(txtFamily[0], Of(&G::Mum), MonikerLength);
    Bind.Text(txtFamily[1], Of(&G::Dad), MonikerLength);
}

void frmSpecies::LoadEditor() { FillSpeciesList(session, lstGenus); }

// Shows at once what closing would store: each moniker checked as the gene checks it, the
// father's first, a bad one told by a message and replaced in its box. The gene is not touched.
void frmSpecies::Repair()
{
    // Both are checked before either box changes, so neither box moves under a message.
    const QString father = session.CheckMoniker(txtFamily[1]->text(), QStringLiteral("D"));
    const QString mother = session.CheckMoniker(txtFamily[0]->text(), QStringLiteral("M"));
    txtFamily[1]->setText(father);
    txtFamily[0]->setText(mother);
}
