#include "support/TestSupport.h"
#include "tools/core/DesktopAssociation.h"
#include "tools/core/SourceAssociations.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

using namespace tessaro;

namespace {

QString defaultValue(RegistryStore &store, quint32 root, const QString &section)
{
    const auto v = store.queryValue(root, section, QString());
    return v ? QString::fromLocal8Bit(v->data.left(v->data.indexOf('\0')))
             : QStringLiteral("<missing>");
}

QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

void writeAll(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(bytes);
}

} // namespace

class AssociationsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theProgramPathIsTheFolderAndTheProgramName()
    {
        QCOMPARE(associationProgramPath("/opt/tessaro"), QString("/opt/tessaro/tessaro"));
        QCOMPARE(associationProgramPath("/opt/tessaro/"), QString("/opt/tessaro/tessaro"));
        QCOMPARE(associationProgramPath("/"), QString("/tessaro"));
    }
    void startUpRegistersTheThreeSourceClassesWithOpenOnly()
    {
        QTemporaryDir dir;
        RegistryStore store(dir.path() + "/user", dir.path() + "/machine");
        cRegistry registry(store);
        QVERIFY(registerSourceFileClasses(registry, "/opt/t/tessaro"));
        const QString command = "\"/opt/t/tessaro\" \"%1\"";
        const struct
        {
            const char *cls, *description, *extension;
        } classes[] = {{"C.Source", "C Source", ".C"},
                       {"C.Header", "C Header", ".H"},
                       {"CPP.Source", "C++ Source", ".CPP"}};
        for (quint32 root : {quint32(reg::ClassesRoot), quint32(reg::LocalMachine)}) {
            const QString prefix = root == reg::LocalMachine ? "SOFTWARE\\Classes\\" : "";
            for (const auto &c : classes) {
                const QString cls = QLatin1String(c.cls);
                QCOMPARE(defaultValue(store, root, prefix + c.extension), cls);
                QCOMPARE(defaultValue(store, root, prefix + cls), QString(c.description));
                QCOMPARE(defaultValue(store, root, prefix + cls + "\\shell\\open"),
                         QString("&Open"));
                QCOMPARE(defaultValue(store, root, prefix + cls + "\\shell\\open\\command"),
                         command);
                QCOMPARE(*store.subKeyNames(root, prefix + cls + "\\shell"), QStringList{"open"});
                QCOMPARE(*store.subKeyNames(root, prefix + cls), QStringList{"shell"});
            }
        }
    }
    void aMachineRootThatCannotBeWrittenLeavesEveryPerUserWriteDone()
    {
        QTemporaryDir dir;
        writeAll(dir.path() + "/machine", "a file where the folder should be");
        RegistryStore store(dir.path() + "/user", dir.path() + "/machine/Tessaro/registry");
        cRegistry registry(store);
        QVERIFY(!registerSourceFileClasses(registry, "/opt/t/tessaro"));
        for (const char *ext : {".C", ".H", ".CPP"})
            QVERIFY(store.keyExists(reg::ClassesRoot, QLatin1String(ext)));
        for (const char *cls : {"C.Source", "C.Header", "CPP.Source"})
            QCOMPARE(defaultValue(store, reg::ClassesRoot, QString(cls) + "\\shell\\open\\command"),
                     QString("\"/opt/t/tessaro\" \"%1\""));
        QVERIFY(!store.keyExists(reg::LocalMachine, "SOFTWARE"));
    }
    void runningFromAnotherFolderRepointsTheThreeClasses()
    {
        QTemporaryDir dir;
        RegistryStore store(dir.path() + "/user", dir.path() + "/machine");
        cRegistry first(store);
        registerSourceFileClasses(first, associationProgramPath("/old/place"));
        cRegistry second(store);
        registerSourceFileClasses(second, associationProgramPath("/new/place"));
        for (const char *cls : {"C.Source", "C.Header", "CPP.Source"}) {
            QCOMPARE(defaultValue(store, reg::ClassesRoot, QString(cls) + "\\shell\\open\\command"),
                     QString("\"/new/place/tessaro\" \"%1\""));
            QCOMPARE(defaultValue(store, reg::LocalMachine,
                                  "SOFTWARE\\Classes\\" + QString(cls) + "\\shell\\open\\command"),
                     QString("\"/new/place/tessaro\" \"%1\""));
        }
    }

    void theDesktopEntryRunsTheProgramWithTheFile()
    {
        const QByteArray entry = DesktopAssociation::desktopEntry("/opt/tessaro/bin/tessaro");
        QVERIFY(entry.startsWith("[Desktop Entry]\n"));
        QVERIFY(entry.contains("\nType=Application\n"));
        QVERIFY(entry.contains("\nName=Tessaro\n"));
        QVERIFY(entry.contains("\nExec=\"/opt/tessaro/bin/tessaro\" %f\n"));
        QVERIFY(entry.contains("\nMimeType=text/x-csrc;text/x-chdr;text/x-c++src;\n"));
    }
    void theDesktopEntryIsTheInstalledOneWithTheProgramsPath()
    {
        const QByteArray installed = readAll(TESSARO_SOURCE_DIR "/data/tessaro.desktop");
        QVERIFY(installed.contains("\nExec=tessaro %f\n"));
        QByteArray expected = installed;
        expected.replace("\nExec=tessaro %f\n", "\nExec=\"/opt/tessaro/bin/tessaro\" %f\n");
        QCOMPARE(DesktopAssociation::desktopEntry("/opt/tessaro/bin/tessaro"), expected);
    }
    void theDesktopEntryShowsTheProgramsIconAndTypes()
    {
        const QByteArray entry = DesktopAssociation::desktopEntry("/usr/lib/tessaro/tessaro");
        QVERIFY(entry.contains("\nIcon=tessaro\n"));
        QVERIFY(QFileInfo::exists(TESSARO_SOURCE_DIR "/data/tessaro.svg"));
        QVERIFY(entry.contains("\nCategories=Development;IDE;\n"));
        QVERIFY(entry.contains("\nStartupWMClass=Tessaro\n"));
        // The types the entry opens are the ones start-up makes it the default for.
        QVERIFY(entry.contains("\nMimeType=" + DesktopAssociation::mimeTypes().join(';').toUtf8() +
                               ";\n"));
    }
    void unusualProgramPathsAreEscapedInTheExecKey()
    {
        QCOMPARE(DesktopAssociation::execQuoted("/my tools/a\"b$c`d\\e%f"),
                 QString("\"/my tools/a\\\\\"b\\\\$c\\\\`d\\\\\\\\e%%f\""));
    }
    void theDefaultsAreSetAndEveryOtherEntryIsKept()
    {
        const QByteArray before = "# mine\n"
                                  "[Added Associations]\n"
                                  "text/x-csrc=vim.desktop;\n"
                                  "\n"
                                  "[Default Applications]\n"
                                  "text/html=firefox.desktop\n"
                                  "text/x-chdr=other.desktop\n"
                                  "\n"
                                  "[Removed Associations]\n"
                                  "image/png=gimp.desktop;\n";
        const QByteArray expected = "# mine\n"
                                    "[Added Associations]\n"
                                    "text/x-csrc=vim.desktop;\n"
                                    "\n"
                                    "[Default Applications]\n"
                                    "text/html=firefox.desktop\n"
                                    "text/x-chdr=tessaro.desktop\n"
                                    "text/x-csrc=tessaro.desktop\n"
                                    "text/x-c++src=tessaro.desktop\n"
                                    "\n"
                                    "[Removed Associations]\n"
                                    "image/png=gimp.desktop;\n";
        QCOMPARE(DesktopAssociation::withDefaults(before), expected);
        QCOMPARE(DesktopAssociation::withDefaults(expected), expected);
    }
    void aMissingMimeAppsListGetsTheDefaultsSection()
    {
        QCOMPARE(DesktopAssociation::withDefaults(QByteArray()),
                 QByteArray("[Default Applications]\n"
                            "text/x-csrc=tessaro.desktop\n"
                            "text/x-chdr=tessaro.desktop\n"
                            "text/x-c++src=tessaro.desktop\n"));
        QCOMPARE(DesktopAssociation::withDefaults("[Added Associations]\na=b.desktop;"),
                 QByteArray("[Added Associations]\na=b.desktop;\n\n[Default Applications]\n"
                            "text/x-csrc=tessaro.desktop\n"
                            "text/x-chdr=tessaro.desktop\n"
                            "text/x-c++src=tessaro.desktop\n"));
    }
    void theFilesAreRewrittenOnlyWhenTheyDiffer()
    {
        QTemporaryDir dir;
        DesktopAssociation assoc(dir.path() + "/data", dir.path() + "/config");
        QCOMPARE(assoc.apply("/opt/a/tessaro"), DesktopAssociation::Outcome::Written);
        QCOMPARE(assoc.desktopFilePath(), dir.path() + "/data/applications/tessaro.desktop");
        QCOMPARE(assoc.mimeAppsPath(), dir.path() + "/config/mimeapps.list");
        const QDateTime desktopTime = QFileInfo(assoc.desktopFilePath()).lastModified();
        const QDateTime mimeTime = QFileInfo(assoc.mimeAppsPath()).lastModified();
        QThread::msleep(20);
        QCOMPARE(assoc.apply("/opt/a/tessaro"), DesktopAssociation::Outcome::Unchanged);
        QCOMPARE(QFileInfo(assoc.desktopFilePath()).lastModified(), desktopTime);
        QCOMPARE(QFileInfo(assoc.mimeAppsPath()).lastModified(), mimeTime);
    }
    void runningFromAnotherFolderRepointsTheDesktopEntry()
    {
        QTemporaryDir dir;
        DesktopAssociation assoc(dir.path() + "/data", dir.path() + "/config");
        writeAll(assoc.mimeAppsPath(), "[Default Applications]\ntext/plain=gedit.desktop\n");
        assoc.apply("/opt/a/tessaro");
        QCOMPARE(assoc.apply("/home/u/other/tessaro"), DesktopAssociation::Outcome::Written);
        QVERIFY(readAll(assoc.desktopFilePath()).contains("\nExec=\"/home/u/other/tessaro\" %f\n"));
        QVERIFY(!readAll(assoc.desktopFilePath()).contains("/opt/a"));
        QVERIFY(readAll(assoc.mimeAppsPath()).contains("text/plain=gedit.desktop\n"));
        QVERIFY(readAll(assoc.mimeAppsPath()).contains("text/x-c++src=tessaro.desktop\n"));
    }
    void aFolderThatCannotBeWrittenIsReportedWithoutRaising()
    {
        QTemporaryDir dir;
        writeAll(dir.path() + "/data", "not a folder");
        writeAll(dir.path() + "/config/mimeapps.list", "[Default Applications]\n");
        DesktopAssociation assoc(dir.path() + "/data", dir.path() + "/config");
        QCOMPARE(assoc.apply("/opt/a/tessaro"), DesktopAssociation::Outcome::Failed);
        QCOMPARE(readAll(dir.path() + "/config/mimeapps.list"),
                 QByteArray("[Default Applications]\n"));
    }
    void theCurrentUsersFoldersComeFromTheXdgVariables()
    {
        const DesktopAssociation assoc = DesktopAssociation::forCurrentUser();
        QCOMPARE(assoc.desktopFilePath(),
                 qEnvironmentVariable("XDG_DATA_HOME") + "/applications/tessaro.desktop");
        QCOMPARE(assoc.mimeAppsPath(), qEnvironmentVariable("XDG_CONFIG_HOME") + "/mimeapps.list");
    }
};

TESSARO_CORE_TEST_MAIN(AssociationsTest)
#include "tst_associations.moc"
