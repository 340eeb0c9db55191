#pragma once
#include "vocab/Rtf.h"

#include <QDialog>

class Gene;
class QGroupBox;
class QPushButton;
class QTextDocument;
class QTextEdit;
class Session;

// The notes of one gene: a modal dialog with a rich text box. Leaving it by Close hands the
// box's RTF source to EditGeneNotes through the session's NotesAccepted and NotesText;
// Cancel and the window's close box hand over nothing.
class GeneNotesForm : public QDialog
{
    Q_OBJECT
public:
    explicit GeneNotesForm(Session &session, QWidget *parent = nullptr);

    // The box's content as RTF source text, and the reverse. A text that is not RTF shows
    // as plain text.
    QString TextRTF() const;
    void SetTextRTF(const QString &source);

    QGroupBox *Frame1 = nullptr;
    QTextEdit *NotesRichTextBox = nullptr;
    QPushButton *GeneNotesClose = nullptr;
    QPushButton *GeneNotesCancel = nullptr;

    // Every way out (both buttons, the close box, Escape) ends here: the box's content goes
    // to NotesText first.
    void done(int result) override;

private:
    Session &session;

    void CloseClicked();
    void ToggleBold();
    void ToggleItalic();
    void ToggleUnderline();
};

// Rich text between the run model of the notes and a text document.
Rtf::Runs DocumentRuns(const QTextDocument &document);
void SetDocumentRuns(QTextDocument &document, const Rtf::Runs &runs);

// Lets the user edit the notes of the gene in GeneNotesForm; Close stores them as the
// gene's annotation, Cancel or the close box store nothing. Returns when the dialog has gone.
void EditGeneNotes(Session &session, Gene &gene, QWidget *parent = nullptr);
