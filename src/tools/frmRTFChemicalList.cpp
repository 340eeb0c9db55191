#include "tools/frmRTFChemicalList.h"

#include "core/Session.h"
#include "widgets/SingleDialog.h"
#include "vocab/PublishedChemicals.h"
#include "widgets/FormBuilder.h"
#include "widgets/Placement.h"

#include <QHBoxLayout>
#include <QFontMetrics>
#include <QPushButton>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextOption>
#include <QTextEdit>
#include <QVBoxLayout>

frmRTFChemicalList::frmRTFChemicalList(Session &session, QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmRTFChemicalList"));
    setWindowTitle(QStringLiteral("RTF Chemical List"));
    setModal(false);

    chemRichTextBox = new QTextEdit(this);
    chemRichTextBox->setObjectName(QStringLiteral("chemRichTextBox"));
    chemRichTextBox->setAcceptRichText(true);
    chemRichTextBox->setLineWrapMode(QTextEdit::NoWrap);
    // Two tab stops make columns of the rows: behind the widest number and the widest name.
    const QFontMetrics metrics = chemRichTextBox->fontMetrics();
    const int gap = metrics.horizontalAdvance(QStringLiteral("00"));
    int widestName = 0;
    for (int i = 1; i < PublishedChemicals::Count; ++i)
        widestName = qMax(widestName, metrics.horizontalAdvance(session.Lists.ChemicalNames[size_t(i)]));
    const qreal nameStop = metrics.horizontalAdvance(QStringLiteral("000")) + gap;
    chemRichTextBox->setPlainText(PublishedChemicals::ChemicalTable(session.Lists));
    QTextBlockFormat columns;
    columns.setTabPositions({QTextOption::Tab(nameStop, QTextOption::LeftTab),
                             QTextOption::Tab(nameStop + widestName + gap, QTextOption::LeftTab)});
    QTextCursor all(chemRichTextBox->document());
    all.select(QTextCursor::Document);
    all.mergeBlockFormat(columns);
    chemRichTextBox->document()->setModified(false);
    chemRichTextBox->moveCursor(QTextCursor::Start);

    CloseRTFCommand = Form::NamedButton(this, QStringLiteral("CloseRTFCommand"), QStringLiteral("&Close"));
    connect(CloseRTFCommand, &QPushButton::clicked, this, &QWidget::close);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(chemRichTextBox, 1);
    auto *buttons = new QHBoxLayout;
    Form::Box(buttons, {Form::Stretch(), CloseRTFCommand});
    layout->addLayout(buttons);
    resize(Placement::TwipsToPixels(7200, this), Placement::TwipsToPixels(6000, this));
}

frmRTFChemicalList *frmRTFChemicalList::Open(Session &session, QWidget *parent)
{
    return SingleDialog::Show<frmRTFChemicalList>(parent, [&] { return new frmRTFChemicalList(session, parent); });
}
