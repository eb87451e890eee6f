// Speed and memory of the editor control on real C sources:
//   1. LoadFile of a 1 MiB file until the window is painted with every colour;
//   2. LoadFile of a 10 MiB file until it is fully coloured, and the longest time the
//      event loop waited meanwhile;
//   3. 200 keystrokes in the coloured 1 MiB file, each re-coloured and painted;
//   4. the process's memory with the 10 MiB file loaded and coloured, 200 keystrokes
//      in it, and the time of each step of resizing its window;
//   5. undo memory and time: "/*" typed and deleted at the top of a 2 MiB C file
//      without block comments (each toggle re-colours the whole file), six toggles,
//      then six Undos.
// Usage: bench_srctext <1 MiB file> <10 MiB file>   (see srctext-bench.sh)

#include "editor/ui/SourceEditBox.h"
#include "editor/ui/srcText.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace tessaro;

namespace {

double ms(qint64 ns)
{
    return double(ns) / 1e6;
}

// Lets a newly shown window settle (layout, size, first paint), as a document window
// has when its file is loaded.
void settle()
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 100)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
}

// Runs the event loop until the control's colouring run has ended.
void waitForColouring(srcText &code)
{
    while (code.isColouring())
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

QString statusField(const char *name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return QStringLiteral("?");
    const QByteArray key = QByteArray(name) + ':';
    for (const QByteArray &line : status.readAll().split('\n'))
        if (line.startsWith(key))
            return QString::fromLatin1(line.mid(key.size()).trimmed());
    return QStringLiteral("?");
}

struct LoadTimes
{
    double loaded;   // LoadFile returned (text in the box, run started)
    double coloured; // the run has ended
    double painted;  // the window is painted
};

LoadTimes loadAndPaint(const QString &file)
{
    srcText code;
    code.resize(1000, 800);
    code.show();
    settle();
    QElapsedTimer clock;
    clock.start();
    code.LoadFile(file, 1);
    LoadTimes t{};
    t.loaded = ms(clock.nsecsElapsed());
    waitForColouring(code);
    t.coloured = ms(clock.nsecsElapsed());
    code.RTFBox()->viewport()->repaint();
    t.painted = ms(clock.nsecsElapsed());
    return t;
}

void typeKey(QWidget *target, Qt::Key key, const QString &text)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &press);
    QApplication::sendEvent(target, &release);
}

double residentMiB()
{
    return statusField("VmRSS").section(u' ', 0, 0).toDouble() / 1024.0;
}

// The colour of the "int" on the file's last line.
QColor lastLineColour(srcText &code)
{
    const SourceEditBox *box = code.RTFBox();
    const qsizetype at = box->lineStart(box->lineCount() - 2) + 1;
    return box->foregroundAt(at);
}

// Serves the event loop until nothing is left to colour (the cascade of a comment
// opened or closed goes on from the event loop).
void settleColours(srcText &code)
{
    const bool comment = code.RTFBox()->bytes().startsWith("/*");
    const QColor want = comment ? QColor(0, 128, 0) : QColor(0, 0, 127);
    do {
        QApplication::processEvents(QEventLoop::AllEvents, 50);
    } while (code.isColouring() || lastLineColour(code) != want);
}

// About 2 MiB of C without block comments, so that "/*" typed at the top turns the
// whole file into a comment and deleting it turns it back.
QString twoMiBWithoutBlockComments()
{
    QString text;
    text.reserve(2 * 1024 * 1024 + 64);
    for (int i = 0; text.size() < 2 * 1024 * 1024; ++i)
        text += QStringLiteral("\tint v%1 = value + %1; // note while return\r\n").arg(i);
    return text;
}

void undoMemoryAndTime()
{
    const QString path = QDir::temp().filePath(QStringLiteral("tessaro-bench-toggle.c"));
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            return;
        file.write(twoMiBWithoutBlockComments().toLatin1());
    }
    srcText code;
    code.resize(1000, 800);
    code.show();
    settle();
    code.LoadFile(path, 1);
    settleColours(code);
    SourceEditBox *box = code.RTFBox();
    const double before = residentMiB();
    std::vector<double> toggles;
    for (int i = 0; i < 6; ++i) {
        code.SetSelection(i % 2 ? 2 : 0, i % 2 ? 2 : 0);
        QElapsedTimer clock;
        clock.start();
        if (i % 2 == 0) {
            typeKey(box, Qt::Key_Slash, QStringLiteral("/"));
            typeKey(box, Qt::Key_Asterisk, QStringLiteral("*"));
        } else {
            typeKey(box, Qt::Key_Backspace, QString());
            typeKey(box, Qt::Key_Backspace, QString());
        }
        settleColours(code);
        toggles.push_back(ms(clock.nsecsElapsed()));
    }
    const double after = residentMiB();
    std::vector<double> undos;
    for (int i = 0; i < 6; ++i) {
        QElapsedTimer clock;
        clock.start();
        code.Undo();
        undos.push_back(ms(clock.nsecsElapsed()));
        settleColours(code);
    }
    std::printf("2 MiB comment toggles: resident %.0f MiB before, %.0f MiB after 6 toggles "
                "(+%.0f MiB); toggle re-coloured in %.0f..%.0f ms; Undo %.1f..%.1f ms "
                "(worst allowed 50)\n",
                before, after, after - before, *std::min_element(toggles.begin(), toggles.end()),
                *std::max_element(toggles.begin(), toggles.end()),
                *std::min_element(undos.begin(), undos.end()),
                *std::max_element(undos.begin(), undos.end()));
    QFile::remove(path);
}

