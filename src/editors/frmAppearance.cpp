#include "editors/frmAppearance.h"

#include "core/Session.h"
#include "editors/BodyEditorLists.h"
#include "widgets/FormBuilder.h"

#include <QComboBox>
#include <QGroupBox>

using namespace Form;
using G = clsAppearance;

namespace {
constexpr int Varieties = 26; // parts sets A to Z
}

frmAppearance::frmAppearance(Session &s, clsAppearance &gene, QWidget *mainWin)
    : KindEditor(s, gene, mainWin, GeneKind::Appearance)
{
    FrameGrid f(this, QStringLiteral("Appearance Setting"), 2);
    lstRegion = Combo(f.frame, QStringLiteral("lstRegion"));
    lstVariety = Combo(f.frame, QStringLiteral("lstVariety"));
    lstGenus = Combo(f.frame, QStringLiteral("lstGenus"));
    for (QComboBox *c : {lstRegion, lstVariety, lstGenus}) {
        c->setMinimumContentsLength(13);
        c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    }
    lstVariety->setMaxVisibleItems(Varieties);
    f.row(QStringLiteral("Body Area:"), lstRegion, 1);
    f.row(QStringLiteral("Parts ID:"), lstVariety, 1);
    f.row(QStringLiteral("Species of bodypart donor:"), lstGenus, 1);

    UseStandardLayout(f.frame);

    BindIndexCombo(Bind, lstRegion, Of(&G::Region));
    BindIndexCombo(Bind, lstVariety, Of(&G::Variety));
    BindIndexCombo(Bind, lstGenus, Of(&G::Genus));
}

void frmAppearance::LoadEditor()
{
    lstRegion->clear();
    lstRegion->addItems({QStringLiteral("Head"), QStringLiteral("Body"), QStringLiteral("Legs"), QStringLiteral("Arms"),
                         QStringLiteral("Tail + create")});
    lstRegion->setCurrentIndex(0);

    lstVariety->clear();
    for (int i = 0; i < Varieties; ++i)
        lstVariety->addItem(QString(QChar('A' + i)) + QLatin1Char('-'));
    lstVariety->setCurrentIndex(0);

    FillSpeciesList(session, lstGenus);
}
