#include "base/Messages.h"

#include "base/Text.h"

const QString UserMessages::Title = QStringLiteral("Helixbench");

int UserMessages::ShowMessage(const QString &text, int style, const QString &title)
{
    return prompt.Message(title, text, style);
}

void UserMessages::ShowError(const QString &text) { ShowMessage(text, 16); }
void UserMessages::ShowWarning(const QString &text) { ShowMessage(text, 48); }
void UserMessages::ShowInfo(const QString &text) { ShowMessage(text, 64); }

void UserMessages::ShowFault(qint16 number, const QString &description, const QString &context)
{
    ShowError(context + Text::LFCR + QStringLiteral("Description: Error ID") + Text::Str(number)
              + QStringLiteral(" (") + description + QStringLiteral(")"));
}
