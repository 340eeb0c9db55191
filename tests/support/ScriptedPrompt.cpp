#include "support/ScriptedPrompt.h"

#include <QCoreApplication>
#include <QTest>

QStringList ScriptedPrompt::MessageTexts() const
{
    QStringList texts;
    for (const Shown &s : shown)
        if (s.kind == QLatin1String("message"))
            texts << s.text;
    return texts;
}

ScriptedPrompt::Answer ScriptedPrompt::Next(const QString &kind, const QString &title, const QString &text)
{
    if (expected.isEmpty() || expected.head().kind != kind) {
        const QByteArray why = QStringLiteral("unexpected %1 prompt \"%2\": %3").arg(kind, title, text).toUtf8();
        QTest::qFail(why.constData(), __FILE__, __LINE__);
        return {kind, Cancel, {}};
    }
    return expected.dequeue();
}

int ScriptedPrompt::Message(const QString &title, const QString &text, int style)
{
    shown.append({QStringLiteral("message"), title, text, style});
    return Next(QStringLiteral("message"), title, text).button;
}

QString ScriptedPrompt::InputBox(const QString &title, const QString &prompt, const QString &preset)
{
    shown.append({QStringLiteral("input"), title, prompt + QStringLiteral(" [") + preset + QStringLiteral("]"), 0});
    return Next(QStringLiteral("input"), title, prompt).text;
}

QString ScriptedPrompt::FileName(const QString &kind, const QString &title, const QString &folder, const QString &filter)
{
    lastFolder = folder;
    shown.append({kind, title, filter, 0});
    return Next(kind, title, folder).text;
}

QString ScriptedPrompt::OpenFileName(const QString &title, const QString &folder, const QString &filter, const QString &)
{
    return FileName(QStringLiteral("open"), title, folder, filter);
}

QString ScriptedPrompt::SaveFileName(const QString &title, const QString &folder, const QString &filter, const QString &)
{
    return FileName(QStringLiteral("save"), title, folder, filter);
}

void ScriptedPrompt::ProgressLoad(const QString &title)
{
    progressTitle = title;
    progressLoaded = true;
    progressVisible = false;
    progressValue = 0;
    ++progressLoads;
}

void ScriptedPrompt::Yield()
{
    ++yields;
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
