#include "views/GenomeCompareForm.h"

#include "core/Gene.h"
#include "core/GeneCommands.h"
#include "core/Session.h"
#include "core/compare/GeneCopy.h"
#include "core/compare/OtherGenome.h"
#include "widgets/FormBuilder.h"
#include "widgets/Placement.h"

#include <QBrush>
#include <QComboBox>
#include <QFileInfo>
#include <QGroupBox>
#include <QHash>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using GenomeCompare::GenePair;
using GenomeCompare::PairState;

namespace {

enum Column { StateColumn, TypeColumn, IdColumn, GenerationColumn, LeftColumn, RightColumn, ColumnCount };

// A number from 0 to 999 in three digits with leading zeros, written in place: a fill makes
// two or three of them for every row.
void PutThreeDigits(QString &text, int value)
{
    text += QChar(u'0' + value / 100 % 10);
    text += QChar(u'0' + value / 10 % 10);
    text += QChar(u'0' + value % 10);
}

QString ThreeDigits(int value)
{
    QString text;
    text.reserve(3);
    PutThreeDigits(text, value);
    return text;
}

// The captions of one side by key, looked up once for a whole fill: the first record of a
// key wins, as in the store's own lookup.
class Captions
{
public:
    explicit Captions(const Session &s) : session(s)
    {
        const CaptionStore &store = s.CaptionStore;
        index.reserve(store.CaptionCount + 1);
        for (int i = store.CaptionCount - 1; i >= 0; --i) { // backwards: the first record is put last
            const CaptionStore::CaptionRecord &r = store.RecordAt(i);
            index.insert(Key(r.GeneType, r.GeneSubType, r.ID), i);
        }
    }
    // The number and caption of gene n: "#012 007 Hunger - Receptor" (the number as the gene
    // list's key shows it).
    QString SideText(int n) const
    {
        const Gene *g = session.GeneAt(n);
        if (!g)
            return QString();
        const auto it = index.constFind(Key(g->GeneType, g->GeneSubType, g->ID));
        const QString caption = it == index.cend() ? session.CaptionStore.GetCaption(g->GeneType, g->GeneSubType, g->ID)
                                                   : session.CaptionStore.RecordAt(*it).Caption;
        QString text;
        text.reserve(5 + caption.size());
        text += QLatin1Char('#');
        PutThreeDigits(text, n);
        text += QLatin1Char(' ');
        text += caption;
        return text;
    }

private:
    static quint64 Key(int type, int subType, int id)
    {
        return quint64(quint16(type)) << 32 | quint64(quint16(subType)) << 16 | quint16(id);
    }
    const Session &session;
    QHash<quint64, int> index;
};

QColor StateColour(PairState state)
{
    switch (state) {
    case PairState::Changed: return QColor(0xB0, 0x60, 0x00);
    case PairState::OnlyLeft: return QColor(0x00, 0x50, 0xB0);
    case PairState::OnlyRight: return QColor(0x00, 0x80, 0x30);
    case PairState::Same: break;
    }
    return QColor();
}

} // namespace

GenomeCompareForm *GenomeCompareForm::Open(Session &session, QWidget *parent)
{
    const QString name = session.prompt.OpenFileName(QStringLiteral("Compare With Genome File"),
                                                     session.GenomeDialogFolder(), Session::GenomeFilter,
                                                     QStringLiteral("gen"));
    if (name.isEmpty() || QFileInfo(name).fileName().isEmpty())
        return nullptr;
    auto other = std::make_unique<OtherGenome>(session);
    other->Read(name);
    auto *form = new GenomeCompareForm(session, std::move(other), parent);
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->show();
    return form;
}

