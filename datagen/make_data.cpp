// Writes the files a first start needs beside the program, through the program's own
// writers, into the folder given first. The files in data/ and samples/ were made by:
//
//   cmake -S datagen -B build-datagen -G Ninja && ninja -C build-datagen make_data
//   build-datagen/make_data data samples
//
// chemicals.txt, chemicals.def: chemical 0 "<none>", every other slot its number (free),
//                               no descriptions; the same defaults the loader falls back on.
// posename.txt, posename.def:   every pose its number, no descriptions.
// scriptnames.txt:              twenty "<empty>" script slots without macros.
// mutations.txt:                the template presets.
// Melk.GNO ... Quorrel.GNO:     each species' default caption file, with no captions yet,
//                               so that a genome without its own .gno loads without a fault.
//
// With a second argument it also writes a small sample genome and its captions:
//
//   build-datagen/make_data data samples
//
// samples/Sample.gen, samples/Sample.gno: a Melk genome of one gene of every kind, each with
//                               a caption, the first with a note.
#include "core/Gene.h"
#include "base/AutoPrompt.h"
#include "core/Session.h"
#include "core/genes/BodyGenes.h"
#include "core/genes/BrainLobe.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

// Puts a file written in the scratch folder into the target under the given name, in place
// of an older one of any length.
bool Place(const QString &from, const QString &to)
{
    QFile::remove(to);
    if (QFile::copy(from, to))
        return true;
    QTextStream(stderr) << "cannot write " << to << '\n';
    return false;
}
}

// A small genome of one gene of each kind, made through the program's own gene commands.
bool WriteSample(Session &session, AutoPrompt &prompt, const QDir &folder)
{
    session.NewGenome();
    session.CaptionStore.SetAnnotation(2, 1, 1, QStringLiteral("A sample genome made by Helixbench: one gene of every kind."));
    for (int k = 0; k < GeneKinds::Count; ++k) {
        const GeneKindInfo &kind = GeneKinds::At(k);
        if (kind.type == 2 && kind.subType == 1)
            continue; // the genus gene is already there
        prompt.inputs << QStringLiteral("Sample");
        if (!session.CreateGene(kind.type, kind.subType, true))
            return false;
    }
    if (auto *lobe = dynamic_cast<clsBrainLobe *>(session.GeneAt(1))) {
        lobe->Width = 4;
        lobe->Height = 2;
    }
    return folder.exists() && session.SaveGenomeFile(folder.filePath(QStringLiteral("Sample.gen")));
}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 2 && args.size() != 3) {
        QTextStream(stderr) << "usage: make_data <data folder> [<samples folder>]\n";
        return 2;
    }
    // Made absolute first: the writers make the program folder (here the scratch folder) current.
    const QDir target(QDir(args[1]).absolutePath());
    if (!target.exists() && !QDir().mkpath(target.path())) {
        QTextStream(stderr) << "cannot make " << target.path() << '\n';
        return 1;
    }

    // A fresh scratch folder: the writers keep the tail of an older, longer file, and the
    // shipped files must hold nothing but the lists.
    QTemporaryDir scratch;
    AutoPrompt prompt;
    prompt.echo = true; // whatever the writers would show the user
    Session session(prompt);
    session.AppDirectory = scratch.path();

    NameLists &lists = session.Lists;
    lists.SetChemicalDefaults();
    lists.SetPoseDefaults();
    lists.SetScriptDefaults();
    bool ok = lists.SaveChemicalList() && lists.SavePoseList() && lists.SaveScriptList()
              && session.Template.SaveDefaultTemplate();

    const QString from = scratch.path() + QLatin1Char('/');
    ok = ok && Place(from + "Chemicals.txt", target.filePath("chemicals.txt"))
         && Place(from + "Chemicals.txt", target.filePath("chemicals.def"))
         && Place(from + "PoseName.txt", target.filePath("posename.txt"))
         && Place(from + "PoseName.txt", target.filePath("posename.def"))
         && Place(from + "scriptnames.txt", target.filePath("scriptnames.txt"))
         && Place(from + "mutations.txt", target.filePath("mutations.txt"));

    // Empty default caption files, one for each species.
    for (int genus = 0; genus < 4; ++genus) {
        Session speciesSession(prompt);
        speciesSession.AppDirectory = scratch.path();
        speciesSession.BuildReferenceTables();
        speciesSession.NewGenome();
        static_cast<clsSpecies *>(speciesSession.GeneAt(0))->Genus = quint8(genus);
        speciesSession.CaptionStore.CaptionCount = 0;
        const QString name = speciesSession.CaptionStore.DefaultCaptionFileName();
        speciesSession.CaptionStore.SaveDefaultCaptions();
        ok = ok && Place(from + name, target.filePath(name));
    }

    if (ok && args.size() == 3) {
        const QDir samples(QDir(args[2]).absolutePath());
        QDir().mkpath(samples.path());
        Session sampleSession(prompt);
        sampleSession.AppDirectory = scratch.path();
        sampleSession.BuildReferenceTables();
        ok = WriteSample(sampleSession, prompt, samples);
    }
    return ok && prompt.messages == 0 ? 0 : 1;
}
