#include "editors/GeneNotesForm.h"

#include "widgets/FormBuilder.h"
#include "widgets/Placement.h"
#include "core/Gene.h"
#include "core/Session.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {

Rtf::Run RunFormat(const QTextCharFormat &format)
{
    Rtf::Run run;
    run.bold = format.fontWeight() >= QFont::DemiBold;
    run.italic = format.fontItalic();
    run.underline = format.fontUnderline();
    if (format.hasProperty(QTextFormat::FontPointSize) && format.fontPointSize() > 0)
        run.halfPoints = qRound(format.fontPointSize() * 2);
    return run;
}

QTextCharFormat CharFormat(const Rtf::Run &run)
{
    QTextCharFormat format;
    if (run.bold)
        format.setFontWeight(QFont::Bold);
    if (run.italic)
        format.setFontItalic(true);
    if (run.underline)
        format.setFontUnderline(true);
    if (run.halfPoints > 0)
        format.setFontPointSize(run.halfPoints / 2.0);
    return format;
}

void Append(Rtf::Runs &runs, const Rtf::Run &format, const QString &text)
{
    if (text.isEmpty())
        return;
    if (runs.isEmpty() || !runs.last().SameFormat(format)) {
        runs.append(format);
        runs.last().text.clear();
    }
    runs.last().text += text;
}

} // namespace

Rtf::Runs DocumentRuns(const QTextDocument &document)
{
    Rtf::Runs runs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        // A paragraph end carries the format the new paragraph starts with.
        if (block != document.begin())
            Append(runs, RunFormat(block.charFormat()), QStringLiteral("\n"));
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (!fragment.isValid())
                continue;
            QString text = fragment.text();
            text.replace(QChar::LineSeparator, QLatin1Char('\n'));
            text.remove(QChar::ObjectReplacementCharacter); // pictures and the like stay behind
            Append(runs, RunFormat(fragment.charFormat()), text);
        }
    }
    return runs;
}

void SetDocumentRuns(QTextDocument &document, const Rtf::Runs &runs)
{
    document.clear();
    QTextCursor cursor(&document);
    for (const Rtf::Run &run : runs) {
        const QTextCharFormat format = CharFormat(run);
        const QStringList paragraphs = run.text.split(QLatin1Char('\n'));
        for (int i = 0; i < paragraphs.size(); ++i) {
            if (i > 0)
                cursor.insertBlock(QTextBlockFormat(), format);
            if (!paragraphs[i].isEmpty())
                cursor.insertText(paragraphs[i], format);
        }
    }
}

GeneNotesForm::GeneNotesForm(Session &s, QWidget *parent) : QDialog(parent), session(s)
{
    setObjectName(QStringLiteral("GeneNotesForm"));
    setWindowTitle(QStringLiteral("Gene Notes"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setModal(true);

    Frame1 = new QGroupBox(QStringLiteral("Detailed Gene Description"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    NotesRichTextBox = new QTextEdit(Frame1);
    NotesRichTextBox->setObjectName(QStringLiteral("NotesRichTextBox"));
    NotesRichTextBox->setAcceptRichText(true);
    NotesRichTextBox->setTabChangesFocus(false);
    NotesRichTextBox->setMinimumSize(Placement::TwipsToPixels(6000, this), Placement::TwipsToPixels(3600, this));
    auto *frameLayout = new QVBoxLayout(Frame1);
    frameLayout->addWidget(NotesRichTextBox);

    GeneNotesClose = Form::NamedButton(this, QStringLiteral("GeneNotesClose"), QStringLiteral("&Close"));
    GeneNotesCancel = Form::NamedButton(this, QStringLiteral("GeneNotesCancel"), QStringLiteral("C&ancel"));
    connect(GeneNotesClose, &QPushButton::clicked, this, &GeneNotesForm::CloseClicked);
    connect(GeneNotesCancel, &QPushButton::clicked, this, &QDialog::reject);

    // The keys a rich text box answers to for the three character styles.
    auto shortcut = [this](const QKeySequence &keys, void (GeneNotesForm::*slot)()) {
        auto *s = new QShortcut(keys, NotesRichTextBox);
        s->setContext(Qt::WidgetShortcut);
        connect(s, &QShortcut::activated, this, slot);
    };
    shortcut(QKeySequence::Bold, &GeneNotesForm::ToggleBold);
    shortcut(QKeySequence::Italic, &GeneNotesForm::ToggleItalic);
    shortcut(QKeySequence::Underline, &GeneNotesForm::ToggleUnderline);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(GeneNotesClose);
    buttons->addWidget(GeneNotesCancel);

    auto *column = new QVBoxLayout(this);
    column->addWidget(Frame1, 1);
    column->addLayout(buttons);

    // Load.
    adjustSize();
    Placement::CentreForm(this);
    session.NotesAccepted = false;
}

QString GeneNotesForm::TextRTF() const { return Rtf::Write(DocumentRuns(*NotesRichTextBox->document())); }

void GeneNotesForm::SetTextRTF(const QString &source)
{
    SetDocumentRuns(*NotesRichTextBox->document(), Rtf::Read(source));
    NotesRichTextBox->moveCursor(QTextCursor::Start);
}

void GeneNotesForm::done(int result)
{
    session.NotesText = TextRTF();
    QDialog::done(result);
}

void GeneNotesForm::CloseClicked()
{
    done(QDialog::Accepted);
    session.NotesAccepted = true;
}

void GeneNotesForm::ToggleBold()
{
    QTextCharFormat format;
    format.setFontWeight(NotesRichTextBox->fontWeight() >= QFont::DemiBold ? QFont::Normal : QFont::Bold);
    NotesRichTextBox->mergeCurrentCharFormat(format);
}

void GeneNotesForm::ToggleItalic()
{
    QTextCharFormat format;
    format.setFontItalic(!NotesRichTextBox->fontItalic());
    NotesRichTextBox->mergeCurrentCharFormat(format);
}

void GeneNotesForm::ToggleUnderline()
{
    QTextCharFormat format;
    format.setFontUnderline(!NotesRichTextBox->fontUnderline());
    NotesRichTextBox->mergeCurrentCharFormat(format);
}

void EditGeneNotes(Session &session, Gene &gene, QWidget *parent)
{
    const int type = gene.GeneType, subType = gene.GeneSubType, id = gene.ID;
    GeneNotesForm form(session, parent);
    form.SetTextRTF(session.CaptionStore.GetAnnotation(type, subType, id));
    form.exec();
    if (session.NotesAccepted)
        session.CaptionStore.SetAnnotation(type, subType, id, session.NotesText);
}
