// Pictures of the running program: the main window with the sample genome on each tab, and
// the editor of every gene kind, each saved as a PNG. Run it offscreen (or under Xvfb) with
// QT_SCALE_FACTOR to see a scale:
//
//   QT_QPA_PLATFORM=offscreen build/out/helix_shots OUTDIR [NAME...]
//
// NAME picks pictures by their file name without ".png" ("frmReceptor", "tab3"); none takes
// all. "--size WxH" before OUTDIR sets the main window's outer size (600x520, say) instead of
// its default. The session reads the list files beside the program and loads samples/Sample.gen.
// Besides the tabs and the editors there are the small dialogs ("frmOptions", "NewGeneForm",
// "AboutForm") and the help window at its contents ("HelpWindow") or at an anchor
// ("help-2001"); scripts/help-pictures.sh renews the help's pictures with them.
#include "base/AutoPrompt.h"
#include "core/Gene.h"
#include "core/Session.h"
#include "editors/EditorRegistry.h"
#include "editors/GeneEditor.h"
#include "settings/AboutForm.h"
#include "settings/HelpSystem.h"
#include "settings/HelpWindow.h"
#include "settings/frmOptions.h"
#include "views/HelixbenchForm.h"
#include "views/NewGeneForm.h"

#include <QApplication>
#include <QDir>
#include <QTabWidget>
#include <QTimer>

#include <cstdio>

namespace {

bool Wanted(const QStringList &names, const QString &name) { return names.isEmpty() || names.contains(name); }

void Save(QWidget *w, const QDir &out, const QString &name)
{
    w->show();
    w->raise();
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
    const QString file = out.filePath(name + QStringLiteral(".png"));
    if (!w->grab().save(file))
        std::fprintf(stderr, "could not write %s\n", qPrintable(file));
    else
        std::printf("%s %dx%d\n", qPrintable(file), w->width(), w->height());
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationVersion(QStringLiteral(HELIX_FILE_VERSION));
    QStringList args = app.arguments().mid(1);
    QSize outer; // invalid: the window's own size
    bool badSize = false;
    if (args.size() >= 2 && args.first() == QLatin1String("--size")) {
        const QStringList wh = args.at(1).split(QLatin1Char('x'));
        outer = wh.size() == 2 ? QSize(wh[0].toInt(), wh[1].toInt()) : QSize();
        badSize = outer.isEmpty();
        args = args.mid(2);
    }
    if (args.isEmpty() || badSize) {
        std::fprintf(stderr, "usage: helix_shots [--size WxH] OUTDIR [NAME...]\n");
        return 2;
    }
    QDir out(args.takeFirst());
    out.mkpath(QStringLiteral("."));

    AutoPrompt prompt;
    Session session(prompt);
    HelixbenchForm window(session);
    RegisterEditors(session, &window);
    window.Startup(QCoreApplication::applicationDirPath());
    window.resize(window.sizeHint().expandedTo(window.size()));
    window.show();
    if (outer.isValid())
        window.resize(outer - (window.frameGeometry().size() - window.size()));
    if (!session.LoadGenomeFile(QStringLiteral(HELIX_SAMPLE_GENOME)))
        std::fprintf(stderr, "the sample genome did not load\n");

    for (int t = 0; t < window.SSTab1->count(); ++t) {
        const QString name = QStringLiteral("tab") + QString::number(t);
        if (!Wanted(args, name))
            continue;
        window.SSTab1->setCurrentIndex(t);
        Save(&window, out, name);
    }

    // The first gene of each kind, in its own editor.
    QStringList done;
    for (int n = 0; n < session.GeneCount; ++n) {
        Gene *g = session.GeneAt(n);
        const GeneKindInfo *kind = g ? GeneKinds::Find(g->GeneType, g->GeneSubType) : nullptr;
        if (!kind || done.contains(QLatin1String(kind->dialogName)))
            continue;
        const QString name = QLatin1String(kind->dialogName);
        done << name;
        if (!Wanted(args, name))
            continue;
        g->OpenView();
        if (auto *editor = dynamic_cast<GeneEditor *>(g->View))
            Save(editor, out, name);
        g->CloseView();
    }

    // The small dialogs, each as it opens.
    if (Wanted(args, QStringLiteral("frmOptions"))) {
        frmOptions options(session, &window);
        Save(&options, out, QStringLiteral("frmOptions"));
    }
    if (Wanted(args, QStringLiteral("NewGeneForm"))) {
        NewGeneForm newGene(session, &window);
        Save(&newGene, out, QStringLiteral("NewGeneForm"));
    }
    if (Wanted(args, QStringLiteral("AboutForm"))) {
        AboutForm *about = AboutForm::Open(&window);
        Save(about, out, QStringLiteral("AboutForm"));
        about->close();
    }

    // The help window, at its contents and at the anchors asked for by name.
    QStringList helpShots;
    if (Wanted(args, QStringLiteral("HelpWindow")))
        helpShots << QStringLiteral("HelpWindow");
    for (const QString &name : args)
        if (name.startsWith(QLatin1String("help-")))
            helpShots << name;
    for (const QString &name : helpShots) {
        const QString anchor = name == QLatin1String("HelpWindow") ? QStringLiteral("contents") : name.mid(5);
        if (!window.Help->ShowHelpAnchor(anchor)) {
            std::fprintf(stderr, "no usable help file at %s\n", qPrintable(window.Help->HelpFilePath()));
            continue;
        }
        Save(window.Help->Window(), out, name);
    }
    return 0;
}
