// Find in Files as the user sees it: from the output window's timer tick that runs
// the search until the window has painted the results.
//
//   bench_findinfiles WORKSPACE TEXT [RUNS]
//
// Prints the fastest and the median time of RUNS searches (each in a newly loaded
// output window, as one window searches once), in milliseconds.

#include "search/core/FindInFiles.h"
#include "search/ui/frmOut.h"
#include "state/core/AppState.h"
#include "workspace/core/NodeTree.h"
#include "workspace/core/WorkspaceFile.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace tessaro;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3) {
        std::fprintf(stderr, "usage: bench_findinfiles WORKSPACE TEXT [RUNS]\n");
        return 2;
    }
    NodeTree tree;
    workspacefile::ReadWorkspaceFile(arguments.at(1), app().workspace, tree);
    app().workspace.open = true;
    int files = 0;
    for (Group group : search::searchedGroups())
        files += app().workspace.list(group).count();
    const int runs = arguments.size() > 3 ? arguments.at(3).toInt() : 30;

    QMdiArea area;
    area.resize(1000, 700);
    area.show();
    const search::FindInFilesQuery query{arguments.at(2), QStringLiteral("/")};
    std::vector<double> times;
    std::vector<double> searchTimes;
    int hits = 0;
    for (int run = 0; run < runs; ++run) {
        auto *out = new search::frmOut(query);
        out->timer()->stop(); // the tick is run below, timed
        QMdiSubWindow *child = area.addSubWindow(out);
        child->setAttribute(Qt::WA_DeleteOnClose);
        child->show();
        QApplication::processEvents();

        QElapsedTimer clock;
        clock.start();
        out->Timer1_Timer();
        searchTimes.push_back(double(clock.nsecsElapsed()) / 1e6);
        child->repaint(); // the window shows the results
        times.push_back(double(clock.nsecsElapsed()) / 1e6);

        hits = int(out->text().count(QStringLiteral("\r\nFound ")));
        child->close();
        QApplication::processEvents();
    }
    std::sort(times.begin(), times.end());
    std::sort(searchTimes.begin(), searchTimes.end());
    std::printf("find in files: %d files, %d hits, text \"%s\": shown in the output window: "
                "fastest %.2f ms, median %.2f ms (search alone: median %.2f ms; %d runs)\n",
                files, hits, qPrintable(arguments.at(2)), times.front(), times[times.size() / 2],
                searchTimes[searchTimes.size() / 2], runs);
    return 0;
}
