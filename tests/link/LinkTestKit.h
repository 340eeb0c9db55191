#pragma once
// What the link tests share: a bench (session, main window, Export tab) and the stand-in
// game as a child process with its transaction log.
#include "core/Gene.h"
#include "core/Session.h"
#include "link/ExportTab.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"
#include "views/HelixbenchForm.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QtTest>

#include <memory>

namespace LinkTestKit {

inline bool GameOnBus()
{
    QDBusConnectionInterface *daemon = QDBusConnection::sessionBus().interface();
    return daemon && daemon->isServiceRegistered(QStringLiteral("org.arkenfold.Habitat")).value();
}

// The stand-in game. Start() returns once it owns its bus name; Stop() once it has let go.
class Standin
{
public:
    explicit Standin(const QString &folder) : folder(folder) {}
    ~Standin() { Stop(); }

    QString Genetics() const { return folder + QStringLiteral("/Genetics"); }

    bool Start(const QStringList &extra = {})
    {
        Stop();
        QFile::remove(LogFile());
        process.reset(new QProcess);
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->start(QCoreApplication::applicationDirPath() + QStringLiteral("/habitat-standin"),
                       QStringList{"--log", LogFile(), "--genetics", Genetics(), "--settings-dir",
                                   folder + QStringLiteral("/system")} + extra);
        while (process->waitForReadyRead(10000) && !process->canReadLine()) {
        }
        return process->readLine().trimmed() == "ready";
    }

    void Stop()
    {
        if (!process)
            return;
        process->kill();
        process->waitForFinished(10000);
        process.reset();
        QTRY_VERIFY_WITH_TIMEOUT(!GameOnBus(), 10000);
    }

    // The log, one list of fields for each transaction.
    QList<QStringList> Log() const
    {
        QList<QStringList> lines;
        for (const QByteArray &line : TestFiles::Read(LogFile()).split('\n'))
            if (!line.isEmpty())
                lines << QVariant(QJsonDocument::fromJson(line).array().toVariantList()).toStringList();
        return lines;
    }
    QStringList Methods() const
    {
        QStringList methods;
        for (const QStringList &l : Log())
            methods << l[0];
        return methods;
    }
    // Waits for the closes: they are sent without waiting for the game.
    void WaitForTerminates(int count) const
    {
        QTRY_COMPARE_WITH_TIMEOUT(Methods().count(QStringLiteral("Terminate")), count, 10000);
    }

private:
    QString LogFile() const { return folder + QStringLiteral("/standin.log"); }
    QString folder;
    std::unique_ptr<QProcess> process;
};

// A session with its main window, started as far as the Export tab needs.
struct Bench
{
    explicit Bench(ScriptedPrompt &prompt) : session(new Session(prompt)), form(new HelixbenchForm(*session))
    {
        tab = form->findChild<ExportTab *>();
        session->Tables.Build();
        for (int i = 0; i < ExportTab::ScriptSlots; ++i)
            session->Lists.ScriptNames[size_t(i)] = ExportTab::EmptySlot;
        emit session->ExportViewsMustFill();
    }

    // The species gene, then genes of the kinds in table order.
    void MakeGenome(int genes)
    {
        session->NewGenome();
        for (int i = 1; i < genes; ++i) {
            const GeneKindInfo &kind = GeneKinds::At(i % GeneKinds::Count);
            QVERIFY(session->CreateGene(kind.type, kind.subType, false));
            Gene *g = session->GeneAt(i);
            g->ID = quint8(i);
            g->Mutability = quint8(i);
        }
    }

    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;
    ExportTab *tab = nullptr;
};

inline QString Fault(const QString &context, int number, const QString &description)
{
    return context + QStringLiteral("\n\rDescription: Error ID ") + QString::number(number) + QStringLiteral(" (")
           + description + QStringLiteral(")");
}

} // namespace LinkTestKit
