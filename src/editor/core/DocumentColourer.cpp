#include "editor/core/DocumentColourer.h"

#include "editor/core/StyleTable.h"
#include "editor/core/StyledText.h"

#include <QCursor>
#include <QGuiApplication>
#include <QTimer>

#include <algorithm>

namespace tessaro {

namespace {

// A slice of a full run stops once it has worked this long, leaving time for the
// events waiting behind it.
constexpr qint64 SliceBudgetMs = 8;
// The snapshot is turned into the scanners' text in pieces of this many bytes.
constexpr qsizetype FillChunk = 1024 * 1024;
// The typing path colours at most this long at once; longer cascades go on later.
constexpr qint64 TypingBudgetMs = 8;

} // namespace

struct DocumentColourer::Run
{
    enum class Phase { Fill, Scan, Apply };
    Phase phase = Phase::Fill;
    bool html = false;
    bool silent = false;
    bool cancelRequested = false;
    bool respell = true;
    quint64 generation = 0;
    QByteArray bytes; // the text as taken
    QString text;     // the same text as the scanners read it
    std::unique_ptr<ColourScan> scan;
    std::vector<Piece> pieces;
    std::size_t nextPiece = 0;
    int nextLine = 0;
};

DocumentColourer::DocumentColourer(StyledText &text, StyleTable &styles, QTimer *progressTimer,
                                   QObject *parent)
    : QObject(parent), m_text(text), m_styles(styles), m_progressTimer(progressTimer)
{
    setColours({colour::comment, colour::keyword});
    // Each slice of a run is started from the event loop by this timer.
    m_sliceTimer.setSingleShot(true);
    m_sliceTimer.setInterval(0);
    connect(&m_sliceTimer, &QTimer::timeout, this, &DocumentColourer::step);
    connect(m_progressTimer, &QTimer::timeout, this, [this] {
        if (m_run)
            Q_EMIT progressChange(percentComplete());
    });
}

DocumentColourer::~DocumentColourer()
{
    if (m_run)
        QGuiApplication::restoreOverrideCursor();
}

bool DocumentColourer::modeColours(int mode, bool html)
{
    switch (mode) {
    case mode::VisualBasic:
    case mode::VBScript:
    case mode::Java:
    case mode::JavaScript:
    case mode::C:
    case mode::Perl: return true;
    case mode::Html: return html;
    default: return false;
    }
}

bool DocumentColourer::cLike() const
{
    return m_request.mode == mode::C || m_request.mode == mode::Java ||
           m_request.mode == mode::JavaScript;
}

void DocumentColourer::setColours(const Colours &colours)
{
    m_commentStyle = char(m_styles.styleFor(colours.comment));
    m_keywordStyle = char(m_styles.styleFor(colours.keyword));
}

bool DocumentColourer::lineStartsInComment(int line) const
{
    return cLike() && line > 0 && (m_text.lineState(line - 1) & linestate::CommentOpen);
}

void DocumentColourer::setCommentState(int line, bool inComment)
{
    const int old = m_text.lineState(line);
    const int state = (old & linestate::LineEndMask) | linestate::Known |
                      (inComment ? linestate::CommentOpen : 0);
    if (state != old)
        m_text.setLineState(line, state);
}

QString DocumentColourer::lineText(int line) const
{
    const qsizetype from = m_text.lineStart(line);
    return QString::fromLatin1(m_text.bytes(from, m_text.lineEnd(line) - from));
}

// ---- Full run ---------------------------------------------------------------------

bool DocumentColourer::start(bool html, bool silent, bool respell)
{
    if (!modeColours(m_request.mode, html))
        return false;
    if (m_run) {
        // A new request while a run is under way: the run starts over with the new
        // choice; its progress signals stay one start and one completion. A run of
        // the typing path that is now asked for openly starts reporting.
        m_run->html = html;
        m_run->respell = m_run->respell && respell;
        if (m_run->silent && !silent) {
            m_run->silent = false;
            m_progressTimer->start();
            Q_EMIT progressStart();
        }
        beginSnapshot();
        return true;
    }
    m_restarts = 0;
    m_run = std::make_unique<Run>();
    m_run->html = html;
    m_run->silent = silent;
    m_run->respell = respell;
    if (!silent) {
        m_progressTimer->start();
        Q_EMIT progressStart();
    }
    QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    beginSnapshot();
    m_sliceTimer.start();
    return true;
}

void DocumentColourer::cancel()
{
    if (m_run)
        m_run->cancelRequested = true;
}

bool DocumentColourer::cancelPending() const
{
    return m_run && m_run->cancelRequested;
}

int DocumentColourer::percentComplete() const
{
    if (!m_run)
        return 0;
    // Each phase counts for a fixed share of the run: reading the snapshot 5 %,
    // scanning 50 %, styling the lines 45 %. A run still under way never shows 100.
    const Run &run = *m_run;
    auto share = [](qint64 done, qint64 total) {
        return total > 0 ? double(std::min(done, total)) / double(total) : 1.0;
    };
    double done = 0;
    switch (run.phase) {
    case Run::Phase::Fill:
        done = run.bytes.isEmpty() ? 0.0 : 0.05 * share(run.text.size(), run.bytes.size());
        break;
    case Run::Phase::Scan:
        done = 0.05 + 0.50 * (run.scan ? run.scan->percentComplete() / 100.0 : 0.0);
        break;
    case Run::Phase::Apply: done = 0.55 + 0.45 * share(run.nextLine, m_text.lineCount()); break;
    }
    return std::min(99, int(done * 100));
}

void DocumentColourer::beginSnapshot()
{
    Run &run = *m_run;
    run.generation = m_generation;
    // The copy is taken by the first slice; turning it into the scanners' text goes
    // on in slices.
    run.bytes.clear();
    run.text.clear();
    run.phase = Run::Phase::Fill;
    run.scan.reset();
    run.pieces.clear();
    run.nextPiece = 0;
    run.nextLine = 0;
}

void DocumentColourer::step()
{
    if (!m_run)
        return;
    Run &run = *m_run;
    if (run.cancelRequested) {
        finish();
        return;
    }
    if (run.generation != m_generation) {
        // The text changed under the run: its result would colour the wrong
        // characters, so it is dropped and the run starts over.
        ++m_restarts;
        beginSnapshot();
    }
    QElapsedTimer clock;
    clock.start();
    bool done = false;
    while (!done && clock.elapsed() < SliceBudgetMs) {
        switch (run.phase) {
        case Run::Phase::Fill: fillSlice(); break;
        case Run::Phase::Scan: {
            const auto left =
                std::chrono::milliseconds(std::max<qint64>(1, SliceBudgetMs - clock.elapsed()));
            if (run.scan->runSlice(left)) {
                std::vector<ColourStretch> stretches = run.scan->takeStretches();
                run.scan.reset();
                run.pieces.reserve(stretches.size());
                for (ColourStretch &s : stretches)
                    if (s.length > 0)
                        run.pieces.push_back(
                            {s.start, s.start + s.length, s.kind, std::move(s.spelling)});
                // Stretches come in scan order; a word that ran around a comment or a
                // string comes after it and is moved back to its place.
                std::stable_sort(run.pieces.begin(), run.pieces.end(),
                                 [](const Piece &a, const Piece &b) { return a.start < b.start; });
                run.phase = Run::Phase::Apply;
            }
            break;
        }
        case Run::Phase::Apply: done = applySlice(clock); break;
        }
    }
    if (done)
        finish();
    else
        m_sliceTimer.start();
}

void DocumentColourer::fillSlice()
{
    Run &run = *m_run;
    if (run.text.isEmpty() && run.bytes.isEmpty()) {
        run.bytes = m_text.bytes().toByteArray();
        run.text.reserve(run.bytes.size());
    }
    const qsizetype from = run.text.size();
    const qsizetype count = std::min(FillChunk, run.bytes.size() - from);
    run.text.append(QLatin1StringView(run.bytes.constData() + from, count));
    if (run.text.size() < run.bytes.size())
        return;
    m_snapshot = run.bytes;
    ScanRequest request = m_request;
    request.text = std::move(run.text);
    request.html = run.html;
    run.text = QString();
    run.scan = std::make_unique<ColourScan>(std::move(request));
    run.phase = Run::Phase::Scan;
}

bool DocumentColourer::applySlice(const QElapsedTimer &clock)
{
    Run &run = *m_run;
    const int lineCount = m_text.lineCount();
    const int first = run.nextLine;
    Spellings spellings;
    QByteArray styles;
    std::vector<bool> inComment;
    int line = first;
    while (line < lineCount) {
        if (run.respell)
            collectSpellings(line, run.pieces, run.nextPiece, spellings, -1);
        bool endsInComment = false;
        lineStyles(line, run.pieces, run.nextPiece, styles, &endsInComment);
        inComment.push_back(endsInComment);
        ++line;
        if ((line & 15) == 0 && clock.elapsed() >= SliceBudgetMs)
            break;
    }
    run.nextLine = line;
    commitLines(first, spellings, styles, inComment);
    return line >= lineCount;
}

void DocumentColourer::commitLines(int first, const Spellings &spellings, const QByteArray &styles,
                                   const std::vector<bool> &inComment)
{
    // Respelled words keep their length; their styles are set after them.
    writeSpellings(spellings);
    m_text.setStyles(m_text.lineStart(first), styles);
    for (std::size_t i = 0; i < inComment.size(); ++i)
        setCommentState(first + int(i), inComment[i]);
}

void DocumentColourer::finish()
{
    const bool silent = m_run->silent;
    m_run.reset();
    m_sliceTimer.stop();
    if (!silent) {
        m_progressTimer->stop();
        Q_EMIT progressComplete();
    }
    QGuiApplication::restoreOverrideCursor();
}

// ---- Typing path ------------------------------------------------------------------

bool DocumentColourer::hasWaitingLines() const
{
    return m_dirtyFirst >= 0 && modeColours(m_request.mode, m_request.mode == mode::Html);
}

void DocumentColourer::noteChange(qsizetype position, qsizetype removed, qsizetype added)
{
    Q_UNUSED(removed);
    ++m_generation;
    const int first = m_text.lineOf(position);
    const int last = m_text.lineOf(position + added);
    m_dirtyFirst = m_dirtyFirst < 0 ? first : std::min(m_dirtyFirst, first);
    m_dirtyLast = std::max(m_dirtyLast, std::max(first, last));
    m_dirtyFromUndo = m_dirtyFromUndo || m_undoing;
}

void DocumentColourer::flush(qsizetype caretPosition)
{
    if (m_dirtyFirst < 0)
        return;
    const int first = m_dirtyFirst;
    const int last = std::min(m_dirtyLast, m_text.lineCount() - 1);
    const bool respell = !m_dirtyFromUndo;
    m_dirtyFirst = m_dirtyLast = -1;
    m_dirtyFromUndo = false;
    if (!modeColours(m_request.mode, m_request.mode == mode::Html) || last < first)
        return;
    if (last - first + 1 > LargeChange) {
        Q_EMIT largeChange(respell);
        return;
    }
    colourLines(first, last, caretPosition, respell);
}

void DocumentColourer::colourLines(int firstLine, int lastLine, qsizetype caretPosition,
                                   bool respell)
{
    QElapsedTimer clock;
    clock.start();
    const int lineCount = m_text.lineCount();
    const int first = std::max(0, firstLine);
    Spellings spellings;
    QByteArray styles;
    std::vector<bool> inComment;
    bool startsInComment = first < lineCount && lineStartsInComment(first);
    ScanRequest request = m_request;
    request.html = m_request.mode == mode::Html;
    request.ignoreVBHeader = false;
    std::vector<Piece> pieces;
    int line = first;
    while (line < lineCount) {
        const QString prefix = startsInComment ? QStringLiteral("/*") : QString();
        const qsizetype b0 = m_text.lineStart(line);
        // Every line but the last ends in a line break, as in a full run.
        request.text = prefix + lineText(line);
        if (line + 1 < lineCount)
            request.text += QStringLiteral("\r\n");
        pieces.clear();
        for (ColourStretch &s : scanText(request)) {
            const qsizetype from = std::max(b0, b0 + s.start - prefix.size());
            const qsizetype to = b0 + s.start + s.length - prefix.size();
            if (to > from)
                pieces.push_back({from, to, s.kind, std::move(s.spelling)});
        }
        if (respell)
            collectSpellings(line, pieces, 0, spellings, caretPosition);
        std::size_t next = 0;
        bool endState = false;
        lineStyles(line, pieces, next, styles, &endState);
        inComment.push_back(endState);
        const int oldState = m_text.lineState(line);
        const bool oldKnown = oldState & linestate::Known;
        const bool oldInComment = oldState & linestate::CommentOpen;
        ++line;
        startsInComment = endState && cLike();
        if (line > lastLine && oldKnown && endState == oldInComment)
            break;
        if (line > lastLine && line < lineCount && clock.elapsed() >= TypingBudgetMs) {
            // A long cascade (a comment opened above many lines) goes on from the
            // event loop, so the keystroke is shown at once.
            m_dirtyFirst = m_dirtyFirst < 0 ? line : std::min(m_dirtyFirst, line);
            m_dirtyLast = std::max(m_dirtyLast, line);
            m_dirtyFromUndo = m_dirtyFromUndo || !respell;
            QTimer::singleShot(0, this, [this] { flush(); });
            break;
        }
    }
    commitLines(first, spellings, styles, inComment);
}

// ---- Styles of a line --------------------------------------------------------------

void DocumentColourer::lineStyles(int line, const std::vector<Piece> &pieces, std::size_t &next,
                                  QByteArray &styles, bool *endsInComment) const
{
    const qsizetype b0 = m_text.lineStart(line);
    const qsizetype textEnd = m_text.lineEnd(line); // the line break's position
    const qsizetype lineEnd =
        line + 1 < m_text.lineCount() ? m_text.lineStart(line + 1) : m_text.length();
    const qsizetype base = styles.size();
    // The line and its break, plain; the break itself never takes a colour.
    styles.append(lineEnd - b0, char(StyleTable::Plain));
    char *out = styles.data() + base;
    while (next < pieces.size() && pieces[next].end <= b0)
        ++next;
    for (std::size_t r = next; r < pieces.size() && pieces[r].start < textEnd; ++r) {
        const Piece &p = pieces[r];
        // Words of the black list keep the text colour, which the plain style shows.
        if (p.kind == StretchKind::Text)
            continue;
        const qsizetype from = std::max(p.start, b0);
        const qsizetype to = std::min(p.end, textEnd);
        if (to > from)
            std::fill(out + (from - b0), out + (to - b0),
                      p.kind == StretchKind::Comment ? m_commentStyle : m_keywordStyle);
    }
    // The piece that holds the line break tells whether the line ends in a comment.
    std::size_t r = next;
    while (r < pieces.size() && pieces[r].end <= textEnd)
        ++r;
    *endsInComment =
        r < pieces.size() && pieces[r].start <= textEnd && pieces[r].kind == StretchKind::Comment;
    next = r;
}

void DocumentColourer::collectSpellings(int line, const std::vector<Piece> &pieces,
                                        std::size_t from, Spellings &spellings,
                                        qsizetype caretPosition) const
{
    const qsizetype b0 = m_text.lineStart(line);
    const qsizetype textEnd = m_text.lineEnd(line);
    while (from < pieces.size() && pieces[from].end <= b0)
        ++from;
    const QByteArrayView bytes = m_text.bytes(b0, textEnd - b0);
    for (std::size_t i = from; i < pieces.size() && pieces[i].start < textEnd; ++i) {
        const Piece &p = pieces[i];
        if (p.spelling.isEmpty() || p.start < b0 || p.end > textEnd ||
            p.spelling.size() != p.end - p.start)
            continue;
        if (caretPosition >= p.start && caretPosition <= p.end)
            continue; // the word being typed keeps its letters until it is finished
        if (QLatin1StringView(bytes.sliced(p.start - b0, p.end - p.start)) != p.spelling)
            spellings.emplace_back(p.start, p.spelling);
    }
}

void DocumentColourer::writeSpellings(const Spellings &spellings)
{
    // A respelling would replace the steps that could be redone.
    if (spellings.empty() || m_text.canRedo())
        return;
    m_applying = true;
    // Without a history the respelling is not recorded (a text just loaded); with
    // one it is a step of its own, marked, that goes with the edit before it.
    const bool record = m_text.canUndo();
    if (!record)
        m_text.setUndoCollection(false);
    m_text.beginUndoStep();
    if (record)
        m_text.markRespellingStep();
    for (const auto &[position, spelling] : spellings)
        m_text.replace(position, spelling.toLatin1());
    m_text.endUndoStep();
    if (!record)
        m_text.setUndoCollection(true);
    m_applying = false;
}

// ---- Undo and redo ----------------------------------------------------------------------

void DocumentColourer::undo()
{
    m_undoing = true;
    // A respelling on top goes with the edit below it.
    while (m_text.canUndo() && m_text.undo()) {
    }
    m_undoing = false;
}

void DocumentColourer::redo()
{
    m_undoing = true;
    if (m_text.canRedo()) {
        m_text.redo();
        // The respellings that followed the edit come back with it; a step that is
        // not one is taken back again (the history cannot be read ahead).
        while (m_text.canRedo()) {
            if (!m_text.redo()) {
                m_text.undo();
                break;
            }
        }
    }
    m_undoing = false;
}

} // namespace tessaro
