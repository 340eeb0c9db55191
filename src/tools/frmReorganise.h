#pragma once
#include "core/ChemicalReorganiser.h"

#include <QDialog>
#include <functional>

class Session;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// "Reorganise Chemical Order": the user gives chemicals new numbers one at a time, then has
// the genome and the chemical list rewritten in one go. Not modal. The moves recorded live
// as long as the dialog; closing it drops those not carried out.
class frmReorganise : public QDialog
{
    Q_OBJECT
public:
    // fillChemicalView rebuilds the main window's chemical view after the list has moved.
    frmReorganise(Session &session, std::function<void()> fillChemicalView, QWidget *parent = nullptr);

    // Shows the one dialog of parent, making it first if there is none (it deletes itself
    // when closed).
    static frmReorganise *Open(Session &session, std::function<void()> fillChemicalView, QWidget *parent);

    QGroupBox *ChemicalListFrame = nullptr;
    QTreeWidget *ReorganiseListView = nullptr;
    QGroupBox *ChemicalFrame = nullptr;
    QLabel *ChemicalNameLabel = nullptr;
    QLabel *ChemicalNumberLabel = nullptr;
    QLabel *WasLabel = nullptr;
    QLineEdit *ChangeTextBox = nullptr;
    QPushButton *ChangeCommand = nullptr;
    QPushButton *ReorganiseCommand = nullptr;
    QPushButton *CloseReorganiseCommand = nullptr;

    // The map of moves, as recorded so far.
    const ChemicalReorganiser &Moves() const { return moves; }

    // Clears the moves and the picked chemical, and writes the rows of chemicals 1 to 255.
    void ShowChemicals();
    // Shows chemical i (1..255) as the picked one.
    void PickChemical(int i);
    void Change();
    void Reorganise();

private:
    Session &session;
    ChemicalReorganiser moves;
    std::function<void()> fillChemicalView;
};
