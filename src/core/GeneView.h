#pragma once
#include <functional>

class Gene;

// What the core knows of a gene's editor. The editors layer implements it with a dialog
// and registers a factory on the session; the core never sees a widget.
class GeneView
{
public:
    virtual ~GeneView() = default;

    // Gene -> controls (header frame, then the kind's own controls).
    virtual void SetControls() = 0;
    // Controls -> gene.
    virtual void GetControls() = 0;

    virtual void SetEditorCaption() = 0;
    virtual void ShowGeneOrgan() {}
    virtual void ShowSVRules() {}

    // Makes the editor visible (first opening).
    virtual void ShowEditor() = 0;
    // Raises an already open editor and gives it the focus.
    virtual void BringToFront() = 0;
    // Closes the editor as the user would: its close event runs the gene's CloseView.
    virtual void RequestClose() = 0;
    // Removes the window; called by the gene's CloseView, never calls back.
    virtual void Dispose() = 0;
};

using GeneViewFactory = std::function<GeneView *(Gene &)>;