// 200 keystrokes in the middle of a coloured text, each re-coloured and painted.
void keystrokes(srcText &code, const char *what)
{
    SourceEditBox *box = code.RTFBox();
    code.SetSelection(code.CharacterCount() / 2, code.CharacterCount() / 2);
    box->send(SourceEditBox::SCI_SCROLLCARET);
    QApplication::processEvents();
    const QString keys = QStringLiteral("int x; /* note */ y = 2;\n");
    std::vector<double> times;
    for (int i = 0; i < 200; ++i) {
        const QChar c = keys.at(i % keys.size());
        QElapsedTimer clock;
        clock.start();
        if (c == u'\n')
            typeKey(box, Qt::Key_Return, QStringLiteral("\r"));
        else
            typeKey(box, Qt::Key(c.toUpper().unicode()), QString(c));
        box->viewport()->repaint();
        times.push_back(ms(clock.nsecsElapsed()));
        QApplication::processEvents();
    }
    std::sort(times.begin(), times.end());
    std::printf("keystroke in coloured %s, re-coloured and painted (200 keys): "
                "median %.2f ms, worst %.2f ms\n",
                what, times[times.size() / 2], times.back());
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s <1 MiB C file> <10 MiB C file>\n", argv[0]);
        return 2;
    }
    const QString small = QString::fromLocal8Bit(argv[1]);
    const QString large = QString::fromLocal8Bit(argv[2]);

    // 1. LoadFile to a painted, coloured window, 1 MiB: median of 7 runs.
    std::vector<LoadTimes> loads;
    for (int i = 0; i < 7; ++i)
        loads.push_back(loadAndPaint(small));
    std::sort(loads.begin(), loads.end(),
              [](const LoadTimes &a, const LoadTimes &b) { return a.painted < b.painted; });
    const LoadTimes &median = loads[loads.size() / 2];
    std::printf("1 MiB LoadFile to painted colours: median %.1f ms (best %.1f, worst %.1f); "
                "of the median: text in %.1f ms, coloured at %.1f ms\n",
                median.painted, loads.front().painted, loads.back().painted, median.loaded,
                median.coloured);
    // 3. Keystrokes in the coloured 1 MiB file.
    {
        srcText code;
        code.resize(1000, 800);
        code.show();
        code.LoadFile(small, 1);
        waitForColouring(code);
        keystrokes(code, "1 MiB");
    }

    // 5. Undo memory and time of colour changes.
    undoMemoryAndTime();

    // 2. and 4. The 10 MiB file.
    {
        srcText code;
        code.resize(1000, 800);
        code.show();
        settle();
        const QString rssBefore = statusField("VmRSS");
        // The longest wait of a zero timer from the start of LoadFile to the end of the
        // colouring run.
        QElapsedTimer gap;
        qint64 longest = 0;
        QTimer ticker;
        QObject::connect(&ticker, &QTimer::timeout, [&] {
            longest = std::max(longest, gap.nsecsElapsed());
            gap.restart();
        });
        ticker.start(0);
        QElapsedTimer clock;
        clock.start();
        gap.start();
        code.LoadFile(large, 1);
        const double loaded = ms(clock.nsecsElapsed());
        QElapsedTimer colouring;
        colouring.start();
        waitForColouring(code);
        longest = std::max(longest, gap.nsecsElapsed());
        ticker.stop();
        code.RTFBox()->viewport()->repaint();
        std::printf("10 MiB: LoadFile %.0f ms (text into the box), colouring %.0f ms, "
                    "total %.0f ms; longest event-loop wait from LoadFile on %.1f ms\n",
                    loaded, ms(colouring.nsecsElapsed()), ms(clock.nsecsElapsed()), ms(longest));
        std::printf("10 MiB: longest time without serving events from LoadFile to the end of "
                    "colouring %.0f ms (goal 50)\n",
                    ms(longest));
        std::printf("10 MiB memory: resident %s (before loading %s), peak %s\n",
                    qPrintable(statusField("VmRSS")), qPrintable(rssBefore),
                    qPrintable(statusField("VmHWM")));
        keystrokes(code, "10 MiB");
        // Resizing: each step is the new size laid out and painted.
        std::vector<double> steps;
        for (int i = 1; i <= 8; ++i) {
            QElapsedTimer step;
            step.start();
            code.resize(1000 - 20 * i, 800 - 10 * i);
            QApplication::processEvents();
            code.RTFBox()->viewport()->repaint();
            steps.push_back(ms(step.nsecsElapsed()));
        }
        std::sort(steps.begin(), steps.end());
        std::printf("10 MiB resize (8 steps, laid out and painted): median %.1f ms, worst %.1f ms "
                    "(goal 50 per step)\n",
                    steps[steps.size() / 2], steps.back());
    }
    return 0;
}
