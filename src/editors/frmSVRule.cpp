#include "editors/frmSVRule.h"

#include "widgets/Placement.h"
#include "core/Session.h"
#include "editors/GeneEditor.h"
#include "widgets/FormBuilder.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
// Index of the error word, the last row of the vocabulary.
constexpr int ErrorToken = 41;
}

frmSVRule::frmSVRule(Session &s, QWidget *parent) : QDialog(parent), session(s)
{
    setObjectName(QStringLiteral("frmSVRule"));
    setWindowTitle(QStringLiteral("State Variable Rule"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setModal(true);

    auto *frame = new QGroupBox(QStringLiteral("State Variable Rule"), this);
    frame->setObjectName(QStringLiteral("Frame1"));
    auto *grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(4);

    auto *label1 = new QLabel(QStringLiteral("Line 1:"), frame);
    label1->setObjectName(QStringLiteral("Label1"));
    auto *label2 = new QLabel(QStringLiteral("Line 2:"), frame);
    label2->setObjectName(QStringLiteral("Label2"));
    grid->addWidget(label1, 0, 0, 1, 6);
    grid->addWidget(label2, 2, 0, 1, 6);
    for (int i = 0; i < Tokens; ++i) {
        auto *combo = new QComboBox(frame);
        combo->setObjectName(QStringLiteral("lstSR_%1").arg(i));
        combo->setMaxVisibleItems(42);
        combo->setMinimumContentsLength(10);
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo->setToolTip(QStringLiteral("Token %1 of the rule").arg(i));
        lstSR[i] = combo;
        grid->addWidget(combo, i < 6 ? 1 : 3, i % 6);
    }
    grid->setRowMinimumHeight(2, 24);

    SVOKCommand = new QPushButton(QStringLiteral("&Ok"), this);
    SVOKCommand->setObjectName(QStringLiteral("SVOKCommand"));
    SVOKCommand->setDefault(true);
    SCCancelCommand = Form::NamedButton(this, QStringLiteral("SCCancelCommand"), QStringLiteral("&Cancel"));
    connect(SVOKCommand, &QPushButton::clicked, this, &frmSVRule::OkClicked);
    connect(SCCancelCommand, &QPushButton::clicked, this, &QDialog::reject);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(SVOKCommand);
    buttons->addWidget(SCCancelCommand);

    auto *column = new QVBoxLayout(this);
    column->addWidget(frame);
    column->addLayout(buttons);

    Load();
}

void frmSVRule::Load()
{
    adjustSize();
    Placement::CentreForm(this);
    for (QComboBox *combo : lstSR) {
        combo->clear();
        combo->addItems(session.Tables.SVRuleTokens);
        combo->setCurrentIndex(0);
    }
}

void frmSVRule::SetValue(const StateRule &rule)
{
    value = rule;
    if (!value)
        value = std::array<quint8, 12>{};
    for (int i = 0; i < Tokens; ++i) {
        const int token = (*value)[size_t(i)];
        lstSR[i]->setCurrentIndex(token > ErrorToken ? ErrorToken : token);
    }
}

void frmSVRule::OkClicked()
{
    if (!value)
        value = std::array<quint8, 12>{};
    for (int i = 0; i < Tokens; ++i)
        (*value)[size_t(i)] = quint8(qMax(0, lstSR[i]->currentIndex()));
    accept();
}

void frmSVRule::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F1) {
        emit HelpRequested(GeneKinds::HelpStateRule);
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

StateRule EditStateRule(Session &session, const StateRule &rule, QWidget *parent)
{
    frmSVRule dialog(session, parent);
    dialog.SetValue(rule);
    dialog.exec();
    return dialog.Value();
}

QString StateRuleText(const Session &session, const StateRule &rule)
{
    if (!rule)
        return QStringLiteral("<undefined>");
    const QStringList &words = session.Tables.SVRuleTokens;
    QString text;
    for (quint8 token : *rule) {
        if (token == 0)
            break;
        if (token > ErrorToken || token >= words.size())
            text += QStringLiteral("E!(") + QString::number(token) + QStringLiteral("): ");
        else
            text += words.at(token) + QStringLiteral(":");
    }
    return text.isEmpty() ? QStringLiteral("<undefined>") : text;
}

void ShowStateRule(const Session &session, const StateRule &rule, QLabel *label)
{
    label->setText(StateRuleText(session, rule));
}
