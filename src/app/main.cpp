#include "widgets/QtPrompt.h"
#include "core/Session.h"
#include "editors/EditorRegistry.h"
#include "views/HelixbenchForm.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Helixbench"));
    QApplication::setApplicationVersion(QStringLiteral(HELIX_FILE_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("helixbench"));

    QtPrompt prompt;
    Session session(prompt);
    HelixbenchForm window(session);
    prompt.SetParentWindow(&window);
    RegisterEditors(session, &window);
    window.Startup(QCoreApplication::applicationDirPath());
    window.show();
    return app.exec();
}
