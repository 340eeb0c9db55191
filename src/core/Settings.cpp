// The workbench's preferences (per-user store) and the game's own values (read-only,
// machine-wide), both through QSettings in INI format.
#include "core/Session.h"
#include "base/Text.h"

#include <QFile>
#include <QSettings>
#include <QUrl>

namespace {
const QString Application = QStringLiteral("Helixbench 2");
const QString Section = QStringLiteral("Preferences");

QString PreferenceKey(const QString &name) { return Section + QLatin1Char('/') + name; }

// The text after "name=" in the group [group] of an INI file, as it stands. QSettings takes
// an unquoted value with commas, such as a folder "/opt/Arkenfold, Deluxe/Genetics" written
// by hand, for a list and drops the blanks around the commas; the folder is wanted whole.
QString RawIniValue(const QString &fileName, const QString &group, const QString &name)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QString();
    bool inGroup = false;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            inGroup = QUrl::fromPercentEncoding(line.mid(1, line.size() - 2).toUtf8()) == group;
            continue;
        }
        const int equals = line.indexOf(QLatin1Char('='));
        if (inGroup && equals > 0
            && QUrl::fromPercentEncoding(line.left(equals).trimmed().toUtf8()) == name)
            return line.mid(equals + 1).trimmed();
    }
    return QString();
}
} // namespace

void Session::LoadSettings()
{
    QSettings store(QSettings::IniFormat, QSettings::UserScope, Application);
    auto read = [&](const QString &name, const QString &fallback) {
        return store.value(PreferenceKey(name), fallback).toString();
    };
    UseDefaultCaptions = read(QStringLiteral("Use Default Captions"), QStringLiteral("0"));
    CompatibilityMode = read(QStringLiteral("Compatibility"), QStringLiteral("0"));
    RegistryCompany = read(QStringLiteral("Company"), QStringLiteral("Kelmoth Technology"));
    RegistryVersion = read(QStringLiteral("Version"), QStringLiteral("1.0"));
    RegistryProduct = read(QStringLiteral("Product"), QStringLiteral("Arkenfold 2"));
    LastGenomeDirectory.clear();
}

bool Session::SaveSettings()
{
    QSettings store(QSettings::IniFormat, QSettings::UserScope, Application);
    store.setValue(PreferenceKey(QStringLiteral("Compatibility")), CompatibilityMode.Text());
    store.setValue(PreferenceKey(QStringLiteral("Use Default Captions")), UseDefaultCaptions.Text());
    store.setValue(PreferenceKey(QStringLiteral("Company")), RegistryCompany);
    store.setValue(PreferenceKey(QStringLiteral("Version")), RegistryVersion);
    store.setValue(PreferenceKey(QStringLiteral("Product")), RegistryProduct);
    store.sync();
    switch (store.status()) {
    case QSettings::NoError:
        return true;
    case QSettings::AccessError:
        ShowFault(75, QStringLiteral("Path/File access error: ") + store.fileName(),
                  QStringLiteral("Error saving registry settings"));
        return false;
    case QSettings::FormatError:
        ShowFault(5, QStringLiteral("Invalid procedure call or argument: ") + store.fileName(),
                  QStringLiteral("Error saving registry settings"));
        return false;
    }
    return false;
}

QString Session::ReadGameSetting(const QString &name)
{
    // The key "Software\Company\Product\Version" lives in the game's own system-wide
    // settings file: <Company>/<Product>.ini, group <Version>.
    QSettings key(QSettings::IniFormat, QSettings::SystemScope, RegistryCompany, RegistryProduct);
    if (RegistryCompany.isEmpty() || RegistryProduct.isEmpty() || key.status() != QSettings::NoError)
        return ErrorMark;
    const QVariant value = key.value(RegistryVersion + QLatin1Char('/') + name);
    if (!value.isValid())
        return ErrorMark;
    const QString text = value.typeId() == QMetaType::QStringList
                             ? RawIniValue(key.fileName(), RegistryVersion, name)
                             : value.toString();
    // The value and its terminator must fit a buffer of 100 bytes.
    if (text.toLocal8Bit().size() >= 100)
        return ErrorMark;
    return text;
}

QString Session::NormalisePath(const QString &text)
{
    QString path = text;
    for (int i = 0; i < path.size(); ++i)
        if (path[i].unicode() < 32) {
            path.truncate(i);
            break;
        }
    if (!path.endsWith(QLatin1Char('/')))
        path += QLatin1Char('/');
    return path;
}

void Session::WelcomeFirstRun()
{
    QSettings store(QSettings::IniFormat, QSettings::UserScope, Application);
    const QString installed = store.value(PreferenceKey(QStringLiteral("Installed")), QStringLiteral("no")).toString();
    if (installed == QLatin1String("no"))
        ShowInfo(QStringLiteral("Welcome to the Helixbench!") + Text::CRLF + Text::CRLF
                 + QStringLiteral("Please note that you can get help on the Helixbench using") + Text::CRLF
                 + QStringLiteral("the F1 key. There is a substantial amount of information") + Text::CRLF
                 + QStringLiteral("there specifically designed to help beginners. All you need") + Text::CRLF
                 + QStringLiteral("is a little patience. (Nature took 3.7 billion years to come") + Text::CRLF
                 + QStringLiteral("up with us, after all!) Enjoy!"));
    // "yes" is stored whatever the mark was. A mark that reads "yes" already is left alone:
    // setting it again would rewrite the whole settings file (and sync it to disk) at every
    // start for no change.
    const QString yes = QStringLiteral("yes");
    if (installed != yes) {
        store.setValue(PreferenceKey(QStringLiteral("Installed")), yes);
        store.sync(); // failures of the store are ignored here
    }
}
