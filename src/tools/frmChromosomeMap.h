#pragma once
#include <QDialog>

class Session;
class MapPicture;
class QGroupBox;
class QPushButton;

// "Chromosome Map": the encoded genome drawn as one line for each byte. Not modal. The map
// is drawn when the dialog opens and when Update Now is pressed, and follows no change of the
// genome in between.
class frmChromosomeMap : public QDialog
{
    Q_OBJECT
public:
    explicit frmChromosomeMap(Session &session, QWidget *parent = nullptr);

    // The menu command: with no genes a message and no dialog; otherwise the one map dialog
    // of parent, made, centred and plotted if there is none, else brought to the front as
    // it stands. Gives the dialog, or nothing.
    static frmChromosomeMap *PlotChromosomeMap(Session &session, QWidget *parent);

    QGroupBox *GeneMapFrame = nullptr;
    MapPicture *ChromosomePicture = nullptr;
    QPushButton *UpdateNowCommand = nullptr;
    QPushButton *CloseCommand = nullptr;

    // Plots the map anew (the plot of Update Now). Gives the number of ticks drawn.
    int UpdateNow();
    bool Plotting() const { return plotting; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    Session &session;
    bool plotting = false;
    bool closeWhenPlotted = false; // a close asked for while the plot let events run
};
