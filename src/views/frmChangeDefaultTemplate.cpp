#include "views/frmChangeDefaultTemplate.h"

#include "widgets/FormBuilder.h"
#include "widgets/SingleDialog.h"
#include "widgets/Placement.h"
#include "core/Session.h"
#include "base/Text.h"
#include "vocab/NameLists.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

frmChangeDefaultTemplate::frmChangeDefaultTemplate(Session &s, QWidget *parent) : QDialog(parent), session(s)
{
    setObjectName(QStringLiteral("frmChangeDefaultTemplate"));
    setWindowTitle(QStringLiteral("Change Default Template"));
    setModal(false);

    auto *layout = new QVBoxLayout(this);
    DefaultGenesFrame = new QGroupBox(QStringLiteral("Default Genes Frame"), this);
    DefaultGenesFrame->setObjectName(QStringLiteral("DefaultGenesFrame"));
    auto *frameLayout = new QVBoxLayout(DefaultGenesFrame);
    DefaultListView = new QTreeWidget(DefaultGenesFrame);
    DefaultListView->setObjectName(QStringLiteral("DefaultListView"));
    DefaultListView->setColumnCount(2);
    DefaultListView->setHeaderLabels({QStringLiteral("Gene Type"), QStringLiteral("Default Genes in Template")});
    DefaultListView->setRootIsDecorated(false);
    DefaultListView->setUniformRowHeights(true);
    DefaultListView->setSortingEnabled(false);
    DefaultListView->setSelectionMode(QAbstractItemView::SingleSelection);
    DefaultListView->setSelectionBehavior(QAbstractItemView::SelectRows);
    DefaultListView->setAllColumnsShowFocus(true);
    DefaultListView->header()->setStretchLastSection(true);
    DefaultListView->setColumnWidth(0, DefaultListView->fontMetrics().horizontalAdvance(
                                           QStringLiteral("Total carried (not expressed) genes")) + 24);
    frameLayout->addWidget(DefaultListView);
    layout->addWidget(DefaultGenesFrame, 1);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    auto button = [this, buttons](const char *name, const QString &caption) {
        QPushButton *b = Form::NamedButton(this, QLatin1String(name), caption);
        buttons->addWidget(b);
        return b;
    };
    DChangeCommand = button("DChangeCommand", QStringLiteral("&Change"));
    DSaveCommand = button("DSaveCommand", QStringLiteral("&Save"));
    DCloseCommand = button("DCloseCommand", QStringLiteral("&Close"));
    DSaveCommand->setEnabled(false);
    layout->addLayout(buttons);

    connect(DChangeCommand, &QPushButton::clicked, this, &frmChangeDefaultTemplate::ChangeDefault);
    connect(DSaveCommand, &QPushButton::clicked, this, &frmChangeDefaultTemplate::SaveDefaults);
    connect(DCloseCommand, &QPushButton::clicked, this, &QDialog::close);

    ShowDefaultTemplate();
    resize(DefaultListView->columnWidth(0) + Placement::TwipsToPixels(3300, this), Placement::TwipsToPixels(5250, this));
}

frmChangeDefaultTemplate *frmChangeDefaultTemplate::Open(Session &session, QWidget *parent)
{
    return SingleDialog::Show<frmChangeDefaultTemplate>(parent, [&] { return new frmChangeDefaultTemplate(session, parent); });
}

void frmChangeDefaultTemplate::ShowDefaultTemplate()
{
    DefaultListView->clear();
    const QStringList &names = session.Tables.GenotypeCategoryNames;
    const auto &counts = session.Template.DefaultGeneCounts;
    QList<QTreeWidgetItem *> rows;
    for (int r = 0; r < names.size() && r < int(counts.size()); ++r) {
        if (names[r] == QLatin1String("END"))
            break;
        rows.append(new QTreeWidgetItem({names[r], QString::number(counts[size_t(r)])}));
    }
    DefaultListView->addTopLevelItems(rows);
}

void frmChangeDefaultTemplate::ChangeDefault()
{
    const QList<QTreeWidgetItem *> selected = DefaultListView->selectedItems();
    if (selected.isEmpty()) {
        session.ShowWarning(QStringLiteral("Nothing Selected"));
        return;
    }
    const int r = DefaultListView->indexOfTopLevelItem(selected.first());
    auto &counts = session.Template.DefaultGeneCounts;
    if (r < 0 || r >= int(counts.size()))
        return;
    const QString v = QString::number(counts[size_t(r)]);
    const QString answer = session.prompt.InputBox(
        QStringLiteral("Change Default Genes in Template"),
        QStringLiteral("Change default for ") + session.Tables.GenotypeCategoryNames.value(r)
            + QStringLiteral(" from '") + v + QStringLiteral("'"),
        v);
    if (answer.isEmpty())
        return;
    // The remainder keeps the sign of the number: 1030 gives 6, -3 stays -3.
    const long long n = Text::RoundHalfEven(NameLists::NumericValue(answer));
    counts[size_t(r)] = qint32(n % 1024);
    ShowDefaultTemplate();
    DSaveCommand->setEnabled(true);
}

void frmChangeDefaultTemplate::SaveDefaults()
{
    session.Template.SaveDefaultTemplate();
    DSaveCommand->setEnabled(false);
}
