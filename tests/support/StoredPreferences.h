#pragma once
#include <QSettings>
#include <QString>
#include <QVariant>

// The workbench's own preferences as they stand in the store (inside a SettingsSandbox).
namespace StoredPreferences {

inline QVariant Get(const QString &name)
{
    QSettings store(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Helixbench 2"));
    return store.value(QStringLiteral("Preferences/") + name);
}

inline void Set(const QString &name, const QString &value)
{
    QSettings store(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Helixbench 2"));
    store.setValue(QStringLiteral("Preferences/") + name, value);
}

} // namespace StoredPreferences