GenomeCompareForm::GenomeCompareForm(Session &s, std::unique_ptr<OtherGenome> o, QWidget *parent)
    : QDialog(parent), session(s), other(std::move(o))
{
    setObjectName(QStringLiteral("GenomeCompareForm"));
    setWindowTitle(QStringLiteral("Compare Genomes"));
    setModal(false);

    lblLeft = Form::Label(this, QStringLiteral("lblLeft"), QString());
    lblRight = Form::Label(this, QStringLiteral("lblRight"), QStringLiteral("Right: ") + other->FileName());
    lblRight->setTextInteractionFlags(Qt::TextSelectableByMouse);

    lstShow = Form::Combo(this, QStringLiteral("lstShow"));
    lstShow->addItems({QStringLiteral("All genes"), QStringLiteral("Differences only")});
    lstKind = Form::Combo(this, QStringLiteral("lstKind"));
    lstKind->addItem(QStringLiteral("All kinds"));
    for (int k = 0; k < GeneKinds::Count; ++k) {
        const GeneKindInfo &kind = GeneKinds::At(k);
        const QStringList *names[] = {&session.Tables.BrainGeneNames, &session.Tables.BiochemistryGeneNames,
                                      &session.Tables.CreatureGeneNames, &session.Tables.OrganGeneNames};
        lstKind->addItem(names[kind.type]->value(kind.subType, QString::fromLatin1(kind.factoryName)));
    }
    lstKind->setMaxVisibleItems(GeneKinds::Count + 1);

    CompareListView = new QTreeWidget(this);
    QTreeWidget *v = CompareListView;
    v->setObjectName(QStringLiteral("CompareListView"));
    v->setColumnCount(ColumnCount);
    v->setHeaderLabels({QStringLiteral("State"), QStringLiteral("Type / field"), QStringLiteral("G-ID"),
                        QStringLiteral("Gen #"), QStringLiteral("Left (open genome)"), QStringLiteral("Right (other file)")});
    v->setSelectionMode(QAbstractItemView::ExtendedSelection);
    v->setSelectionBehavior(QAbstractItemView::SelectRows);
    v->setEditTriggers(QAbstractItemView::NoEditTriggers);
    v->setUniformRowHeights(true);
    v->setAllColumnsShowFocus(true);
    v->setSortingEnabled(false);
    v->setAlternatingRowColors(true);
    const int widths[ColumnCount] = {105, 280, 45, 50, 250, 250};
    for (int c = 0; c < ColumnCount; ++c)
        v->setColumnWidth(c, widths[c]);

    txtMessages = new QPlainTextEdit(this);
    txtMessages->setObjectName(QStringLiteral("txtMessages"));
    txtMessages->setReadOnly(true);
    txtMessages->setMaximumHeight(90);
    const QStringList messages = other->Messages();
    txtMessages->setPlainText(messages.join(QLatin1Char('\n')));
    auto *messageFrame = Form::Frame(this, QStringLiteral("Messages from reading the other genome"));
    (new QVBoxLayout(messageFrame))->addWidget(txtMessages);
    messageFrame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    messageFrame->setVisible(!messages.isEmpty());

    lblSummary = Form::Label(this, QStringLiteral("lblSummary"), QString());
    btnCopy = Form::NamedButton(this, QStringLiteral("btnCopy"), QStringLiteral("C&opy to Open Genome"));
    btnRefresh = Form::NamedButton(this, QStringLiteral("btnRefresh"), QStringLiteral("Co&mpare Again"));
    btnClose = Form::NamedButton(this, QStringLiteral("btnClose"), QStringLiteral("&Close"));

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(lblLeft);
    layout->addWidget(lblRight);
    layout->addLayout(Form::Box(new QHBoxLayout, {Form::Label(this, QStringLiteral("lblShow"), QStringLiteral("Show:")),
                                                  lstShow, Form::Label(this, QStringLiteral("lblKind"), QStringLiteral("Kind:")),
                                                  lstKind, Form::Stretch()}));
    layout->addWidget(CompareListView, 1);
    layout->addWidget(messageFrame);
    layout->addWidget(lblSummary);
    layout->addLayout(Form::Box(new QHBoxLayout, {btnCopy, btnRefresh, Form::Stretch(), btnClose}));

    connect(lstShow, &QComboBox::currentIndexChanged, this, &GenomeCompareForm::FillList);
    connect(lstKind, &QComboBox::currentIndexChanged, this, &GenomeCompareForm::FillList);
    connect(btnCopy, &QPushButton::clicked, this, &GenomeCompareForm::CopySelected);
    connect(btnRefresh, &QPushButton::clicked, this, &GenomeCompareForm::Recompare);
    connect(btnClose, &QPushButton::clicked, this, &QWidget::close);
    // The open genome's rows change: a load, a delete, a closed editor, a rename.
    connect(&session, &Session::ViewsRefreshRequested, this, &GenomeCompareForm::Recompare);
    connect(&session, &Session::GeneRowChanged, this, &GenomeCompareForm::Recompare);

    resize(Placement::TwipsToPixels(15000, this), Placement::TwipsToPixels(9000, this));
    Recompare();
    Placement::CentreForm(this);
}

