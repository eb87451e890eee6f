#include "editor/core/ColourScan.h"

#include "editor/core/CScanner.h"
#include "editor/core/HtmlScanner.h"
#include "editor/core/PerlScanner.h"
#include "editor/core/VbScanner.h"

#include <QElapsedTimer>

namespace tessaro {

std::unique_ptr<WordScanner> makeScanner(const ScanRequest &request,
                                         std::vector<ColourStretch> &out)
{
    const qsizetype end = request.text.size();
    switch (request.mode) {
    case mode::VisualBasic:
    case mode::VBScript: return std::make_unique<VbScanner>(request, out, 0, end);
    case mode::Java:
    case mode::JavaScript:
    case mode::C: return std::make_unique<CScanner>(request, out, 0, end);
    case mode::Perl: return std::make_unique<PerlScanner>(request, out, 0, end);
    case mode::Html:
        if (request.html)
            return std::make_unique<HtmlScanner>(request, out, 0, end);
        return nullptr;
    default: return nullptr;
    }
}

struct ColourScan::State
{
    ScanRequest request;
    std::vector<ColourStretch> stretches;
    std::unique_ptr<WordScanner> scanner;
    bool cancelRequested = false;
    bool cancelled = false;
    bool ended = false;
    bool started = false; // before the first slice the scan stands on its leading blank
};

ColourScan::ColourScan(ScanRequest request) : s(std::make_unique<State>())
{
    s->request = std::move(request);
    // About one stretch in 128 characters in C sources: the list then seldom grows
    // (each growth copies it and touches fresh memory).
    s->stretches.reserve(std::size_t(s->request.text.size() / 128));
    s->scanner = makeScanner(s->request, s->stretches);
    s->ended = !s->scanner;
}

ColourScan::~ColourScan() = default;

bool ColourScan::runSlice(std::chrono::microseconds budget)
{
    if (s->ended)
        return true;
    if (s->cancelRequested) {
        s->cancelled = true;
        s->ended = true;
        return true;
    }
    // The clock is read after each chunk of characters rather than after each one.
    s->started = true;
    constexpr qsizetype chunk = 16 * 1024;
    QElapsedTimer clock;
    clock.start();
    const qint64 budgetNs = qint64(budget.count()) * 1000;
    do {
        s->scanner->scan(s->scanner->position() + chunk);
    } while (!s->scanner->atEnd() && clock.nsecsElapsed() < budgetNs);
    s->ended = s->scanner->atEnd();
    return s->ended;
}

void ColourScan::cancel()
{
    s->cancelRequested = true;
}

bool ColourScan::ended() const
{
    return s->ended;
}

bool ColourScan::cancelled() const
{
    return s->cancelled;
}

qsizetype ColourScan::position() const
{
    // The scan position counts the leading blank: the text's first character is 2.
    if (!s->scanner || s->scanner->atEnd())
        return length();
    if (!s->started)
        return 1;
    return qMin(s->scanner->position() + 2, length());
}

qsizetype ColourScan::length() const
{
    return s->request.text.size() + 1;
}

int ColourScan::percentComplete() const
{
    return int(position() * 100 / length());
}

const std::vector<ColourStretch> &ColourScan::stretches() const
{
    return s->stretches;
}

std::vector<ColourStretch> ColourScan::takeStretches()
{
    return std::move(s->stretches);
}

std::vector<ColourStretch> scanText(const ScanRequest &request,
                                    const std::function<void(int)> &progress, const bool *cancel,
                                    std::chrono::microseconds slice)
{
    ColourScan scan(request);
    while (!scan.ended()) {
        if (cancel && *cancel)
            scan.cancel();
        scan.runSlice(slice);
        if (progress)
            progress(scan.percentComplete());
    }
    return scan.takeStretches();
}

} // namespace tessaro
