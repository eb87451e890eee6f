// Measures a scanner with its word lookups over a source file:
//   bench_colourscan FILE [LISTS_DIR] [REPEATS] [c|perl|vb]
// The scanner is C's unless another is named. The lists are those the editor loads
// for that mode (tessaro.stx and its black list, by default from beside this program).
// Prints the speed of the best of the repeats, the number of stretches, and the speed
// of a plain tokenizer over the same text for reference.

#include "editor/core/ColourScan.h"
#include "editor/core/ModeWordLists.h"
#include "platform/core/TextFile.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <ctime>

using namespace tessaro;

namespace {

// Splits the text at white space and counts the words: the floor any scanner pays.
qsizetype plainTokens(const QString &text)
{
    qsizetype words = 0;
    bool inWord = false;
    for (const QChar c : text) {
        const bool space = c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
        if (!space && !inWord)
            ++words;
        inWord = !space;
    }
    return words;
}

// Seconds of processor time this thread has used: on a machine shared with other
// work, wall time also counts the waits for a processor.
double cpuSeconds()
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) + double(t.tv_nsec) / 1e9;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 2) {
        std::fprintf(stderr, "Usage: bench_colourscan FILE [LISTS_DIR] [REPEATS] [c|perl|vb]\n");
        return 2;
    }
    const QString listsDir =
        args.value(2).isEmpty() ? QCoreApplication::applicationDirPath() : args.at(2);
    const int repeats = args.value(3, QStringLiteral("5")).toInt();
    const QString scanner = args.value(4, QStringLiteral("c")).toLower();
    const int scanMode = scanner == u"perl" ? mode::Perl
                         : scanner == u"vb" ? mode::VisualBasic
                                            : mode::C;

    ScanRequest request;
    request.text = editorText(textfile::read(args.at(1)));
    request.mode = scanMode;
    EditorWordLists lists;
    lists.applyMode(scanMode, listsDir);
    request.black = lists.black;
    request.blue = lists.blue;
    const double megabytes = double(request.text.size()) / (1024.0 * 1024.0);

    double best = 1e100, bestCpu = 1e100;
    size_t stretches = 0;
    for (int i = 0; i < repeats; ++i) {
        QElapsedTimer clock;
        clock.start();
        const double cpu = cpuSeconds();
        stretches = scanText(request).size();
        bestCpu = qMin(bestCpu, cpuSeconds() - cpu);
        best = qMin(best, double(clock.nsecsElapsed()) / 1e9);
    }
    double bestPlain = 1e100, bestPlainCpu = 1e100;
    qsizetype words = 0;
    for (int i = 0; i < repeats; ++i) {
        QElapsedTimer clock;
        clock.start();
        const double cpu = cpuSeconds();
        words = plainTokens(request.text);
        bestPlainCpu = qMin(bestPlainCpu, cpuSeconds() - cpu);
        bestPlain = qMin(bestPlain, double(clock.nsecsElapsed()) / 1e9);
    }
    std::printf("text: %.2f MiB (%lld characters), %zu stretches, %lld words\n", megabytes,
                qlonglong(request.text.size()), stretches, qlonglong(words));
    std::printf("%-4s scanner, lookups: %.1f ms wall, %.0f MiB/s; %.1f ms processor, %.0f MiB/s\n",
                qPrintable(scanner), best * 1e3, megabytes / best, bestCpu * 1e3,
                megabytes / bestCpu);
    std::printf("plain tokenizer:        %.1f ms wall, %.0f MiB/s; %.1f ms processor, %.0f MiB/s\n",
                bestPlain * 1e3, megabytes / bestPlain, bestPlainCpu * 1e3,
                megabytes / bestPlainCpu);
    return 0;
}