GenomeCompareForm::~GenomeCompareForm() = default;

void GenomeCompareForm::Recompare()
{
    lblLeft->setText(QStringLiteral("Left: the open genome (") + session.StatusPanel[1] + QStringLiteral(")"));
    leftRecords = GenomeCompare::GeneRecords(session);
    // The other genome only gives: its records stand as long as the window.
    if (rightRecords.size() != other->Genome().GeneCount)
        rightRecords = GenomeCompare::GeneRecords(other->Genome());
    comparison = GenomeCompare::Compare(leftRecords, rightRecords);
    lblSummary->setText(QStringLiteral("%1 genes left, %2 right: %3 same, %4 changed, %5 only left, %6 only right")
                            .arg(leftRecords.size())
                            .arg(rightRecords.size())
                            .arg(comparison.Count(PairState::Same))
                            .arg(comparison.Count(PairState::Changed))
                            .arg(comparison.Count(PairState::OnlyLeft))
                            .arg(comparison.Count(PairState::OnlyRight)));
    FillList();
}

void GenomeCompareForm::FillList()
{
    const bool differencesOnly = lstShow->currentIndex() == 1;
    const int kind = lstKind->currentIndex() - 1;
    const Session &right = other->Genome();
    QTreeWidget *v = CompareListView;
    v->setUpdatesEnabled(false);
    v->clear();
    shownPairs.clear();

    const Captions leftCaptions(session), rightCaptions(right);
    QList<QTreeWidgetItem *> rows;
    rows.reserve(comparison.pairs.size());
    for (int p = 0; p < comparison.pairs.size(); ++p) {
        const GenePair &pair = comparison.pairs.at(p);
        if (!GenomeCompare::Shown(pair, differencesOnly, kind))
            continue;
        const Gene *g = pair.left >= 0 ? session.GeneAt(pair.left) : right.GeneAt(pair.right);
        if (!g)
            continue;
        auto *row = new QTreeWidgetItem(QStringList{GenomeCompare::StateText(pair.state),
                                                    GeneCommands::DescribeGene(session, *g, true),
                                                    ThreeDigits(g->ID),
                                                    QString::number(g->Generation), leftCaptions.SideText(pair.left),
                                                    rightCaptions.SideText(pair.right)});
        shownPairs.append(p);
        if (pair.state != PairState::Same)
            row->setForeground(StateColumn, QBrush(StateColour(pair.state)));
        for (const GeneField *f : pair.changed)
            new QTreeWidgetItem(row, QStringList{QString(), GeneFields::FieldName(session, *f), QString(), QString(),
                                                 GeneFields::ValueText(session, *f, leftRecords.at(pair.left)),
                                                 GeneFields::ValueText(session, *f, rightRecords.at(pair.right))});
        rows.append(row);
    }
    v->addTopLevelItems(rows);
    for (QTreeWidgetItem *row : rows)
        if (row->childCount() > 0)
            row->setExpanded(true);
    v->setUpdatesEnabled(true);
}

void GenomeCompareForm::CopySelected()
{
    QVector<int> genes;
    for (int i = 0; i < CompareListView->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = CompareListView->topLevelItem(i);
        bool chosen = row->isSelected();
        for (int c = 0; c < row->childCount() && !chosen; ++c)
            chosen = row->child(c)->isSelected();
        const int p = shownPairs.value(i, -1);
        if (chosen && p >= 0 && p < comparison.pairs.size() && comparison.pairs.at(p).right >= 0)
            genes.append(comparison.pairs.at(p).right);
    }
    if (genes.isEmpty()) {
        session.ShowWarning(QStringLiteral("No gene of the other genome is selected to copy"));
        return;
    }
    const QVector<int> added = GeneCopy::CopyGenes(session, other->Genome(), genes);
    for (int n : added)
        emit GeneAdded(n);
    if (!added.isEmpty())
        Recompare();
}
