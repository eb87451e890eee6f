// Find in a 10 MiB document, from the first occurrence of a rare word to the last:
// the search that starts one character after the first match and runs to the end of
// the text, as Find Again does.
//
//   bench_documentfind [RUNS]
//
// Times Find Again in a document window's editor control (srcText) holding the
// text, as the command runs it (selection start, text length, Find), and, over the
// bare text (UTF-16, line breaks as CR LF), the search primitive of Find in Files
// and Qt's own case-insensitive search for comparison. Run it with
// QT_QPA_PLATFORM=offscreen when there is no display.

#include "editor/core/CaselessPattern.h"
#include "editor/ui/srcText.h"
#include "search/core/FindController.h"
#include "search/ui/DocumentFindTarget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using tessaro::CaselessPattern;

namespace {

// C-like text: lines of words, numbers and punctuation, CR LF line ends.
QString makeDocument(qsizetype size)
{
    static const char *const words[] = {"int", "score",  "client", "entity", "return", "if",
                                        "for", "struct", "void",   "level",  "trap_",  "0x1F",
                                        "{",   "}",      "(",      ");",     "->",     "=="};
    QRandomGenerator random(7);
    QString text;
    text.reserve(size + 100);
    while (text.size() < size) {
        const int count = 3 + random.bounded(8);
        for (int i = 0; i < count; ++i) {
            text += QLatin1String(words[random.bounded(int(std::size(words)))]);
            text += QLatin1Char(' ');
        }
        text += QLatin1String("\r\n");
    }
    text.truncate(size);
    return text;
}

double medianMs(int runs, const std::function<qsizetype()> &search, qsizetype expected)
{
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer clock;
        clock.start();
        const qsizetype found = search();
        times.push_back(double(clock.nsecsElapsed()) / 1e6);
        if (found != expected) {
            std::fprintf(stderr, "wrong match: %lld instead of %lld\n", qlonglong(found),
                         qlonglong(expected));
            return -1;
        }
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const int runs = argc > 1 ? std::max(1, atoi(argv[1])) : 20;
    const QString word = QStringLiteral("Quaternion");
    QString document = makeDocument(10 * 1024 * 1024);
    // The word on lines of its own, near the start and near the end.
    const qsizetype first = document.indexOf(QLatin1String("\r\n"), 1000) + 2;
    document.insert(first, QStringLiteral("QUATERNION\r\n"));
    const qsizetype last = document.lastIndexOf(QLatin1String("\r\n"), document.size() - 1000) + 2;
    document.insert(last, QStringLiteral("quaternion\r\n"));

    const CaselessPattern pattern(word);
    const QStringView text(document);
    const double ours = medianMs(
        runs, [&] { return pattern.indexIn(text, first + 1, text.size()); }, last);
    const double qt = medianMs(
        runs, [&] { return text.indexOf(word, first + 1, Qt::CaseInsensitive); }, last);
    std::printf("find in a 10 MiB text, first to last occurrence (%lld characters): "
                "CaselessPattern %.2f ms, QStringView::indexOf %.2f ms (median of %d)\n",
                qlonglong(last - first), ours, qt, runs);

    // The same search as Find Again in an editor control holding the document.
    tessaro::srcText editor;
    editor.setText(document);
    tessaro::search::DocumentFindTarget target(editor);
    tessaro::search::FindController controller;
    struct Box : tessaro::search::FindBox
    {
        QString text() const override { return QStringLiteral("quaternion"); }
        void addItem(const QString &) override {}
    } box;
    const double editorFind = medianMs(
        runs,
        [&] {
            editor.SetSelection(first, first + word.size());
            controller.find(box, &target);
            return qsizetype(editor.SelStart());
        },
        last);
    std::printf("find in a 10 MiB document window (srcText, %lld characters): Find from the "
                "first to the last occurrence %.2f ms (median of %d)\n",
                qlonglong(editor.CharacterCount()), editorFind, runs);
    return 0;
}
