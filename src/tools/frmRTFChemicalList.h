#pragma once
#include <QDialog>

class Session;
class QPushButton;
class QTextEdit;

// "RTF Chemical List": the chemical list as tab-separated text in a rich text box, to be
// copied elsewhere. Not modal. The text is made once, when the dialog opens, and doesn't
// follow later changes of the list.
class frmRTFChemicalList : public QDialog
{
    Q_OBJECT
public:
    explicit frmRTFChemicalList(Session &session, QWidget *parent = nullptr);

    // The menu command: the one list dialog of parent, made if there is none, else shown as
    // it stands.
    static frmRTFChemicalList *Open(Session &session, QWidget *parent);

    QTextEdit *chemRichTextBox = nullptr;
    QPushButton *CloseRTFCommand = nullptr;
};
