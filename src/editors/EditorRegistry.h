#pragma once
class Session;
class QWidget;

// Registers on the session the factory that makes each gene kind's editor.
void RegisterEditors(Session &session, QWidget *mainWindow);
