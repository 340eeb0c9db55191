#include "editors/frmGait.h"

#include "core/Session.h"
#include "editors/BodyEditorLists.h"
#include "widgets/FormBuilder.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

using namespace Form;
using G = clsGait;

namespace {
constexpr int Gaits = 16; // the normal gait and special gaits 1 to 15
}

frmGait::frmGait(Session &s, clsGait &gene, QWidget *mainWin) : KindEditor(s, gene, mainWin, GeneKind::Gait)
{
    QGroupBox *frame = Frame(this, QStringLiteral("Gait"));
    auto *grid = new QGridLayout(frame);

    lstDrive = Combo(frame, QStringLiteral("lstDrive"));
    lstDrive->setMaxVisibleItems(Gaits);
    lblAnimation = Label(frame, QStringLiteral("lblAnimation"),
                         QStringLiteral("Up to eight poses constituting the animation to use when walking during this gait"));
    lblSwitching = Label(frame, QStringLiteral("lblSwitching"),
                         QStringLiteral("Gaits are switched on by receptors in creature : sensori-motor loci"));

    grid->addWidget(lstDrive, 0, 0);
    grid->addWidget(lblAnimation, 1, 0, 1, 2);
    // The animation in reading order: two poses a row.
    for (int i = 0; i < Poses; ++i) {
        lstPose[i] = Combo(frame, Indexed("lstPose", i));
        lstPose[i]->setMinimumContentsLength(18);
        lstPose[i]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        lstPose[i]->setMaxVisibleItems(20);
        grid->addWidget(lstPose[i], 2 + i / 2, i % 2);
    }
    grid->addWidget(lblSwitching, 2 + Poses / 2, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);

    UseStandardLayout(frame);

    BindIndexCombo(Bind, lstDrive, Of(&G::Drive));
    for (int i = 0; i < Poses; ++i)
        BindIndexCombo(Bind, lstPose[i], Of(&G::Anim, i));
}

void frmGait::LoadEditor()
{
    lstDrive->clear();
    lstDrive->addItem(QStringLiteral("Normal gait"));
    for (int i = 1; i < Gaits; ++i)
        lstDrive->addItem(QStringLiteral("Special gait ") + QString::number(i));
    lstDrive->setCurrentIndex(0);

    for (QComboBox *c : lstPose)
        FillPoseList(session, c, QStringLiteral("<empty>"));
}
