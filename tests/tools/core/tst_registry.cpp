#include "platform/core/RegistryStore.h"
#include "platform/core/RuntimeError.h"
#include "support/TestSupport.h"
#include "tools/core/cRegistry.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace tessaro;

namespace {

// A store in fresh folders; the machine root can be made unwritable by putting a
// plain file where its folder would be (this holds even for the superuser).
struct TempRegistry
{
    TempRegistry() : store(dir.path() + "/user", dir.path() + "/machine/Tessaro/registry") {}
    void blockMachineRoot()
    {
        QDir(dir.path()).rmdir("machine");
        QFile f(dir.path() + "/machine");
        QVERIFY(f.open(QIODevice::WriteOnly));
    }
    QTemporaryDir dir;
    RegistryStore store;
};

using test::errorOf;

QString text(RegistryStore &store, quint32 root, const QString &path)
{
    cRegistry r(store);
    r.setClassKey(root);
    r.setSectionKey(path);
    r.setDefault(QStringLiteral("<missing>"));
    return r.Value().toString();
}

} // namespace

class RegistryTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void perUserRootsLiveInTheConfigFolderAndTheMachineRootInTheFirstConfigDir()
    {
        RegistryStore store;
        const QString config = qEnvironmentVariable("XDG_CONFIG_HOME");
        const QString machine = qEnvironmentVariable("XDG_CONFIG_DIRS").section(':', 0, 0);
        QCOMPARE(store.rootFile(reg::CurrentUser),
                 config + "/Tessaro/registry/HKEY_CURRENT_USER.json");
        QCOMPARE(store.rootFile(reg::ClassesRoot),
                 config + "/Tessaro/registry/HKEY_CLASSES_ROOT.json");
        QCOMPARE(store.rootFile(reg::Users), config + "/Tessaro/registry/HKEY_USERS.json");
        QCOMPARE(store.rootFile(reg::LocalMachine),
                 machine + "/Tessaro/registry/HKEY_LOCAL_MACHINE.json");
        QCOMPARE(store.rootFile(0x80000005u), QString());
    }
    void theMachineRootDefaultsToEtcXdg()
    {
        const QByteArray saved = qgetenv("XDG_CONFIG_DIRS");
        qunsetenv("XDG_CONFIG_DIRS");
        QCOMPARE(RegistryStore::defaultMachineFolder(), QString("/etc/xdg/Tessaro/registry"));
        qputenv("XDG_CONFIG_DIRS", "/a/b:/c/d");
        QCOMPARE(RegistryStore::defaultMachineFolder(), QString("/a/b/Tessaro/registry"));
        qputenv("XDG_CONFIG_DIRS", saved);
    }
    void keyNamesCompareWithoutCaseAndKeepTheirFirstCase()
    {
        TempRegistry t;
        QVERIFY(t.store.createKey(reg::ClassesRoot, "C.Source\\Shell\\Open"));
        QVERIFY(t.store.keyExists(reg::ClassesRoot, "c.source\\SHELL\\open"));
        QVERIFY(t.store.createKey(reg::ClassesRoot, "C.SOURCE\\shell\\print"));
        QCOMPARE(*t.store.subKeyNames(reg::ClassesRoot, ""), QStringList{"C.Source"});
        QCOMPARE(*t.store.subKeyNames(reg::ClassesRoot, "c.source\\shell"),
                 QStringList({"Open", "print"}));
        QVERIFY(!t.store.keyExists(reg::CurrentUser, "C.Source"));
    }
    void valuesKeepTheirTypeAndBytesAcrossInstances()
    {
        TempRegistry t;
        QVERIFY(t.store.createKey(reg::CurrentUser, "Software\\Test"));
        const RegistryValue binary{reg::Binary, QByteArray("\x00\x01\xff\x7f", 4)};
        const RegistryValue sz{reg::Sz, QByteArray("caf\xc3\xa9\0", 6)};
        const RegistryValue latin{reg::Sz, QByteArray("\xe9t\xe9\0", 4)};
        QVERIFY(t.store.setValue(reg::CurrentUser, "software\\test", "Bin", binary));
        QVERIFY(t.store.setValue(reg::CurrentUser, "software\\test", "", sz));
        QVERIFY(t.store.setValue(reg::CurrentUser, "software\\test", "Latin", latin));
        RegistryStore again(t.dir.path() + "/user", t.dir.path() + "/machine");
        QCOMPARE(again.queryValue(reg::CurrentUser, "SOFTWARE\\TEST", "bin")->data, binary.data);
        QCOMPARE(again.queryValue(reg::CurrentUser, "SOFTWARE\\TEST", "bin")->type,
                 quint32(reg::Binary));
        QCOMPARE(again.queryValue(reg::CurrentUser, "SOFTWARE\\TEST", "")->data, sz.data);
        QCOMPARE(again.queryValue(reg::CurrentUser, "SOFTWARE\\TEST", "latin")->data, latin.data);
        QCOMPARE(*again.valueNames(reg::CurrentUser, "Software\\Test"),
                 QStringList({"Bin", "", "Latin"}));
        QVERIFY(!again.queryValue(reg::CurrentUser, "Software\\Test", "nothing"));
        QVERIFY(!again.queryValue(reg::CurrentUser, "Software\\None", ""));
    }
    void aKeyWithSubKeysIsNotDeleted()
    {
        TempRegistry t;
        QVERIFY(t.store.createKey(reg::CurrentUser, "a\\b"));
        QVERIFY(!t.store.deleteKey(reg::CurrentUser, "a"));
        QVERIFY(t.store.deleteKey(reg::CurrentUser, "A\\B"));
        QVERIFY(t.store.deleteKey(reg::CurrentUser, "a"));
        QVERIFY(!t.store.keyExists(reg::CurrentUser, "a"));
        QVERIFY(!t.store.deleteKey(reg::CurrentUser, "a"));
    }
    void aDamagedRootFileIsNeverOverwritten()
    {
        TempRegistry t;
        QVERIFY(t.store.createKey(reg::CurrentUser, "k"));
        const QString file = t.store.rootFile(reg::CurrentUser);
        QFile f(file);
        QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write("\x01\x02 not a registry");
        f.close();
        QVERIFY(!t.store.keyExists(reg::CurrentUser, "k"));
        QVERIFY(!t.store.createKey(reg::CurrentUser, "k2"));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), QByteArray("\x01\x02 not a registry"));
    }

    void aBatchWritesEachRootOnceAtTheEnd()
    {
        TempRegistry t;
        t.store.beginBatch();
        RegistryStore copy = t.store;
        QVERIFY(copy.createKey(reg::ClassesRoot, "C.Source\\shell"));
        QVERIFY(copy.setValue(reg::ClassesRoot, "C.Source", "",
                              RegistryValue{reg::Sz, QByteArray("C Source\0", 9)}));
        QVERIFY(copy.setValue(reg::ClassesRoot, "C.Source", "",
                              RegistryValue{reg::Sz, QByteArray("C Source\0", 9)}));
        QVERIFY(t.store.keyExists(reg::ClassesRoot, "c.source\\SHELL"));
        QVERIFY(!QFile::exists(t.store.rootFile(reg::ClassesRoot)));
        QVERIFY(t.store.commitBatch());
        QVERIFY(QFile::exists(t.store.rootFile(reg::ClassesRoot)));
        RegistryStore fresh(t.dir.path() + "/user", t.dir.path() + "/machine/Tessaro/registry");
        QCOMPARE(fresh.queryValue(reg::ClassesRoot, "C.Source", "")->data,
                 QByteArray("C Source\0", 9));
    }
    void aBatchStillFailsTheWriteToARootThatCannotBeWritten()
    {
        TempRegistry t;
        t.blockMachineRoot();
        t.store.beginBatch();
        QVERIFY(!t.store.createKey(reg::LocalMachine, "SOFTWARE\\Classes"));
        QVERIFY(t.store.createKey(reg::CurrentUser, "Software"));
        QVERIFY(t.store.commitBatch());
        QVERIFY(!t.store.keyExists(reg::LocalMachine, "SOFTWARE"));
        QVERIFY(t.store.keyExists(reg::CurrentUser, "Software"));
    }
    void readingAMissingValueGivesTheDefault()
    {
        TempRegistry t;
        cRegistry r(t.store);
        r.setClassKey(reg::LocalMachine);
        r.setSectionKey("SOFTWARE\\Nothing");
        r.setValueKey("PATH");
        QVERIFY(!r.Value().isValid());
        r.setDefault(42);
        QCOMPARE(r.Value(), QVariant(42));
    }
    void textIsStoredWithItsTerminatingZero()
    {
        TempRegistry t;
        cRegistry r(t.store);
        r.setClassKey(reg::CurrentUser);
        r.setSectionKey("Software\\Tessaro");
        r.setValueKey("Name");
        r.setValueType(reg::Sz);
        r.setValue(QStringLiteral("abc"));
        QCOMPARE(t.store.queryValue(reg::CurrentUser, "Software\\Tessaro", "Name")->data,
                 QByteArray("abc\0", 4));
        QCOMPARE(r.Value(), QVariant(QStringLiteral("abc")));
    }
    void numbersAreStoredAsFourBytes()
    {
        TempRegistry t;
        cRegistry r(t.store);
        r.setClassKey(reg::CurrentUser);
        r.setSectionKey("Software\\Tessaro");
        r.setValueKey("Count");
        r.setValueType(reg::DWord);
        r.setValue(0x01020304);
        QCOMPARE(t.store.queryValue(reg::CurrentUser, "Software\\Tessaro", "Count")->data,
                 QByteArray("\x04\x03\x02\x01", 4));
        QCOMPARE(r.Value(), QVariant(qint32(0x01020304)));
        r.setValueType(reg::DWordBigEndian);
        r.setValue(-2);
        QCOMPARE(t.store.queryValue(reg::CurrentUser, "Software\\Tessaro", "Count")->data,
                 QByteArray("\xff\xff\xff\xfe", 4));
        QCOMPARE(r.Value(), QVariant(qint32(-2)));
        QCOMPARE(errorOf([&] { r.setValue(QStringLiteral("many")); }).number(), qint64(13));
    }
    void binaryMultiAndExpandableValuesRead()
    {
        TempRegistry t;
        cRegistry r(t.store);
        r.setClassKey(reg::CurrentUser);
        r.setSectionKey("Software\\Tessaro");
        r.setValueKey("Bytes");
        r.setValueType(reg::Binary);
        r.setValue(QByteArray("\x00\x10", 2));
        QCOMPARE(r.Value(), QVariant(QByteArray("\x00\x10", 2)));

        QVERIFY(t.store.setValue(reg::CurrentUser, "Software\\Tessaro", "Multi",
                                 RegistryValue{reg::MultiSz, QByteArray("one\0two\0\0", 9)}));
        r.setValueKey("Multi");
        QCOMPARE(r.Value(), QVariant(QString::fromLatin1("one\0two", 7)));

        qputenv("TESSARO_REGISTRY_TEST", "/opt/q3");
        r.setValueKey("Expand");
        r.setValueType(reg::ExpandSz);
        r.setValue(QStringLiteral("%TESSARO_REGISTRY_TEST%\\bin;%NOT_SET_ANYWHERE%"));
        QCOMPARE(r.Value(), QVariant(QStringLiteral("/opt/q3\\bin;%NOT_SET_ANYWHERE%")));
        qunsetenv("TESSARO_REGISTRY_TEST");
    }
    void writingWithAnUnsupportedTypeRaisesItsError()
    {
        TempRegistry t;
        cRegistry r(t.store);
        r.setClassKey(reg::CurrentUser);
        r.setSectionKey("Software\\Tessaro");
        r.setValueType(reg::MultiSz);
        const RuntimeError e = errorOf([&] { r.setValue(QStringLiteral("x")); });
        QCOMPARE(e.number(), qint64(0x800469A9));
        QVERIFY(!t.store.keyExists(reg::CurrentUser, "Software\\Tessaro"));
    }
    void failuresRaise26001WithTheirTexts()
    {
        TempRegistry t;
        t.blockMachineRoot();
        cRegistry r(t.store);
        r.setClassKey(reg::LocalMachine);
        r.setSectionKey("SOFTWARE\\Classes\\C.Source");
        r.setValueKey("Name");

        RuntimeError e = errorOf([&] { r.CreateKey(); });
        QCOMPARE(e.number(), qint64(26001));
        QCOMPARE(e.description(),
                 QString("Failed to create registry Key: 'SOFTWARE\\Classes\\C.Source"));
        QCOMPARE(e.source(), QString("tst_registry.cRegistry"));

        e = errorOf([&] { r.setValue(QStringLiteral("C Source")); });
        QCOMPARE(e.number(), qint64(26001));
        QCOMPARE(e.description(),
                 QString("Failed to set registry value Key: '-2147483646',Section: "
                         "'SOFTWARE\\Classes\\C.Source',Key: 'Name' to value: 'C Source'"));

        e = errorOf([&] { r.DeleteKey(); });
        QCOMPARE(e.description(), QString("Failed to delete registry Key: '-2147483646',Section: "
                                          "'SOFTWARE\\Classes\\C.Source'"));

        e = errorOf([&] { r.DeleteValue(); });
        QCOMPARE(e.description(), QString("Failed to open key '-2147483646',Section: "
                                          "'SOFTWARE\\Classes\\C.Source' for delete access"));

        r.setClassKey(reg::CurrentUser);
        r.setSectionKey("Software\\Tessaro");
        QVERIFY(r.CreateKey());
        e = errorOf([&] { r.DeleteValue(); });
        QCOMPARE(e.number(), qint64(26001));
        QCOMPARE(e.description(), QString("Failed to delete registry Key: '-2147483647',Section: "
                                          "'Software\\Tessaro',Key: 'Name'"));
    }
    void keysAreCreatedFoundEnumeratedAndDeleted()
    {
        TempRegistry t;
        cRegistry r(t.store);
        r.setClassKey(reg::CurrentUser);
        r.setSectionKey("Software\\Tessaro\\Lists");
        QVERIFY(!r.KeyExists());
        QStringList names{"stale"};
        int count = 7;
        QVERIFY(!r.EnumerateValues(names, count));
        QCOMPARE(count, 0);
        QVERIFY(names.isEmpty());
        QVERIFY(r.CreateKey());
        QVERIFY(r.KeyExists());
        for (const char *name : {"b", "a", "c"}) {
            r.setValueKey(QLatin1String(name));
            r.setValue(QStringLiteral("v"));
        }
        QVERIFY(r.EnumerateValues(names, count));
        QCOMPARE(count, 3);
        QCOMPARE(names, QStringList({"b", "a", "c"}));
        r.setValueKey("a");
        QVERIFY(r.DeleteValue());
        QVERIFY(r.EnumerateValues(names, count));
        QCOMPARE(names, QStringList({"b", "c"}));

        r.setSectionKey("Software\\Tessaro");
        QVERIFY(r.EnumerateSections(names, count));
        QCOMPARE(count, 1);
        QCOMPARE(names, QStringList{"Lists"});
        r.setSectionKey("Software\\Tessaro\\Lists");
        QVERIFY(r.DeleteKey());
        QVERIFY(!r.KeyExists());
    }

    void anAssociationWritesEveryValueUnderBothRoots()
    {
        TempRegistry t;
        cRegistry r(t.store);
        r.CreateEXEAssociation("/opt/tessaro/tessaro", "C.Source", "C Source", "C", "&Open", true,
                               QString(), true, QString(), true, QString(), 3);
        const QString q = "\"/opt/tessaro/tessaro\"";
        const QList<QPair<QString, QString>> expected = {
            {".C", "C.Source"},
            {"C.Source", "C Source"},
            {"C.Source\\shell\\open", "&Open"},
            {"C.Source\\shell\\open\\command", q + " \"%1\""},
            {"C.Source\\shell\\print", "&Print"},
            {"C.Source\\shell\\print\\command", q + " /p \"%1\""},
            {"C.Source\\shell\\add", "&Install C Source"},
            {"C.Source\\shell\\add\\command", q + " /a \"%1\""},
            {"C.Source\\shell\\new", "&New"},
            {"C.Source\\shell\\new\\command", q + " /n \"%1\""},
            {"C.Source\\DefaultIcon", q + ",3"},
        };
        for (const auto &[section, value] : expected) {
            QCOMPARE(text(t.store, reg::ClassesRoot, section), value);
            QCOMPARE(text(t.store, reg::LocalMachine, "SOFTWARE\\Classes\\" + section), value);
            QCOMPARE(t.store.queryValue(reg::ClassesRoot, section, "")->type, quint32(reg::Sz));
        }
        QCOMPARE(r.SectionKey(), QString("C.Source\\DefaultIcon"));
        QCOMPARE(r.ValueKey(), QString());
    }
    void aProgramPathThatCarriesQuotesIsNotQuotedTwice()
    {
        QCOMPARE(cRegistry::quotedPath("  \"/opt/my tools/tessaro\"  "),
                 QString("\"/opt/my tools/tessaro\""));
        QCOMPARE(cRegistry::quotedPath("/opt/tessaro"), QString("\"/opt/tessaro\""));
        QCOMPARE(cRegistry::quotedPath("\"/opt/tessaro"), QString("\"/opt/tessaro\""));
        QCOMPARE(cRegistry::quotedPath("/opt/tessaro\""), QString("\"/opt/tessaro\""));
        QCOMPARE(cRegistry::quotedPath("\""), QString("\"\""));
        TempRegistry t;
        cRegistry r(t.store);
        r.CreateEXEAssociation("\"/opt/tessaro\"", "C.Header", "C Header", "H");
        QCOMPARE(text(t.store, reg::ClassesRoot, "C.Header\\shell\\open\\command"),
                 QString("\"/opt/tessaro\" \"%1\""));
    }
    void emptyVerbTextsTakeTheirDefaultsAndUnsupportedVerbsAreNotWritten()
    {
        TempRegistry t;
        cRegistry r(t.store);
        r.CreateEXEAssociation("/p", "X.Y", "X", "XY", QString(), false, "P", false, "N", false,
                               "I", -1);
        QCOMPARE(text(t.store, reg::ClassesRoot, "X.Y\\shell\\open"), QString("&Open"));
        for (const char *verb : {"print", "new", "add"})
            QVERIFY(!t.store.keyExists(reg::ClassesRoot, QString("X.Y\\shell\\") + verb));
        QVERIFY(!t.store.keyExists(reg::ClassesRoot, "X.Y\\DefaultIcon"));
    }
    void aMachineRootFailureStopsAnAssociationAfterItsFirstUserWrite()
    {
        TempRegistry t;
        t.blockMachineRoot();
        cRegistry r(t.store);
        const RuntimeError e =
            errorOf([&] { r.CreateEXEAssociation("/p", "C.Source", "C Source", "C"); });
        QCOMPARE(e.number(), qint64(26001));
        QCOMPARE(text(t.store, reg::ClassesRoot, ".C"), QString("C.Source"));
        QVERIFY(!t.store.keyExists(reg::ClassesRoot, "C.Source"));
        QCOMPARE(r.SectionKey(), QString(".C"));
    }
    void additionalVerbsComeInThreesForARegisteredClass()
    {
        TempRegistry t;
        cRegistry r(t.store);
        RuntimeError e = errorOf([&] {
            r.CreateAdditionalEXEAssociations("C.Source", {"a", "b"});
        });
        QCOMPARE(e.number(), qint64(0x800469AC));
        QCOMPARE(e.description(),
                 QString("Invalid parameter list passed to "
                         "CreateAdditionalEXEAssociations - expected Name/Text/Command"));
        e = errorOf([&] { r.CreateAdditionalEXEAssociations("C.Source", {"edit", "&Edit", "x"}); });
        QCOMPARE(e.number(), qint64(0x800469AD));
        QCOMPARE(
            e.description(),
            QString("Error - attempt to create additional associations before class defined."));
        r.CreateEXEAssociation("/p", "C.Source", "C Source", "C");
        r.CreateAdditionalEXEAssociations(
            "C.Source", {"edit", "&Edit", "\"/p\" /e \"%1\"", "view", "&View", "\"/p\" /v \"%1\""});
        QCOMPARE(text(t.store, reg::ClassesRoot, "C.Source\\shell\\edit"), QString("&Edit"));
        QCOMPARE(text(t.store, reg::ClassesRoot, "C.Source\\shell\\view\\command"),
                 QString("\"/p\" /v \"%1\""));
        QCOMPARE(
            text(t.store, reg::LocalMachine, "SOFTWARE\\Classes\\C.Source\\shell\\edit\\command"),
            QString("\"/p\" /e \"%1\""));
    }
};

TESSARO_CORE_TEST_MAIN(RegistryTest)
#include "tst_registry.moc"
