#include "views/OrganViewTab.h"

#include "widgets/Placement.h"
#include "core/Gene.h"
#include "core/Session.h"
#include "base/Text.h"
#include "views/HelixbenchForm.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <vector>

namespace {

// Draws one picture of the image list on a 16-unit grid, at the given pixel size.
QPixmap DrawImage(const QString &name, int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 16.0, size / 16.0);

    if (name == OrganLayout::OrganImage) {
        // A bean-shaped organ.
        QPainterPath bean;
        bean.moveTo(8, 3);
        bean.cubicTo(13, -1, 17, 7, 13, 12);
        bean.cubicTo(10, 16, 4, 16, 2.5, 11.5);
        bean.cubicTo(1, 7, 5, 6, 8, 3);
        p.setPen(QPen(QColor(110, 20, 30), 1.0));
        p.setBrush(QColor(205, 60, 70));
        p.drawPath(bean);
        p.setPen(QPen(QColor(250, 170, 170), 1.0));
        p.drawArc(QRectF(5, 6, 6, 6), 200 * 16, 90 * 16);
    } else if (name == OrganLayout::EmitterImage) {
        // A source with rays going out.
        p.setPen(QPen(QColor(20, 110, 40), 1.4, Qt::SolidLine, Qt::RoundCap));
        for (int i = 0; i < 8; ++i) {
            p.save();
            p.translate(8, 8);
            p.rotate(i * 45.0);
            p.drawLine(QPointF(0, -4.5), QPointF(0, -7));
            p.restore();
        }
        p.setBrush(QColor(60, 180, 80));
        p.setPen(QPen(QColor(20, 110, 40), 1.0));
        p.drawEllipse(QPointF(8, 8), 3.2, 3.2);
    } else if (name == OrganLayout::ReceptorImage) {
        // A cup that catches what falls into it.
        p.setPen(QPen(QColor(20, 60, 140), 1.6, Qt::SolidLine, Qt::RoundCap));
        p.setBrush(Qt::NoBrush);
        QPainterPath cup;
        cup.moveTo(2.5, 7);
        cup.cubicTo(2.5, 15.5, 13.5, 15.5, 13.5, 7);
        p.drawPath(cup);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(70, 130, 220));
        p.drawEllipse(QPointF(8, 3.5), 2.2, 2.2);
        p.drawEllipse(QPointF(8, 10.5), 2.2, 2.2);
    } else if (name == OrganLayout::ReactionImage) {
        // Two circles joined by an arrow: one thing turning into another.
        p.setPen(QPen(QColor(150, 80, 0), 1.0));
        p.setBrush(QColor(240, 160, 40));
        p.drawEllipse(QPointF(3.5, 8), 2.6, 2.6);
        p.setBrush(QColor(250, 220, 90));
        p.drawEllipse(QPointF(12.5, 8), 2.6, 2.6);
        p.setPen(QPen(QColor(90, 50, 0), 1.2, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(6.5, 8), QPointF(9.2, 8));
        p.drawLine(QPointF(7.8, 6.6), QPointF(9.2, 8));
        p.drawLine(QPointF(7.8, 9.4), QPointF(9.2, 8));
    } else {
        // Information: a white "i" on a blue disc.
        p.setPen(QPen(QColor(20, 50, 120), 1.0));
        p.setBrush(QColor(50, 100, 200));
        p.drawEllipse(QPointF(8, 8), 7, 7);
        p.setPen(Qt::NoPen);
        p.setBrush(Qt::white);
        p.drawEllipse(QPointF(8, 4.6), 1.3, 1.3);
        p.drawRoundedRect(QRectF(6.9, 6.8, 2.2, 6.2), 0.8, 0.8);
    }
    return pixmap;
}

// Fills the tree widget as the layout walk reports the nodes.
class TreeSink : public OrganTreeSink
{
public:
    TreeSink(QTreeWidget &tree, QLabel &label, const QHash<QString, QIcon> &images)
        : tree(tree), label(label), images(images) {}

    void Clear() override
    {
        tree.clear();
        nodes.clear();
        tree.setIconSize(QSize(16, 16));
    }

    int AddNode(int parent, const QString &key, const QString &text, const QString &image) override
    {
        // Nodes are made detached and put into the tree in one batch by Attach: a node
        // added to a tree one at a time costs a model update for each.
        auto *item = new QTreeWidgetItem;
        item->setText(0, text);
        item->setData(0, OrganViewTab::KeyRole, key);
        item->setData(0, OrganViewTab::ImageRole, image);
        item->setIcon(0, images.value(image));
        if (parent < 0)
            topLevel.append(item);
        else
            nodes[size_t(parent)]->addChild(item);
        nodes.push_back(item);
        if (key == QLatin1String("stat01"))
            statistics = item;
        return int(nodes.size()) - 1;
    }

    // Puts the nodes made so far into the tree.
    void Attach()
    {
        tree.addTopLevelItems(topLevel);
        topLevel.clear();
    }

    void SetStatusText(const QString &text) override { label.setText(text); }

    QTreeWidgetItem *statistics = nullptr;

private:
    QTreeWidget &tree;
    QLabel &label;
    const QHash<QString, QIcon> &images;
    std::vector<QTreeWidgetItem *> nodes;
    QList<QTreeWidgetItem *> topLevel;
};

} // namespace

