#include "editors/EditorRegistry.h"

#include "core/Session.h"

void RegisterEditors(Session &session, QWidget *mainWindow)
{
    // No gene editors are built yet: OpenView leaves a gene closed while no factory is set.
    Q_UNUSED(mainWindow);
    session.EditorFactory = nullptr;
}
