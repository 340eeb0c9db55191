#include "editors/frmPose.h"

#include "core/Session.h"
#include "editors/BodyEditorLists.h"
#include "widgets/FormBuilder.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>

using namespace Form;
using G = clsPose;

namespace {
constexpr int PoseStringLength = 15;
}

frmPose::frmPose(Session &s, clsPose &gene, QWidget *mainWin) : KindEditor(s, gene, mainWin, GeneKind::Pose)
{
    FrameGrid f(this, QStringLiteral("Pose Information"), 2);
    lstPose = Combo(f.frame, QStringLiteral("lstPose"));
    lstPose->setMinimumContentsLength(20);
    lstPose->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lstPose->setMaxVisibleItems(20);
    txtPose = new QLineEdit(QStringLiteral("XXXXXXXXXXXXXXX"), f.frame);
    txtPose->setObjectName(QStringLiteral("txtPose"));
    txtPose->setMinimumWidth(txtPose->fontMetrics().horizontalAdvance(QString(PoseStringLength + 1, QLatin1Char('W'))) + 16);
    txtPose->setToolTip(QStringLiteral("15 characters, from blank to Z"));
    // The pose combo has no caption of its own: it spans the frame above the string.
    f.cells({});
    f.grid->addWidget(lstPose, 0, 0, 1, 3);
    f.row(QStringLiteral("Pose string (15):"), txtPose, 1);

    UseStandardLayout(f.frame);

    BindIndexCombo(Bind, lstPose, Of(&G::pose));
    Bind.Text(txtPose, Of(&G::PoseString), PoseStringLength);
}

void frmPose::LoadEditor() { FillPoseList(session, lstPose); }