// Keeps a build's nodes and status line for a tree that does not exist yet. A build clears
// what came before it; one that stopped on a fault leaves the nodes made so far and the
// line as it was, as it would in the tree.
class RecordingSink : public OrganTreeSink
{
public:
    explicit RecordingSink(OrganViewTab::Recorded &r) : r(r) {}
    void Clear() override
    {
        r.cleared = true;
        r.nodes.clear();
    }
    int AddNode(int parent, const QString &key, const QString &text, const QString &image) override
    {
        r.nodes.push_back({parent, key, text, image});
        return int(r.nodes.size()) - 1;
    }
    void SetStatusText(const QString &text) override
    {
        r.hasStatus = true;
        r.status = text;
    }

private:
    OrganViewTab::Recorded &r;
};

OrganViewTab::OrganViewTab(Session &s, HelixbenchForm &w) : session(s), mainWindow(w), builder(s)
{
    connect(&session, &Session::ViewsRefreshRequested, this, [this] { BuildOrganTree(); });
}

void OrganViewTab::BuildPage()
{
    for (const QString &name : {OrganLayout::OrganImage, OrganLayout::EmitterImage, OrganLayout::ReactionImage,
                                OrganLayout::ReceptorImage, OrganLayout::InformationImage}) {
        QIcon icon;
        icon.addPixmap(DrawImage(name, 16));
        icon.addPixmap(DrawImage(name, 32));
        GeneralImageList.insert(name, icon);
    }

    auto *layout = new QVBoxLayout(this);
    auto *frame = new QGroupBox(QStringLiteral("Gene Layout by Organ"), this);
    frame->setObjectName(QStringLiteral("OV_frame"));
    layout->addWidget(frame);

    auto *inner = new QVBoxLayout(frame);
    OrganTreeView = new QTreeWidget(frame);
    OrganTreeView->setObjectName(QStringLiteral("OrganTreeView"));
    OrganTreeView->setHeaderHidden(true);
    OrganTreeView->setColumnCount(1);
    OrganTreeView->setSortingEnabled(false);
    OrganTreeView->setUniformRowHeights(true);
    OrganTreeView->setSelectionMode(QAbstractItemView::SingleSelection);
    OrganTreeView->setIconSize(QSize(16, 16));
    inner->addWidget(OrganTreeView, 1);

    auto *bottom = new QHBoxLayout;
    EditFromOrganButton = new QPushButton(QStringLiteral("&Edit Gene"), frame);
    EditFromOrganButton->setObjectName(QStringLiteral("EditFromOrganCommand"));
    OrganStatusLabel = new QLabel(frame);
    OrganStatusLabel->setObjectName(QStringLiteral("OrganStatusLabel"));
    bottom->addWidget(EditFromOrganButton);
    bottom->addSpacing(Placement::TwipsToPixels(240, this));
    bottom->addWidget(OrganStatusLabel, 1);
    inner->addLayout(bottom);

    connect(EditFromOrganButton, &QPushButton::clicked, this, [this] { EditFromOrganCommand(); });
    connect(OrganTreeView, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem *item, int) { OnDoubleClick(item); });

    // A build made before the tree existed goes in as that build would have put it.
    if (recorded.cleared || recorded.hasStatus)
        IntoTree([this](OrganTreeSink &sink) {
            if (recorded.cleared)
                sink.Clear();
            for (const Recorded::Node &n : recorded.nodes)
                sink.AddNode(n.parent, n.key, n.text, n.image);
            if (recorded.hasStatus)
                sink.SetStatusText(recorded.status);
            return true;
        });
    recorded = Recorded();
}

bool OrganViewTab::BuildOrganTree()
{
    if (session.GeneCount == 0 || builder.OrganTreeBusy)
        return false;
    if (!IsBuilt()) {
        RecordingSink sink(recorded);
        return builder.BuildOrganTree(sink);
    }
    return IntoTree([this](OrganTreeSink &sink) { return builder.BuildOrganTree(sink); });
}

bool OrganViewTab::IntoTree(const std::function<bool(OrganTreeSink &)> &build)
{
    TreeSink sink(*OrganTreeView, *OrganStatusLabel, GeneralImageList);
    OrganTreeView->setUpdatesEnabled(false);
    const bool built = build(sink);
    sink.Attach();
    if (sink.statistics)
        sink.statistics->setExpanded(true);
    OrganTreeView->setUpdatesEnabled(true);
    return built;
}

void OrganViewTab::EnterTab()
{
    if (!session.OrganViewStale)
        return;
    Prompt &prompt = session.prompt;
    prompt.ProgressLoad(QStringLiteral("Updating organ layout..."));
    prompt.ProgressShow();
    BuildOrganTree();
    if (prompt.ProgressVisible())
        prompt.ProgressSetValue(100);
    prompt.ProgressUnload();
}

void OrganViewTab::EditFromOrganCommand()
{
    const QList<QTreeWidgetItem *> selected = OrganTreeView->selectedItems();
    QTreeWidgetItem *node = selected.isEmpty() ? nullptr : selected.first();
    if (!node) {
        session.ShowInfo(QStringLiteral("No gene selected"));
        return;
    }
    if (!node->data(0, KeyRole).toString().startsWith(QLatin1Char('v'))) {
        session.ShowError(QStringLiteral("This is not a gene entry, cannot open edit window"));
        return;
    }
    // The gene number stands in the node's text: "[012] - ...". A tree not rebuilt since a
    // delete may name a number past the end of the list; there is then nothing to open.
    const int number = int(Text::Val(node->text(0).mid(1, 3)));
    if (Gene *gene = session.GeneAt(number))
        gene->OpenView();
}

void OrganViewTab::OnDoubleClick(QTreeWidgetItem *item)
{
    const QList<QTreeWidgetItem *> selected = OrganTreeView->selectedItems();
    if (!item || selected.isEmpty() || !selected.first()->data(0, KeyRole).toString().startsWith(QLatin1Char('v')))
        return;
    EditFromOrganCommand();
}
