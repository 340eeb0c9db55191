#pragma once
class Session;
class Gene;
class GeneEditor;
class QWidget;

// Registers on the session the factory that makes each gene kind's editor.
void RegisterEditors(Session &session, QWidget *mainWindow);

// The editor of a gene's kind, not yet loaded or shown (the gene's OpenView does that).
GeneEditor *MakeGeneEditor(Session &session, Gene &gene, QWidget *mainWindow);
