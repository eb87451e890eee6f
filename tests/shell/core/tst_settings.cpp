#include "platform/core/RuntimeError.h"
#include "shell/core/Settings.h"
#include "support/TestSupport.h"

#include <QFile>
#include <QMap>

using namespace tessaro;

namespace {

// A store in memory that records the keys in the order they were asked for.
class MemoryStore : public SettingsStore
{
public:
    QString getSetting(const QString &app, const QString &section, const QString &key,
                       const QString &defaultValue) override
    {
        reads << key;
        lastApp = app;
        lastSection = section;
        return values.value(key, defaultValue);
    }
    void saveSetting(const QString &app, const QString &section, const QString &key,
                     const QString &value) override
    {
        writes << key;
        lastApp = app;
        lastSection = section;
        values[key] = value;
    }
    QMap<QString, QString> values;
    QStringList reads, writes;
    QString lastApp, lastSection;
};

} // namespace

class SettingsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aCleanAccountGetsTheDefaults()
    {
        MemoryStore store;
        const LoadedSettings s = loadSettings(store);
        QCOMPARE(s.window.left, 1000.f);
        QCOMPARE(s.window.top, 1000.f);
        QCOMPARE(s.window.width, 6500.f);
        QCOMPARE(s.window.height, 6500.f);
        QCOMPARE(s.tools.comPath, QString("c:\\quake3\\bin_nt\\lcc.exe"));
        QCOMPARE(s.tools.asmPath, QString("c:\\quake3\\bin_nt\\q3asm.exe"));
        for (const char *key : {"ftpPath", "webPath", "emaPath", "lnkPath", "params", "lnkparams",
                                "sufparam", "lrcPath", "lrcparams"})
            QCOMPARE(*s.tools.value(QLatin1String(key)), QString());
        QVERIFY(s.tools.comLCC && s.tools.objOBJ && s.tools.useLnk);
        QCOMPARE(store.lastApp, QString("Tessaro"));
        QCOMPARE(store.lastSection, QString("Settings"));
    }
    void settingsAreReadInTheirOrder()
    {
        MemoryStore store;
        loadSettings(store);
        QCOMPARE(store.reads, (QStringList{"MainLeft", "MainTop", "MainWidth", "MainHeight",
                                           "ftpPath", "webPath", "emaPath", "comPath", "asmPath",
                                           "lnkPath", "params", "lnkparams", "sufparam", "lrcPath",
                                           "lrcparams", "comLCC", "objOBJ", "useLnk"}));
    }
    void settingsAreWrittenInTheirOrder()
    {
        MemoryStore store;
        saveSettings(store, ToolSettings(), WindowRect());
        QCOMPARE(
            store.writes,
            (QStringList{"MainLeft", "MainTop", "MainWidth", "MainHeight", "ftpPath", "webPath",
                         "emaPath", "comPath", "params", "asmPath", "lnkPath", "lnkparams",
                         "lrcPath", "lrcparams", "sufparam", "comLCC", "objOBJ", "useLnk"}));
        QCOMPARE(store.values["MainLeft"], QString("1000"));
        QCOMPARE(store.values["comLCC"], QString("True"));
    }
    void closingWhileMinimisedKeepsTheRectangleButWritesTheRest()
    {
        MemoryStore store;
        store.values["MainLeft"] = "17";
        ToolSettings tools;
        tools.useLnk = false;
        saveSettings(store, tools, std::nullopt);
        QCOMPARE(store.values["MainLeft"], QString("17"));
        QVERIFY(!store.writes.contains("MainLeft"));
        QCOMPARE(store.writes.size(), 14);
        QCOMPARE(store.values["useLnk"], QString("False"));
    }
    void anEmptyValueStaysEmpty()
    {
        MemoryStore store;
        store.values["comPath"] = "";
        QCOMPARE(loadSettings(store).tools.comPath, QString());
    }
    void switchesReadTheUsualBooleanText()
    {
        MemoryStore store;
        store.values["comLCC"] = "false";
        store.values["objOBJ"] = "0";
        store.values["useLnk"] = "-1";
        const ToolSettings t = loadSettings(store).tools;
        QVERIFY(!t.comLCC);
        QVERIFY(!t.objOBJ);
        QVERIFY(t.useLnk);
    }
    void aNonNumericWindowValueIsATypeMismatch()
    {
        MemoryStore store;
        store.values["MainTop"] = "left of centre";
        try {
            loadSettings(store);
            QFAIL("no error");
        } catch (const RuntimeError &e) {
            QCOMPARE(e.number(), qint64(13));
        }
        QCOMPARE(store.reads.last(), QString("MainTop"));
    }
    void aSwitchThatIsNoBooleanIsATypeMismatch()
    {
        MemoryStore store;
        store.values["useLnk"] = "Yes";
        QVERIFY_THROWS_EXCEPTION(RuntimeError, loadSettings(store));
    }
    void windowValuesAreWrittenAsShortestDecimals()
    {
        QCOMPARE(singleText(1000), QString("1000"));
        QCOMPARE(singleText(1234.5f), QString("1234.5"));
        QCOMPARE(singleText(-15), QString("-15"));
        QCOMPARE(toSingle(" 1e3 "), 1000.f);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, toSingle(""));
    }
    void theIniStoreKeepsEveryValueAsText()
    {
        IniSettingsStore store;
        ToolSettings tools;
        tools.params = "-DQ3 -g";
        saveSettings(store, tools, WindowRect{1, 2, 3, 4});
        QCOMPARE(store.getSetting("Tessaro", "Settings", "params", "x"), QString("-DQ3 -g"));
        QCOMPARE(store.getSetting("Tessaro", "Settings", "nothing", "dflt"), QString("dflt"));
        const QString path = IniSettingsStore::filePath("Tessaro");
        QVERIFY(path.startsWith(qEnvironmentVariable("XDG_CONFIG_HOME")));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray ini = file.readAll();
        QVERIFY(ini.contains("[Settings]"));
        QVERIFY(ini.contains("MainTop=2"));
        QVERIFY(ini.contains("useLnk=True"));
    }
};

TESSARO_CORE_TEST_MAIN(SettingsTest)
#include "tst_settings.moc"
