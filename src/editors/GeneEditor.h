#pragma once
#include "core/GeneKind.h"
#include "core/GeneView.h"

#include <QDialog>

class Session;
class Gene;
class GeneHeaderPanel;
class QPushButton;
class QBoxLayout;

// The base of every gene editor: a modeless dialog for one gene, with the Gene Header panel,
// the buttons Close, Cancel and Notes, its place in the cascade and the way it closes.
//
// A kind's editor derives from it and
//   - builds its own controls in its constructor, and puts the header panel and the button
//     row somewhere (UseStandardLayout does header / body / buttons);
//   - overrides LoadEditor to fill its fixed lists (it runs once, right after the editor has
//     been placed, before the gene's values arrive);
//   - overrides SetKindControls / GetKindControls to copy its own fields; the header panel
//     is done before them.
// The gene calls SetControls / GetControls; the editor never writes into the gene by itself,
// except where a kind says so (the rule buttons of a lobe).
class GeneEditor : public QDialog, public GeneView
{
    Q_OBJECT
public:
    // The dialog takes its object name ("frmReceptor"), its F1 topic and whether its header
    // shows the organ label from the kind's row of the kind table.
    GeneEditor(Session &session, Gene &gene, QWidget *mainWindow, GeneKind kind);
    ~GeneEditor() override;

    Session &session;
    // The gene shown; set by SetHeaderControls, the reverse of the gene's View.
    Gene *Owner = nullptr;
    // The F1 topic of this dialog.
    const int HelpContext;

    GeneHeaderPanel *Header = nullptr;
    QPushButton *btnOk = nullptr;
    QPushButton *btnCancel = nullptr;
    QPushButton *btnNotes = nullptr;

    // The header panel, gene -> controls (sets Owner first) and controls -> gene.
    void SetHeaderControls();
    void GetHeaderControls();

    // --- GeneView -----------------------------------------------------------------------
    void SetControls() final;
    void GetControls() final;
    void SetEditorCaption() override;
    void ShowGeneOrgan() override;
    void ShowEditor() override;
    void BringToFront() override;
    void RequestClose() override;
    void Dispose() override;

    // The gene this editor was made for, until it is disposed.
    Gene *EditedGene() const { return gene; }
    QWidget *MainWindow() const { return mainWindow; }
    bool IsLoaded() const { return loaded; }

signals:
    // F1 was pressed in the dialog; the help window opens at the context.
    void HelpRequested(int context);

protected:
    virtual void LoadEditor() {}
    virtual void SetKindControls() {}
    virtual void GetKindControls() {}

    // Header panel at the top, body below it, the button row at the bottom.
    void UseStandardLayout(QWidget *body);
    // The three standard buttons in a row, right-aligned.
    QBoxLayout *ButtonRow();

    // Runs the load handler once: places the dialog, then LoadEditor.
    void EnsureLoaded();

    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void NotesClicked();
    void PutButtonsLastInTabOrder();
    void ScrollIfLargerThanScreen();

    Gene *gene;
    QWidget *mainWindow;
    bool loaded = false;
    bool closing = false;
    bool disposed = false;
};

// An editor of the header panel and the standard buttons only: it serves the kinds whose
// own controls are not built yet, under their own dialog names.
class BareGeneEditor : public GeneEditor
{
    Q_OBJECT
public:
    BareGeneEditor(Session &session, Gene &gene, QWidget *mainWindow, GeneKind kind);
};
