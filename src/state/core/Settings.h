#pragma once

#include <QSettings>
#include <QString>

#include <map>
#include <memory>
#include <optional>

namespace tessaro {

// The per-user settings store: named text values under an application and a section.
class SettingsStore
{
public:
    virtual ~SettingsStore() = default;
    virtual QString getSetting(const QString &application, const QString &section,
                               const QString &key, const QString &defaultValue) = 0;
    virtual void saveSetting(const QString &application, const QString &section, const QString &key,
                             const QString &value) = 0;
    // Makes every saved value durable (a store may hold writes until then).
    virtual void flush() {}
};

// The real store: $XDG_CONFIG_HOME/<application>/<application>.ini, one group per
// section, every value kept as its exact text (plainini's format); keys and groups
// the program does not know are kept.
class IniSettingsStore : public SettingsStore
{
public:
    IniSettingsStore();
    ~IniSettingsStore() override;
    QString getSetting(const QString &application, const QString &section, const QString &key,
                       const QString &defaultValue) override;
    void saveSetting(const QString &application, const QString &section, const QString &key,
                     const QString &value) override;
    void flush() override;
    static QString filePath(const QString &application);

private:
    // One open settings file per application, so a round of writes is synced once.
    QSettings &file(const QString &application);
    std::map<QString, std::unique_ptr<QSettings>> m_files;
};

// The tool paths, parameters and build switches, kept in process-wide variables
// between start-up and exit.
struct ToolSettings
{
    QString ftpPath;
    QString webPath;
    QString emaPath;
    QString comPath = QStringLiteral("c:\\quake3\\bin_nt\\lcc.exe");
    QString asmPath = QStringLiteral("c:\\quake3\\bin_nt\\q3asm.exe");
    QString lnkPath;
    QString params;
    QString lnkparams;
    QString sufparam;
    QString lrcPath;
    QString lrcparams;
    bool comLCC = true;
    bool objOBJ = true;
    bool useLnk = true;

    // The text of a setting by its key ("comPath", "useLnk", ...); nullopt for an
    // unknown key. Booleans read as "True"/"False".
    std::optional<QString> value(const QString &key) const;
    // Sets a setting from its text form; Booleans take the usual Boolean conversion
    // (raises 13 for other text). Returns false for an unknown key.
    bool setValue(const QString &key, const QString &text);
};

// The main window's rectangle in twips.
struct WindowRect
{
    float left = 1000;
    float top = 1000;
    float width = 6500;
    float height = 6500;
};

struct LoadedSettings
{
    WindowRect window;
    ToolSettings tools;
};

// Reads every setting in the fixed order (the window rectangle first, then the tool
// settings). A missing value takes its default; an empty one stays empty. A window
// value that is not numeric, or a switch that is neither "True"/"False" nor numeric,
// raises 13 "Type mismatch". The callback sees each window value as soon as it is
// read, as the window takes it at once.
LoadedSettings loadSettings(SettingsStore &store);

// Writes every setting back: the window rectangle only when given (not when the
// window is minimised), then every tool setting in the fixed order.
void saveSettings(SettingsStore &store, const ToolSettings &tools,
                  const std::optional<WindowRect> &window);

// The text conversions the settings use for numbers and Booleans.
float toSingle(const QString &text); // raises 13 for text that is not a number
bool toBoolean(const QString &text); // "True"/"False" (any case) or numeric; else 13
QString singleText(float value);     // shortest decimal text
inline QString booleanText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

} // namespace tessaro
