#pragma once
// The base of the editor of one gene class: its fields are bound to controls, one line each,
// and SetKindControls / GetKindControls copy them all.
//
//   class frmInject : public KindEditor<clsInject> { ... };
//   // in the constructor, in the order the fields are to be shown:
//   Bind.Combo(lstChem, Of(&clsInject::Chem));
//   Bind.Slider(scrConc, Of(&clsInject::Conc));
//
// Fields are named by pointer to member, by an array member and an index
// (Of(&clsReaction::Chem, i)), or by an accessor (Of([](clsPose &g) -> quint8 & { ... })).
// What a table cannot say goes into a Bind.Step at its place in the order, or into an
// override of SetKindControls / GetKindControls that calls this one.
#include "editors/EditorBinding.h"
#include "editors/GeneEditor.h"

#include <cstddef>

template <class G> class KindEditor : public GeneEditor
{
public:
    KindEditor(Session &session, G &gene, QWidget *mainWindow, GeneKind kind)
        : GeneEditor(session, gene, mainWindow, kind)
    {
    }

    // The gene shown: Owner once the controls are filled, the gene the editor was made for
    // before; null once the editor is disposed.
    G *Kind() const { return static_cast<G *>(Owner ? Owner : EditedGene()); }

protected:
    Bindings Bind;

    ByteRef Of(quint8 G::*field) const
    {
        return [this, field]() -> quint8 * {
            G *g = Kind();
            return g ? &(g->*field) : nullptr;
        };
    }
    template <std::size_t N> ByteRef Of(quint8 (G::*array)[N], int i) const
    {
        return [this, array, i]() -> quint8 * {
            G *g = Kind();
            return g && i >= 0 && std::size_t(i) < N ? &(g->*array)[i] : nullptr;
        };
    }
    ByteRef Of(std::function<quint8 &(G &)> accessor) const
    {
        return [this, accessor]() -> quint8 * {
            G *g = Kind();
            return g ? &accessor(*g) : nullptr;
        };
    }
    TextRef Of(QString G::*field) const
    {
        return [this, field]() -> QString * {
            G *g = Kind();
            return g ? &(g->*field) : nullptr;
        };
    }

    // Every binding, in the order bound. Override to add what comes before or after.
    void SetKindControls() override { Bind.Show(); }
    void GetKindControls() override { Bind.Store(); }
};
