#pragma once
#include "core/genes/Biochemistry.h"
#include "editors/KindEditor.h"

class QLabel;
class QListWidget;
class TimeSlider;

// The editor of the half-lives of all 256 chemicals: a list of the chemicals, each item
// keeping its chemical's half-life beside it, and one time slider that sets the half-life of
// the chemical selected in the list. The list is filled once, when the editor loads.
class frmHalfLives : public KindEditor<clsHalfLives>
{
    Q_OBJECT
public:
    // The item data role under which each item of lstChem keeps its number.
    static constexpr int KeptNumberRole = Qt::UserRole;

    frmHalfLives(Session &session, clsHalfLives &halfLives, QWidget *mainWindow);

    QListWidget *lstChem = nullptr;
    TimeSlider *scrSet = nullptr;
    QLabel *txtHalfLife = nullptr;

    // The number kept beside item i of lstChem.
    int KeptNumber(int item) const;

protected:
    void LoadEditor() override;

private:
    void ChemicalClicked();
    void SetChanged(int position);
    void Keep(int item, int number);
};
