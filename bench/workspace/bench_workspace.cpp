// Workspace speed: opening a full workspace in the main window (reading the file and
// building the structure view over real C headers), adding 50 files at once, and
// `tessaro-cli structs` against `ctags -x --c-kinds=s` over the same files.
//
// Usage: bench_workspace [HEADER_ROOT]   (default /usr/include; run through run.sh)

#include "app/ui/MainWindow.h"
#include "platform/core/CommonDialog.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/TextFile.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "workspace/core/StructScan.h"
#include "workspace/core/WorkspaceFile.h"
#include "workspace/ui/WorkspaceCommands.h"

#include <QAction>
#include <QApplication>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTreeWidget>

#include <algorithm>
#include <cstdio>

using namespace tessaro;

namespace {

QTextStream out(stdout);

// Answers every file dialog with the next scripted name.
class ScriptedDialog : public CommonDialogService
{
public:
    QStringList answers;
    QString fileName(const FileDialogRequest &) override
    {
        return answers.isEmpty() ? QString() : answers.takeFirst();
    }
    bool printerSetup(const QString &) override { return false; }
};

// Real C headers whose structure scan runs to its end (so every run does the whole
// work), 8 to 120 KB each, in path order.
QStringList pickHeaders(const QString &root, int wanted, qint64 *totalBytes)
{
    QStringList all;
    QDirIterator it(root, {"*.h"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const qint64 size = QFileInfo(path).size();
        if (size >= 8 * 1024 && size <= 120 * 1024 && !path.contains("qt6") && !path.contains(' '))
            all << path;
    }
    std::sort(all.begin(), all.end());
    QStringList chosen;
    *totalBytes = 0;
    for (const QString &path : all) {
        if (chosen.size() == wanted)
            break;
        QByteArray text;
        if (!trapped([&] { text = textfile::readBytes(path); }))
            continue;
        QList<qint32> seen;
        const bool complete = trapped([&] {
            structscan::scanDeclarations(structscan::withCrLfLineBreaks(text),
                                         [&](qint32 position, const QString &) {
                                             if (seen.contains(position))
                                                 raise(5);
                                             seen << position;
                                         });
        });
        if (complete) {
            chosen << path;
            *totalBytes += text.size();
        }
    }
    return chosen;
}

template <typename Fn> double bestOf(int runs, Fn &&fn)
{
    double best = 1e12;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        fn();
        best = std::min(best, timer.nsecsElapsed() / 1e6);
    }
    return best;
}

double runProcess(const QString &program, const QStringList &arguments, qint64 *outputBytes)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::SeparateChannels);
    QElapsedTimer timer;
    timer.start();
    process.start(program, arguments);
    process.waitForFinished(-1);
    const double ms = timer.nsecsElapsed() / 1e6;
    *outputBytes = process.readAllStandardOutput().size();
    return ms;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QString root =
        argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("/usr/include");
    QTemporaryDir dir;

    // A full workspace: 51 files in each group and 61 headers; the Resources group is
    // never scanned, so 265 files are.
    qint64 bytes = 0;
    const QStringList headers = pickHeaders(root, 265, &bytes);
    if (headers.size() < 265) {
        std::fprintf(stderr, "only %d usable headers under %s\n", int(headers.size()),
                     qPrintable(root));
        return 1;
    }
    QByteArray tdi;
    int next = 0;
    auto take = [&](const char *tag, int count) {
        for (int i = 0; i < count; ++i)
            tdi += QByteArray(tag) + QFile::encodeName(headers[next++]) + "\r\n";
    };
    take("GAME=", 51);
    take("CAME=", 51);
    take("USER=", 51);
    take("SOUR=", 51);
    take("HEAD=", 61);
    for (int i = 0; i < 51; ++i)
        tdi +=
            "RESC=" + QFile::encodeName(dir.filePath(QStringLiteral("res%1.rc").arg(i))) + "\r\n";
    tdi += "\r\n";
    const QString workspace = dir.filePath("full.tdi");
    textfile::writeBytes(workspace, tdi);

    MainWindow frame;
    auto *code1 = frame.findChild<QTreeWidget *>("Code1");
    auto *list1 = frame.findChild<QTreeWidget *>("List1");
    if (!code1) {
        // A main window without its left pane yet: give the commands their trees.
        code1 = new QTreeWidget(&frame);
        code1->setObjectName("Code1");
        list1 = new QTreeWidget(&frame);
        list1->setObjectName("List1");
        WorkspaceCommands::install(frame);
    }
    frame.show();
    ScriptedDialog dialog;
    setCommonDialogService(&dialog);
    WorkspaceCommands *commands = WorkspaceCommands::of(frame);

    out << "Workspace: " << headers.size() << " C headers scanned, "
        << QString::number(bytes / 1e6, 'f', 1) << " MB, from " << root << "\n";

    // 1. File > Open Workspace... in the window: read, FileView tree, structure view.
    const double openMs = bestOf(5, [&] {
        dialog.answers << workspace;
        commands->mnuFileOW_Click();
    });
    int entries = 0;
    for (QTreeWidgetItemIterator it(list1); *it; ++it)
        ++entries;
    out << "open workspace + structure view (window): " << QString::number(openMs, 'f', 1)
        << " ms  [" << (app().workspace.open ? "complete" : "INCOMPLETE") << ", " << entries
        << " structure view nodes, " << code1->topLevelItemCount()
        << " top-level FileView nodes]  target <= 100 ms\n";

    // 2. Add File(s) with 50 files chosen at once: the workspace file is rewritten whole
    // for every file.
    QStringList names;
    for (int i = 0; i < 50; ++i)
        names << QStringLiteral("f%1.c").arg(i);
    int run = 0;
    const double addMs = bestOf(5, [&] {
        dialog.answers << dir.filePath(QStringLiteral("new%1.tdi").arg(run))
                       << dir.filePath(QStringLiteral("mod%1/tools").arg(run)) + " " +
                              names.join(' ');
        ++run;
        commands->mnuFileNW_Click();
        commands->mnuFileInsert_Click();
    });
    out << "add 50 files at once (New Workspace + Add File(s)): " << QString::number(addMs, 'f', 1)
        << " ms  [" << app().workspace.source.count() << " files, "
        << textfile::readBytes(app().workspace.path).size() << " bytes]  target <= 200 ms\n";

    // 3. tessaro-cli structs against ctags over the same files, alternating runs.
    const QString cli = QCoreApplication::applicationDirPath() + "/tessaro-cli";
    const QString ctags = QStandardPaths::findExecutable("ctags");
    QStringList scanned = headers;
    double bestCli = 1e12, bestCtags = 1e12;
    qint64 cliOut = 0, ctagsOut = 0;
    for (int i = 0; i < 7; ++i) {
        bestCli = std::min(bestCli, runProcess(cli, {"structs", workspace}, &cliOut));
        if (!ctags.isEmpty())
            bestCtags =
                std::min(bestCtags,
                         runProcess(ctags, QStringList{"-x", "--c-kinds=s"} + scanned, &ctagsOut));
    }
    out << "tessaro-cli structs: " << QString::number(bestCli, 'f', 1) << " ms (" << cliOut
        << " bytes out)\n";
    if (ctags.isEmpty()) {
        out << "ctags not found: no comparison\n";
        return 0;
    }
    out << "ctags -x --c-kinds=s: " << QString::number(bestCtags, 'f', 1) << " ms (" << ctagsOut
        << " bytes out)\n";
    out << "ratio tessaro-cli / ctags: " << QString::number(bestCli / bestCtags, 'f', 2)
        << "  target <= 2.00\n";
    return 0;
}
