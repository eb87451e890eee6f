// Installs this build into a temporary prefix and makes its Debian package, checks that
// both hold every file a desktop and a terminal user look for, and runs the installed
// programs from there.
#include "platform/core/AppInfo.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace tessaro;

namespace {

const QString kBuildDir = QStringLiteral(TESSARO_BUILD_DIR);
const QString kSampleMain = QStringLiteral(TESSARO_SOURCE_DIR "/examples/samplemod/game/g_main.c");
const QList<int> kIconSizes = {16, 32, 48, 64, 128, 256};

struct Result
{
    bool finished = false;
    int status = -1;
    QByteArray out;
    QByteArray err;
    bool ok() const { return finished && status == 0; }
    QByteArray report() const { return "status " + QByteArray::number(status) + "\n" + out + err; }
};

Result run(const QString &program, const QStringList &arguments,
           QProcessEnvironment env = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessEnvironment(env);
    process.start(program, arguments);
    Result result;
    result.finished = process.waitForStarted(10000) && process.waitForFinished(240000) &&
                      process.exitStatus() == QProcess::NormalExit;
    result.status = process.exitCode();
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}

QString version()
{
    return QStringLiteral("%1.%2.%3")
        .arg(versionMajor())
        .arg(versionMinor())
        .arg(versionRevision());
}

QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QByteArray gunzip(const QString &path)
{
    return run(QStringLiteral("gzip"), {QStringLiteral("-dc"), path}).out;
}

// The word lists and the definition file, as the source tree holds them.
QStringList dataFiles()
{
    QStringList names =
        QDir(QStringLiteral(TESSARO_SOURCE_DIR "/data"))
            .entryList({QStringLiteral("*.txt"), QStringLiteral("*.stx")}, QDir::Files);
    names.removeAll(QStringLiteral("CMakeLists.txt"));
    return names;
}

// The manual's pages, pictures and style sheet, as the build writes them beside the
// programs, where they are installed from.
QStringList manualFiles()
{
    const QString manual = QStringLiteral(TESSARO_BIN_DIR "/manual");
    QStringList files;
    QDirIterator it(manual, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << "share/doc/tessaro/manual/" + QDir(manual).relativeFilePath(it.next());
    files.sort();
    return files;
}

// Every file an installation puts below its prefix.
QStringList installedFiles()
{
    QStringList files = {"bin/tessaro",
                         "bin/tessaro-cli",
                         "lib/tessaro/tessaro",
                         "lib/tessaro/tessaro-cli",
                         "share/applications/tessaro.desktop",
                         "share/icons/hicolor/scalable/apps/tessaro.svg",
                         "share/metainfo/org.tessaro.Tessaro.metainfo.xml",
                         "share/man/man1/tessaro.1.gz",
                         "share/man/man1/tessaro-cli.1.gz",
                         "share/bash-completion/completions/tessaro-cli",
                         "share/doc/tessaro/copyright",
                         "share/doc/tessaro/changelog.gz"};
    for (const QString &name : dataFiles())
        files << "lib/tessaro/" + name;
    for (int size : kIconSizes)
        files << QStringLiteral("share/icons/hicolor/%1x%1/apps/tessaro.png").arg(size);
    files << manualFiles();
    return files;
}

// What is missing or wrong below the prefix; empty when everything is in place.
QStringList layoutProblems(const QString &prefix)
{
    QStringList problems;
    for (const QString &file : installedFiles())
        if (!QFileInfo(prefix + "/" + file).isFile())
            problems << "missing " + file;
    for (const QString &program : {QStringLiteral("tessaro"), QStringLiteral("tessaro-cli")}) {
        const QFileInfo link(prefix + "/bin/" + program);
        if (link.symLinkTarget() !=
            QFileInfo(prefix + "/lib/tessaro/" + program).absoluteFilePath())
            problems << "bin/" + program + " does not lead to lib/tessaro/" + program;
        if (!QFileInfo(prefix + "/lib/tessaro/" + program).isExecutable())
            problems << "lib/tessaro/" + program + " is not executable";
    }
    const QStringList manual = manualFiles();
    if (!manual.contains("share/doc/tessaro/manual/index.html") ||
        !manual.contains("share/doc/tessaro/manual/search.html") ||
        manual.filter("/images/").isEmpty())
        problems << "the build wrote no manual with pages and pictures to install";
    for (const QString &file : manual)
        if (QFileInfo(prefix + "/" + file).size() !=
            QFileInfo(QStringLiteral(TESSARO_BIN_DIR "/manual/") +
                      file.mid(QStringLiteral("share/doc/tessaro/manual/").size()))
                .size())
            problems << file + " differs from the build's";
    for (int size : kIconSizes) {
        const QImage png(
            QStringLiteral("%1/share/icons/hicolor/%2x%2/apps/tessaro.png").arg(prefix).arg(size));
        if (png.size() != QSize(size, size))
            problems << QStringLiteral("the %1 pixel icon is not %1 pixels").arg(size);
    }
    return problems;
}

bool available(const char *program)
{
    return !QStandardPaths::findExecutable(QLatin1String(program)).isEmpty();
}

QStringList lines(const QByteArray &text)
{
    return QString::fromUtf8(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

class InstallTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir{QDir::homePath() + "/install-XXXXXX"};
    QString m_prefix;

    QString cli() const { return m_prefix + "/bin/tessaro-cli"; }
    // The command names of the installed tessaro-cli's --help.
    QStringList cliCommands() const
    {
        QStringList names;
        const QString help = QString::fromUtf8(run(cli(), {"--help"}).out);
        const QString list = help.mid(help.indexOf("\nCommands:\n"));
        const QRegularExpression command(QStringLiteral("^  ([a-z][a-z0-9-]*)"),
                                         QRegularExpression::MultilineOption);
        for (auto it = command.globalMatch(list); it.hasNext();) {
            const QString name = it.next().captured(1);
            if (!names.contains(name))
                names << name;
        }
        return names;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_prefix = QFileInfo(m_dir.path()).canonicalFilePath() + "/prefix";
        const Result install =
            run(QStringLiteral(CMAKE_COMMAND_PATH), {"--install", kBuildDir, "--prefix", m_prefix});
        QVERIFY2(install.ok(), install.report().constData());
    }

    void theInstallPutsEveryFileBelowThePrefix()
    {
        const QStringList problems = layoutProblems(m_prefix);
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join('\n')));
    }

    void theInstalledCliRunsFromBinAndFindsItsWordLists()
    {
        const Result shown = run(cli(), {"--version"});
        QVERIFY2(shown.ok(), shown.report().constData());
        QCOMPARE(shown.out, ("tessaro-cli " + version() + "\n").toUtf8());
        // C keywords are coloured only when the lists in the program's folder are read.
        const Result coloured = run(cli(), {"colour", kSampleMain});
        QVERIFY2(coloured.ok(), coloured.report().constData());
        QVERIFY(coloured.out.contains(" keyword"));
    }

    void theInstalledIdeStartsAndReadsItsOwnFolder()
    {
        const QString events = m_dir.filePath("events");
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("TESSARO_EVENT_LOG", events);
        QProcess ide;
        ide.setProcessEnvironment(env);
        ide.start(m_prefix + "/bin/tessaro", {kSampleMain});
        QVERIFY(ide.waitForStarted(10000));

        const QString definitions = "word list " + m_prefix + "/lib/tessaro/tessaro.stx";
        // Its help file is the installed manual, not the build's.
        const QString help = "help file " + m_prefix + "/share/doc/tessaro/manual/index.html";
        QElapsedTimer timer;
        timer.start();
        QStringList logged;
        while (timer.elapsed() < 60000 &&
               !(logged.contains("loaded") && logged.contains(definitions))) {
            QTest::qWait(50);
            logged.clear();
            for (const QString &line : lines(readAll(events)))
                logged << line.section(QLatin1Char(' '), 1);
        }
        ide.terminate();
        QVERIFY(ide.waitForFinished(20000));
        QVERIFY2(logged.contains(definitions), qPrintable(logged.join('\n')));
        QVERIFY2(logged.filter("no word list").isEmpty(), qPrintable(logged.join('\n')));
        QVERIFY2(logged.contains(help), qPrintable(logged.join('\n')));
        QCOMPARE(ide.exitStatus(), QProcess::NormalExit);
        QCOMPARE(ide.exitCode(), 0);

        // Its desktop association names the installed program and the same icon.
        const QByteArray entry =
            readAll(qEnvironmentVariable("XDG_DATA_HOME") + "/applications/tessaro.desktop");
        QVERIFY2(entry.contains("\nExec=\"" + QFile::encodeName(m_prefix) +
                                "/lib/tessaro/tessaro\" %f\n"),
                 entry.constData());
        QVERIFY(entry.contains("\nIcon=tessaro\n"));
    }

    void theDesktopEntryAndTheAppStreamDataAreValid()
    {
        const QString desktop = m_prefix + "/share/applications/tessaro.desktop";
        const QString metainfo = m_prefix + "/share/metainfo/org.tessaro.Tessaro.metainfo.xml";
        const QByteArray entry = readAll(desktop);
        QVERIFY(entry.contains("\nExec=tessaro %f\n"));
        QVERIFY(entry.contains("\nIcon=tessaro\n"));
        const QByteArray data = readAll(metainfo);
        QVERIFY(data.contains("<launchable type=\"desktop-id\">tessaro.desktop</launchable>"));
        QVERIFY(data.contains("<icon type=\"stock\">tessaro</icon>"));
        QVERIFY2(data.contains("<release version=\"" + version().toUtf8() + "\""),
                 "the AppStream data names another release than this version");

        if (!available("desktop-file-validate") || !available("appstreamcli"))
            QSKIP("desktop-file-validate or appstreamcli is missing "
                  "(Debian: desktop-file-utils, appstream)");
        const Result entryCheck = run("desktop-file-validate", {desktop});
        QVERIFY2(entryCheck.ok() && entryCheck.out.isEmpty(), entryCheck.report().constData());
        const Result dataCheck = run("appstreamcli", {"validate", "--no-net", metainfo});
        QVERIFY2(dataCheck.ok(), dataCheck.report().constData());
    }

    void theManualPagesDescribeBothPrograms()
    {
        const QByteArray ide = gunzip(m_prefix + "/share/man/man1/tessaro.1.gz");
        QVERIFY(ide.startsWith(".TH TESSARO 1 \"\" \"Tessaro " + version().toUtf8() + "\""));
        const QByteArray cliPage = gunzip(m_prefix + "/share/man/man1/tessaro-cli.1.gz");
        QVERIFY(
            cliPage.startsWith(".TH TESSARO\\-CLI 1 \"\" \"Tessaro " + version().toUtf8() + "\""));
        const QStringList commands = cliCommands();
        QVERIFY(commands.size() >= 6);
        for (const QString &name : commands)
            QVERIFY2(cliPage.contains(".B tessaro\\-cli " + name.toUtf8() + " "), qPrintable(name));

        if (!available("man"))
            QSKIP("man is missing (Debian: man-db)");
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("MANWIDTH", "80");
        for (const char *page : {"tessaro.1.gz", "tessaro-cli.1.gz"}) {
            const Result shown =
                run("man", {"--warnings", "-l", m_prefix + "/share/man/man1/" + page}, env);
            QVERIFY2(shown.ok() && shown.err.isEmpty(), shown.report().constData());
            QVERIFY(shown.out.contains("SEE ALSO"));
        }
    }

    void theCompletionOffersCommandsChoicesAndOptions()
    {
        // Completes the words as bash would with the cursor after the last one.
        const auto complete = [this](const QString &words) {
            const QString script =
                QStringLiteral("source '%1/share/bash-completion/completions/tessaro-cli'\n"
                               "COMP_WORDS=(%2); COMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n"
                               "_tessaro_cli \"${COMP_WORDS[0]}\" \"${COMP_WORDS[COMP_CWORD]}\"\n"
                               "printf '%s\\n' \"${COMPREPLY[@]}\"\n")
                    .arg(m_prefix, words);
            return lines(run("bash", {"-c", script}).out);
        };
        const QString program = "'" + cli() + "'";
        QStringList expected = cliCommands();
        expected << "--help"
                 << "--version";
        QStringList offered = complete(program + " ''");
        expected.sort();
        offered.sort();
        QCOMPARE(offered, expected);
        QCOMPARE(complete(program + " build ''"),
                 QStringList({"game", "cgame", "ui", "exe", "q2"}));
        QCOMPARE(complete(program + " build c"), QStringList({"cgame"}));
        const QStringList options = complete(program + " colour x.c --");
        QVERIFY2(options.contains("--mode") && options.contains("--lists"),
                 qPrintable(options.join(' ')));
        // File names are left to bash.
        QCOMPARE(complete(program + " tree ''"), QStringList());
    }

    void theDebianPackageHoldsTheSameFiles()
    {
        if (!available("dpkg-deb") || !available("dpkg-shlibdeps"))
            QSKIP("dpkg-deb or dpkg-shlibdeps is missing (Debian: dpkg-dev): no package test");
        const QString out = m_dir.filePath("deb");
        const Result made =
            run(QStringLiteral(CPACK_COMMAND_PATH),
                {"-G", "DEB", "--config", kBuildDir + "/CPackConfig.cmake", "-B", out});
        QVERIFY2(made.ok(), made.report().constData());
        const QString arch = QString::fromUtf8(run("dpkg", {"--print-architecture"}).out).trimmed();
        const QString package = QStringLiteral("%1/tessaro_%2_%3.deb").arg(out, version(), arch);
        QVERIFY2(QFileInfo::exists(package), qPrintable(package));

        const Result fields = run("dpkg-deb", {"--field", package});
        QVERIFY2(fields.ok(), fields.report().constData());
        const QString control = QString::fromUtf8(fields.out);
        QVERIFY(control.contains("Package: tessaro\n"));
        QVERIFY(control.contains("Version: " + version() + "\n"));
        QVERIFY(control.contains("Section: devel\n"));
        QVERIFY(control.contains(QRegularExpression("\nMaintainer: [^\n]+ <[^\n]+@[^\n]+>\n")));
        QVERIFY(control.contains(QRegularExpression("\nDescription: [^\n]+\n [^\n]+")));
        const QString depends = control.section("Depends: ", 1).section('\n', 0, 0);
        for (const char *library : {"libqt6core6", "libqt6gui6", "libqt6widgets6", "libqt6network6",
                                    "libqt6printsupport6", "libc6", "libstdc++6"})
            QVERIFY2(depends.contains(QLatin1String(library)), qPrintable(depends));

        const QString root = m_dir.filePath("root");
        const Result extracted = run("dpkg-deb", {"-x", package, root});
        QVERIFY2(extracted.ok(), extracted.report().constData());
        const QStringList problems = layoutProblems(root + "/usr");
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join('\n')));
    }
};

TESSARO_CORE_TEST_MAIN(InstallTest)
#include "tst_install.moc"
