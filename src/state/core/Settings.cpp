#include "state/core/Settings.h"

#include "platform/core/AppInfo.h"
#include "platform/core/RuntimeError.h"
#include "state/core/PlainIniFormat.h"

#include <QSettings>
#include <QStandardPaths>

#include <cmath>
#include <limits>

namespace tessaro {

namespace {

const QString kSection = QStringLiteral("Settings");

// The tool settings' keys with their members, in the order they are read.
struct TextKey
{
    const char *key;
    QString ToolSettings::*member;
};
const TextKey kTextKeys[] = {
    {"ftpPath", &ToolSettings::ftpPath},     {"webPath", &ToolSettings::webPath},
    {"emaPath", &ToolSettings::emaPath},     {"comPath", &ToolSettings::comPath},
    {"asmPath", &ToolSettings::asmPath},     {"lnkPath", &ToolSettings::lnkPath},
    {"params", &ToolSettings::params},       {"lnkparams", &ToolSettings::lnkparams},
    {"sufparam", &ToolSettings::sufparam},   {"lrcPath", &ToolSettings::lrcPath},
    {"lrcparams", &ToolSettings::lrcparams},
};
struct BoolKey
{
    const char *key;
    bool ToolSettings::*member;
};
const BoolKey kBoolKeys[] = {
    {"comLCC", &ToolSettings::comLCC},
    {"objOBJ", &ToolSettings::objOBJ},
    {"useLnk", &ToolSettings::useLnk},
};

// The order in which the tool settings are written back (it differs from the reading
// order: "params" comes before "asmPath", "sufparam" after "lrcparams").
const char *const kWriteOrder[] = {"ftpPath",  "webPath", "emaPath",   "comPath", "params",
                                   "asmPath",  "lnkPath", "lnkparams", "lrcPath", "lrcparams",
                                   "sufparam", "comLCC",  "objOBJ",    "useLnk"};

} // namespace

QString IniSettingsStore::filePath(const QString &application)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QLatin1Char('/') + application + QLatin1Char('/') + application + QStringLiteral(".ini");
}

IniSettingsStore::IniSettingsStore() = default;

IniSettingsStore::~IniSettingsStore() { flush(); }

QSettings &IniSettingsStore::file(const QString &application)
{
    std::unique_ptr<QSettings> &settings = m_files[application];
    if (!settings)
        settings = std::make_unique<QSettings>(filePath(application), plainini::format());
    return *settings;
}

QString IniSettingsStore::getSetting(const QString &application, const QString &section,
                                     const QString &key, const QString &defaultValue)
{
    QSettings &settings = file(application);
    const QString name = section + QLatin1Char('/') + key;
    return settings.contains(name) ? settings.value(name).toString() : defaultValue;
}

void IniSettingsStore::saveSetting(const QString &application, const QString &section,
                                   const QString &key, const QString &value)
{
    file(application).setValue(section + QLatin1Char('/') + key, value);
}

void IniSettingsStore::flush()
{
    for (auto &entry : m_files)
        entry.second->sync();
}

std::optional<QString> ToolSettings::value(const QString &key) const
{
    for (const TextKey &k : kTextKeys)
        if (key == QLatin1String(k.key))
            return this->*k.member;
    for (const BoolKey &k : kBoolKeys)
        if (key == QLatin1String(k.key))
            return booleanText(this->*k.member);
    return std::nullopt;
}

bool ToolSettings::setValue(const QString &key, const QString &text)
{
    for (const TextKey &k : kTextKeys)
        if (key == QLatin1String(k.key)) {
            this->*k.member = text;
            return true;
        }
    for (const BoolKey &k : kBoolKeys)
        if (key == QLatin1String(k.key)) {
            this->*k.member = toBoolean(text);
            return true;
        }
    return false;
}

LoadedSettings loadSettings(SettingsStore &store)
{
    LoadedSettings loaded;
    const QString app = appTitle();
    auto readSingle = [&](const char *key, float defaultValue) {
        return toSingle(
            store.getSetting(app, kSection, QLatin1String(key), singleText(defaultValue)));
    };
    loaded.window.left = readSingle("MainLeft", 1000);
    loaded.window.top = readSingle("MainTop", 1000);
    loaded.window.width = readSingle("MainWidth", 6500);
    loaded.window.height = readSingle("MainHeight", 6500);

    ToolSettings &tools = loaded.tools;
    for (const TextKey &k : kTextKeys)
        tools.*k.member = store.getSetting(app, kSection, QLatin1String(k.key), tools.*k.member);
    for (const BoolKey &k : kBoolKeys)
        tools.*k.member = toBoolean(
            store.getSetting(app, kSection, QLatin1String(k.key), booleanText(tools.*k.member)));
    return loaded;
}

void saveSettings(SettingsStore &store, const ToolSettings &tools,
                  const std::optional<WindowRect> &window)
{
    const QString app = appTitle();
    if (window) {
        store.saveSetting(app, kSection, QStringLiteral("MainLeft"), singleText(window->left));
        store.saveSetting(app, kSection, QStringLiteral("MainTop"), singleText(window->top));
        store.saveSetting(app, kSection, QStringLiteral("MainWidth"), singleText(window->width));
        store.saveSetting(app, kSection, QStringLiteral("MainHeight"), singleText(window->height));
    }
    for (const char *key : kWriteOrder) {
        const QString name = QLatin1String(key);
        store.saveSetting(app, kSection, name, *tools.value(name));
    }
    store.flush();
}

float toSingle(const QString &text)
{
    const QString t = text.trimmed();
    bool ok = false;
    double value = 0;
    if (t.startsWith(QLatin1String("&h"), Qt::CaseInsensitive))
        value = double(t.mid(2).toLongLong(&ok, 16));
    else
        value = t.toDouble(&ok);
    if (!ok)
        throw RuntimeError(RuntimeError::TypeMismatch);
    if (std::abs(value) > double(std::numeric_limits<float>::max()))
        throw RuntimeError(RuntimeError::Overflow);
    return float(value);
}

bool toBoolean(const QString &text)
{
    const QString t = text.trimmed();
    if (t.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
        return true;
    if (t.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0)
        return false;
    bool ok = false;
    const double value = t.toDouble(&ok);
    if (!ok)
        throw RuntimeError(RuntimeError::TypeMismatch);
    return value != 0;
}

QString singleText(float value)
{
    QString text = QString::number(double(value), 'g', 7);
    text.replace(QLatin1Char('e'), QLatin1Char('E'));
    return text;
}

} // namespace tessaro
