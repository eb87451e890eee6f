#include "platform/core/RuntimeError.h"
#include "state/core/PlainIniFormat.h"
#include "state/core/Settings.h"
#include "support/TestSupport.h"

#include <QDir>
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

QString settingsPath()
{
    return IniSettingsStore::filePath(QStringLiteral("Tessaro"));
}

void writeSettingsFile(const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(settingsPath()).path());
    QFile file(settingsPath());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

QByteArray settingsFile()
{
    QFile file(settingsPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Values a user may type into a box or into the file by hand.
void addAwkwardValues()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("comma") << QStringLiteral("-A, -B");
    QTest::newRow("semicolon") << QStringLiteral("/opt/My Apps/ftp;v2");
    QTest::newRow("double quotes") << QStringLiteral("\"c:\\quake3\\lcc.exe\" -q");
    QTest::newRow("quoted whole") << QStringLiteral("\"quoted\"");
    QTest::newRow("single quotes") << QStringLiteral("'/opt/my tools/q3lcc'");
    QTest::newRow("backslashes") << QStringLiteral("c:\\quake3\\bin_nt\\lcc.exe");
    QTest::newRow("trailing backslash") << QStringLiteral("c:\\");
    QTest::newRow("escape-like") << QStringLiteral("a\\nb\\tc\\x41\\u00e9");
    QTest::newRow("equals") << QStringLiteral("-DNAME=VALUE=2");
    QTest::newRow("hash") << QStringLiteral("#not a comment");
    QTest::newRow("semicolon first") << QStringLiteral(";not a comment");
    QTest::newRow("leading and trailing blanks") << QStringLiteral("  -g  ");
    QTest::newRow("tab") << QStringLiteral("\t-O2\t");
    QTest::newRow("brackets") << QStringLiteral("[Settings]");
    QTest::newRow("at sign") << QStringLiteral("@Variant(x)");
    QTest::newRow("non-ASCII") << QStringLiteral("/home/j\u00fcrgen/\u65e5\u672c/\U0001F600");
    QTest::newRow("empty") << QString();
    QTest::newRow("percent") << QStringLiteral("%HOME%/lcc %1");
    QTest::newRow("carriage return at the end") << QStringLiteral("value\r");
}

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

    void aHandWrittenValueIsReadAndWrittenBackByteForByte_data() { addAwkwardValues(); }
    void aHandWrittenValueIsReadAndWrittenBackByteForByte()
    {
        QFETCH(QString, value);
        const QByteArray line = "params=" + value.toUtf8() + "\n";
        writeSettingsFile("[Settings]\n" + line);
        {
            IniSettingsStore store;
            const LoadedSettings loaded = loadSettings(store);
            QCOMPARE(loaded.tools.params, value);
            saveSettings(store, loaded.tools, loaded.window);
        }
        QVERIFY2(settingsFile().contains("\n" + line), settingsFile().constData());
    }

    void aValueTheProgramWritesComesBackUnchanged_data() { addAwkwardValues(); }
    void aValueTheProgramWritesComesBackUnchanged()
    {
        QFETCH(QString, value);
        QFile::remove(settingsPath());
        ToolSettings tools;
        tools.ftpPath = value;
        tools.comPath = value;
        tools.sufparam = value;
        {
            IniSettingsStore store;
            saveSettings(store, tools, WindowRect{});
        }
        QVERIFY(settingsFile().contains("\nftpPath=" + value.toUtf8() + "\n"));
        IniSettingsStore store;
        const LoadedSettings loaded = loadSettings(store);
        QCOMPARE(loaded.tools.ftpPath, value);
        QCOMPARE(loaded.tools.comPath, value);
        QCOMPARE(loaded.tools.sufparam, value);
    }

    void keysAndGroupsTheProgramDoesNotKnowAreKept()
    {
        const QByteArray other = "[Other]\nlist=a, b, c\nweird key = x;y\n";
        writeSettingsFile("top=level, value\n\n[Settings]\nmyOwnKey=keep, me\ncomPath=/x\n\n" +
                          other);
        {
            IniSettingsStore store;
            LoadedSettings loaded = loadSettings(store);
            loaded.tools.comPath = "/y";
            saveSettings(store, loaded.tools, loaded.window);
        }
        const QByteArray file = settingsFile();
        QVERIFY2(file.startsWith("top=level, value\n"), file.constData());
        QVERIFY(file.contains("\nmyOwnKey=keep, me\n"));
        QVERIFY(file.contains("\ncomPath=/y\n"));
        QVERIFY(file.contains("[Other]\nlist=a, b, c\nweird key= x;y\n"));
        QCOMPARE(file.count("[Settings]"), 1);
    }

    void theFileFormatReadsWhatAUserWrites()
    {
        const QSettings::SettingsMap map = plainini::parse(
            "\xEF\xBB\xBF# comment\n; comment too\nloose=1\n [Settings] \r\n"
            "  comPath = /opt/lcc \r\nno equals sign\n=no key\nparams=a=b\nparams=last wins\n"
            "raw=\xFF\xFE\n[Empty]\n");
        QCOMPARE(map.value("loose").toString(), QString("1"));
        QCOMPARE(map.value("Settings/comPath").toString(), QString(" /opt/lcc \r"));
        QCOMPARE(map.value("Settings/params").toString(), QString("last wins"));
        QCOMPARE(map.value("Settings/raw").toByteArray(), QByteArray("\xFF\xFE"));
        QCOMPARE(map.size(), 4);
        // Bytes that are not UTF-8 go back as they came.
        QVERIFY(plainini::serialise(map).contains("\nraw=\xFF\xFE\n"));
    }

    void theFileFormatWritesGroupsAfterTheLooseKeys()
    {
        QSettings::SettingsMap map;
        map.insert("Settings/b", "2");
        map.insert("Settings/a", "1");
        map.insert("Alpha/x", "line\nbreak");
        map.insert("loose", "0");
        map.insert("/slash", "s");
        QCOMPARE(
            plainini::serialise(map),
            QByteArray("/slash=s\nloose=0\n\n[Alpha]\nx=line break\n\n[Settings]\na=1\nb=2\n"));
        QCOMPARE(plainini::parse(plainini::serialise(map)).value("/slash").toString(),
                 QString("s"));
    }

    void aMissingOrEmptyFileGivesTheDefaults()
    {
        QFile::remove(settingsPath());
        {
            IniSettingsStore store;
            QCOMPARE(loadSettings(store).tools.comPath, ToolSettings().comPath);
        }
        writeSettingsFile(QByteArray());
        IniSettingsStore store;
        QCOMPARE(loadSettings(store).tools.asmPath, ToolSettings().asmPath);
    }

    void aBinaryFileIsReadWithoutHarm()
    {
        QByteArray bytes;
        for (int i = 0; i < 4096; ++i)
            bytes += char((i * 7919) % 256);
        writeSettingsFile("[Settings]\nparams=ok\n" + bytes);
        IniSettingsStore store;
        QCOMPARE(store.getSetting("Tessaro", "Settings", "params", "dflt"), QString("ok"));
    }
};

TESSARO_CORE_TEST_MAIN(SettingsTest)
#include "tst_settings.moc"
