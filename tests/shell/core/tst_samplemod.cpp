#include "support/TestSupport.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

const QString kExamples = QStringLiteral(TESSARO_SOURCE_DIR "/examples");

QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Copies the examples folder, so the workspace is written for another location.
bool copyTree(const QString &from, const QString &to)
{
    QDirIterator it(from, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        if (file.endsWith(QLatin1String(".tdi")))
            continue;
        const QString target = to + file.mid(from.size());
        QDir().mkpath(QFileInfo(target).absolutePath());
        if (!QFile::copy(file, target))
            return false;
        QFile::setPermissions(target, QFile::permissions(file));
    }
    return true;
}

} // namespace

class SampleModTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyModuleFolderHasAtLeastThreeCFiles()
    {
        for (const char *module : {"game", "cgame", "ui"}) {
            const QStringList files = QDir(kExamples + "/samplemod/" + module).entryList({"*.c"});
            QVERIFY2(files.size() >= 3, module);
        }
    }
    void theSharedFilesLieInTheGameFolder()
    {
        for (const char *name :
             {"bg_misc.c", "bg_pmove.c", "bg_slidemove.c", "bg_lib.c", "q_math.c", "q_shared.c"})
            QVERIFY2(QFile::exists(kExamples + "/samplemod/game/" + name), name);
    }
    void theAssemblerListsNameEveryCompiledFile()
    {
        const struct
        {
            const char *list;
            const char *folder;
            QStringList shared;
        } modules[] = {
            {"game/game.q3asm", "game", {}},
            {"cgame/cgame.q3asm",
             "cgame",
             {"bg_misc", "bg_pmove", "bg_slidemove", "bg_lib", "q_math", "q_shared"}},
            {"ui/ui.q3asm", "ui", {"bg_misc", "bg_lib", "q_math", "q_shared"}},
        };
        for (const auto &m : modules) {
            const QString text = QString::fromLatin1(readAll(kExamples + "/samplemod/" + m.list));
            QVERIFY2(text.startsWith("-o "), m.list);
            const QStringList lines = text.split('\n', Qt::SkipEmptyParts);
            QStringList expected = m.shared;
            for (const QString &c : QDir(kExamples + "/samplemod/" + m.folder).entryList({"*.c"}))
                expected << c.chopped(2);
            for (const QString &name : expected)
                QVERIFY2(lines.contains(name), qPrintable(QString(m.list) + ": " + name));
        }
    }
    void theHeadersDeclareSeveralStructureTypes()
    {
        int total = 0;
        QDirIterator it(kExamples + "/samplemod", {"*.h"}, QDir::Files,
                        QDirIterator::Subdirectories);
        while (it.hasNext())
            total += int(QString::fromLatin1(readAll(it.next())).count("typedef struct"));
        QVERIFY2(total >= 6, qPrintable(QString::number(total)));
    }
    void theWorkspaceIsWrittenForTheCheckoutsLocation()
    {
        QTemporaryDir dir;
        QVERIFY(copyTree(kExamples, dir.path() + "/my examples"));
        QProcess script;
        script.start("/bin/sh", {dir.path() + "/my examples/write-workspace.sh"});
        QVERIFY(script.waitForFinished(20000));
        QCOMPARE(script.exitCode(), 0);
        const QString mod = dir.path() + "/my examples/samplemod";
        QCOMPARE(QString::fromLocal8Bit(script.readAllStandardOutput()), mod + "/samplemod.tdi\n");

        const QByteArray bytes = readAll(mod + "/samplemod.tdi");
        QVERIFY(bytes.endsWith("\r\n\r\n"));
        QVERIFY(!bytes.contains("\r\n\r\n\r\n"));
        QCOMPARE(bytes.count('\n'), bytes.count("\r\n"));
        QStringList lines = QString::fromLocal8Bit(bytes).split("\r\n");
        QCOMPARE(lines.takeLast(), QString());
        QCOMPARE(lines.takeLast(), QString());
        QMap<QString, int> counts;
        for (const QString &line : lines) {
            const QString tag = line.left(5);
            const QString path = line.mid(5);
            QVERIFY2(QStringList({"GAME=", "CAME=", "USER=", "HEAD="}).contains(tag),
                     qPrintable(line));
            QVERIFY2(path.startsWith(mod + "/"), qPrintable(line));
            QVERIFY2(QFile::exists(path), qPrintable(path));
            ++counts[tag];
        }
        QCOMPARE(lines.first(), "GAME=" + mod + "/game/g_main.c");
        QVERIFY(counts["GAME="] >= 9);
        QVERIFY(counts["CAME="] >= 3);
        QVERIFY(counts["USER="] >= 3);
        QVERIFY(counts["HEAD="] >= 3);
        // Every module's third file (the one the builds take the folder from) lies in
        // the module's own folder.
        QVERIFY(
            lines.filter(QRegularExpression("^CAME=")).at(2).startsWith("CAME=" + mod + "/cgame/"));
        QVERIFY(
            lines.filter(QRegularExpression("^USER=")).at(2).startsWith("USER=" + mod + "/ui/"));
        QVERIFY(
            lines.filter(QRegularExpression("^GAME=")).at(2).startsWith("GAME=" + mod + "/game/"));
    }
    void theWorkspaceIsWrittenForACopyOfTheModNamedOnTheCommandLine()
    {
        // A copy where a modder keeps it, reached through a relative path.
        QTemporaryDir dir;
        QVERIFY(copyTree(kExamples + "/samplemod", dir.path() + "/mods/samplemod"));
        QProcess script;
        script.setWorkingDirectory(dir.path());
        script.start("/bin/sh", {kExamples + "/write-workspace.sh", "mods/samplemod"});
        QVERIFY(script.waitForFinished(20000));
        QCOMPARE(script.exitCode(), 0);
        const QString mod = dir.path() + "/mods/samplemod";
        QCOMPARE(QString::fromLocal8Bit(script.readAllStandardOutput()), mod + "/samplemod.tdi\n");
        const QString text = QString::fromLocal8Bit(readAll(mod + "/samplemod.tdi"));
        QVERIFY(text.startsWith("GAME=" + mod + "/game/g_main.c\r\n"));
        QVERIFY(!text.contains(kExamples));
        QVERIFY(!QFile::exists(kExamples + "/samplemod/samplemod.tdi.tmp"));
    }
    void aModFolderThatDoesNotExistWritesNothing()
    {
        QTemporaryDir dir;
        QProcess script;
        script.start("/bin/sh", {kExamples + "/write-workspace.sh", dir.path() + "/nowhere"});
        QVERIFY(script.waitForFinished(20000));
        QVERIFY(script.exitCode() != 0);
        QVERIFY(script.readAllStandardOutput().isEmpty());
        QVERIFY(!QFile::exists(dir.path() + "/nowhere"));
    }
};

TESSARO_CORE_TEST_MAIN(SampleModTest)
#include "tst_samplemod.moc"
