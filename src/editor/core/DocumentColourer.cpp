#include "editor/core/DocumentColourer.h"

#include "editor/core/EditorPositions.h"

#include <QCursor>
#include <QGuiApplication>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTimer>

#include <algorithm>

namespace tessaro {

namespace {

// A slice of a full run stops once it has worked this long, leaving time for the
// events waiting behind it.
constexpr qint64 SliceBudgetMs = 8;
// The snapshot is copied into the hidden document in pieces of this many characters.
constexpr qsizetype FillChunk = 128 * 1024;
// Scan results are turned into document positions this many at a time.
constexpr std::size_t ConvertChunk = 16 * 1024;
// The typing path colours at most this long at once; longer cascades go on later.
constexpr qint64 TypingBudgetMs = 8;

} // namespace

struct DocumentColourer::Run
{
    enum class Phase { Fill, Scan, Convert, Apply };
    Phase phase = Phase::Fill;
    bool html = false;
    bool silent = false;
    bool cancelRequested = false;
    quint64 generation = 0;
    QString raw;      // the document's text as taken, one character per line break
    QString snapshot; // the same text with CR LF line breaks, as the scanners read it
    CrLfLines lines;
    qsizetype filled = 0;
    std::unique_ptr<ColourScan> scan;
    std::vector<ColourStretch> stretches;
    std::size_t converted = 0;
    qsizetype lineHint = 0;
    bool respell = true;
    std::vector<Piece> pieces;
    std::size_t nextPiece = 0;
    int nextBlock = 0;
};

DocumentColourer::DocumentColourer(QTextDocument *document, QTextDocument *snapshot,
                                   QTimer *progressTimer, QObject *parent)
    : QObject(parent), m_doc(document), m_snapshot(snapshot), m_progressTimer(progressTimer),
      m_respellings(document)
{
    setColours({QColor(0, 128, 0), QColor(0, 0, 127), QColor(0, 0, 0)});
    m_snapshot->setUndoRedoEnabled(false);
    // Each slice of a run is started from the event loop by this timer.
    m_sliceTimer.setSingleShot(true);
    m_sliceTimer.setInterval(0);
    connect(&m_sliceTimer, &QTimer::timeout, this, &DocumentColourer::step);
    connect(m_doc, &QTextDocument::undoCommandAdded, this,
            [this] { m_respellings.commandAdded(); });
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
    m_colours = colours;
    m_commentFormat = QTextCharFormat();
    m_commentFormat.setForeground(colours.comment);
    m_keywordFormat = QTextCharFormat();
    m_keywordFormat.setForeground(colours.keyword);
}

bool DocumentColourer::lineStartsInComment(const QTextBlock &block) const
{
    const QTextBlock previous = block.previous();
    return cLike() && previous.isValid() && ColouredLines::endsInComment(previous);
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

bool DocumentColourer::cancelPending() const { return m_run && m_run->cancelRequested; }

int DocumentColourer::percentComplete() const
{
    if (!m_run)
        return 0;
    switch (m_run->phase) {
    case Run::Phase::Fill: return 0;
    case Run::Phase::Scan: return m_run->scan ? m_run->scan->percentComplete() : 0;
    case Run::Phase::Convert:
    case Run::Phase::Apply: return 100;
    }
    return 0;
}

void DocumentColourer::beginSnapshot()
{
    Run &run = *m_run;
    run.generation = m_generation;
    // The copy is taken at once; turning it into CR LF text goes on in slices.
    run.raw = m_doc->toRawText();
    run.snapshot.clear();
    run.snapshot.reserve(run.raw.size() + run.raw.size() / 16);
    run.lines = CrLfLines();
    run.phase = Run::Phase::Fill;
    run.filled = 0;
    run.scan.reset();
    run.stretches.clear();
    run.converted = 0;
    run.lineHint = 0;
    run.pieces.clear();
    run.nextPiece = 0;
    run.nextBlock = 0;
}

QTextDocument *DocumentColourer::snapshotDocument()
{
    if (m_snapshotStale) {
        m_snapshotStale = false;
        m_snapshot->clear();
        QTextCursor cursor(m_snapshot);
        cursor.beginEditBlock();
        cursor.insertText(m_snapshotText);
        cursor.endEditBlock();
        m_snapshotText.clear();
    }
    return m_snapshot;
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
            const auto left = std::chrono::milliseconds(
                std::max<qint64>(1, SliceBudgetMs - clock.elapsed()));
            if (run.scan->runSlice(left)) {
                run.stretches = run.scan->takeStretches();
                run.scan.reset();
                run.pieces.reserve(run.stretches.size());
                run.phase = Run::Phase::Convert;
            }
            break;
        }
        case Run::Phase::Convert: convertSlice(); break;
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
    const qsizetype end = std::min(run.filled + FillChunk, run.raw.size());
    const QChar *p = run.raw.constData();
    qsizetype runStart = run.filled;
    for (qsizetype i = run.filled; i < end; ++i) {
        if (p[i] == QChar::ParagraphSeparator) {
            run.snapshot.append(p + runStart, i - runStart);
            run.snapshot.append(QLatin1String("\r\n"));
            run.lines.addLineStart(run.snapshot.size());
            runStart = i + 1;
        }
    }
    run.snapshot.append(p + runStart, end - runStart);
    run.lines.setLength(run.snapshot.size());
    run.filled = end;
    if (run.filled >= run.raw.size()) {
        // rtfTemp is filled from this copy when it is first read: filling it costs as
        // much as loading the text, and nothing needs it for colouring.
        m_snapshotText = run.raw;
        m_snapshotStale = true;
        run.raw.clear();
        ScanRequest request = m_request;
        request.text = run.snapshot;
        request.html = run.html;
        run.scan = std::make_unique<ColourScan>(std::move(request));
        run.phase = Run::Phase::Scan;
    }
}

void DocumentColourer::convertSlice()
{
    Run &run = *m_run;
    const std::size_t end = std::min(run.converted + ConvertChunk, run.stretches.size());
    for (std::size_t i = run.converted; i < end; ++i) {
        ColourStretch &s = run.stretches[i];
        const int from = int(run.lines.toDocument(s.start, run.lineHint));
        const int to = int(run.lines.toDocument(s.start + s.length, run.lineHint));
        if (to <= from)
            continue;
        // Stretches come in scan order; a word that ran around a comment or a string
        // comes after it and is moved back to its place.
        auto at = run.pieces.end();
        while (at != run.pieces.begin() && (at - 1)->start > from)
            --at;
        run.pieces.insert(at, {from, to, s.kind, std::move(s.spelling)});
    }
    run.converted = end;
    if (run.converted >= run.stretches.size()) {
        run.stretches.clear();
        run.stretches.shrink_to_fit();
        run.phase = Run::Phase::Apply;
    }
}

bool DocumentColourer::applySlice(const QElapsedTimer &clock)
{
    Run &run = *m_run;
    ColouredLines lines(m_doc);
    Spellings spellings;
    QTextBlock block = m_doc->findBlockByNumber(run.nextBlock);
    int count = 0;
    while (block.isValid()) {
        if (run.respell)
            collectSpellings(block, run.pieces, run.nextPiece, spellings, -1);
        bool inComment = false;
        const ColouredLines::Ranges ranges = lineRanges(block, run.pieces, run.nextPiece, &inComment);
        lines.setColours(block, ranges);
        ColouredLines::setEndsInComment(block, inComment);
        block = block.next();
        if ((++count & 15) == 0 && clock.elapsed() >= SliceBudgetMs)
            break;
    }
    run.nextBlock = block.isValid() ? block.blockNumber() : m_doc->blockCount();
    lines.finish();
    writeSpellings(spellings);
    return !block.isValid();
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

void DocumentColourer::noteChange(int from, int removed, int added)
{
    ++m_generation;
    QTextBlock block = m_doc->findBlock(from);
    if (!block.isValid())
        return;
    if (removed != added && ColouredLines::hasColours(block)) {
        // Until the line is coloured again (at once, in a mode that colours), its
        // colours stay with the characters they belong to. A change that keeps the
        // length (a new format, a word respelled) leaves them where they are.
        ColouredLines lines(m_doc);
        lines.setColours(block, ColouredLines::shifted(ColouredLines::colours(block),
                                                       from - block.position(), removed, added));
    }
    const int first = block.blockNumber();
    QTextBlock lastBlock = m_doc->findBlock(from + added);
    const int last = lastBlock.isValid() ? lastBlock.blockNumber() : m_doc->blockCount() - 1;
    m_dirtyFirst = m_dirtyFirst < 0 ? first : std::min(m_dirtyFirst, first);
    m_dirtyLast = std::max(m_dirtyLast, std::max(first, last));
    m_dirtyFromUndo = m_dirtyFromUndo || m_undoing;
}

void DocumentColourer::flush(int caretPosition)
{
    if (m_dirtyFirst < 0)
        return;
    const int first = m_dirtyFirst;
    const int last = std::min(m_dirtyLast, m_doc->blockCount() - 1);
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

void DocumentColourer::colourLines(int firstBlock, int lastBlock, int caretPosition, bool respell)
{
    QElapsedTimer clock;
    clock.start();
    ColouredLines lines(m_doc);
    Spellings spellings;
    QTextBlock block = m_doc->findBlockByNumber(std::max(0, firstBlock));
    bool inComment = block.isValid() && lineStartsInComment(block);
    ScanRequest request = m_request;
    request.html = m_request.mode == mode::Html;
    request.ignoreVBHeader = false;
    std::vector<Piece> pieces;
    while (block.isValid()) {
        const QString prefix = inComment ? QStringLiteral("/*") : QString();
        const QString text = block.text();
        // Every line but the last ends in a line break, as in a full run.
        request.text = prefix + text;
        if (block.next().isValid())
            request.text += QStringLiteral("\r\n");
        const std::vector<ColourStretch> stretches = scanText(request);
        const int b0 = block.position();
        const int sepEnd = b0 + int(text.size()) + 1;
        pieces.clear();
        for (const ColourStretch &s : stretches) {
            const int from = std::max(b0, b0 + int(s.start - prefix.size()));
            const int to = std::min(sepEnd, b0 + int(s.start + s.length - prefix.size()));
            if (to > from)
                pieces.push_back({from, to, s.kind, s.spelling});
        }
        if (respell)
            collectSpellings(block, pieces, 0, spellings, caretPosition);
        std::size_t next = 0;
        bool endState = false;
        lines.setColours(block, lineRanges(block, pieces, next, &endState));
        // Qt forgets a line's state when Undo or Redo splits or joins it: an unknown
        // state never ends the cascade.
        const bool oldKnown = ColouredLines::stateKnown(block);
        const bool oldState = ColouredLines::endsInComment(block);
        ColouredLines::setEndsInComment(block, endState);
        const int number = block.blockNumber();
        block = block.next();
        inComment = endState && cLike();
        if (number >= lastBlock && oldKnown && endState == oldState)
            break;
        if (number >= lastBlock && block.isValid() && clock.elapsed() >= TypingBudgetMs) {
            // A long cascade (a comment opened above many lines) goes on from the
            // event loop, so the keystroke is shown at once.
            const int from = block.blockNumber();
            m_dirtyFirst = m_dirtyFirst < 0 ? from : std::min(m_dirtyFirst, from);
            m_dirtyLast = std::max(m_dirtyLast, from);
            m_dirtyFromUndo = m_dirtyFromUndo || !respell;
            QTimer::singleShot(0, this, [this] { flush(); });
            break;
        }
    }
    lines.finish();
    writeSpellings(spellings);
}

// ---- Colours of a line --------------------------------------------------------------

ColouredLines::Ranges DocumentColourer::lineRanges(const QTextBlock &block,
                                                   const std::vector<Piece> &pieces,
                                                   std::size_t &next, bool *endsInComment) const
{
    const int b0 = block.position();
    const int textEnd = b0 + block.length() - 1; // the line break's position
    while (next < pieces.size() && pieces[next].end <= b0)
        ++next;
    ColouredLines::Ranges ranges;
    std::size_t r = next;
    for (; r < pieces.size() && pieces[r].start < textEnd; ++r) {
        const Piece &p = pieces[r];
        // Words of the black list keep the text colour, which the line shows anyway.
        if (p.kind == StretchKind::Text)
            continue;
        const int from = std::max(p.start, b0) - b0;
        const int to = std::min(p.end, textEnd) - b0;
        if (to <= from)
            continue;
        const QTextCharFormat &format =
            p.kind == StretchKind::Comment ? m_commentFormat : m_keywordFormat;
        if (!ranges.isEmpty() && ranges.last().start + ranges.last().length == from &&
            ranges.last().format == format) {
            ranges.last().length += to - from;
            continue;
        }
        QTextLayout::FormatRange range;
        range.start = from;
        range.length = to - from;
        range.format = format;
        ranges.append(range);
    }
    // The piece that holds the line break tells whether the line ends in a comment.
    r = next;
    while (r < pieces.size() && pieces[r].end <= textEnd)
        ++r;
    *endsInComment = r < pieces.size() && pieces[r].start <= textEnd &&
                     pieces[r].kind == StretchKind::Comment;
    next = r;
    return ranges;
}

void DocumentColourer::collectSpellings(const QTextBlock &block, const std::vector<Piece> &pieces,
                                        std::size_t from, Spellings &spellings,
                                        int caretPosition) const
{
    const int b0 = block.position();
    const int textEnd = b0 + block.length() - 1;
    while (from < pieces.size() && pieces[from].end <= b0)
        ++from;
    QString text;
    for (std::size_t i = from; i < pieces.size() && pieces[i].start < textEnd; ++i) {
        const Piece &p = pieces[i];
        if (p.spelling.isEmpty() || p.start < b0 || p.end > textEnd ||
            p.spelling.size() != p.end - p.start)
            continue;
        if (caretPosition >= p.start && caretPosition <= p.end)
            continue; // the word being typed keeps its letters until it is finished
        if (text.isNull())
            text = block.text();
        if (QStringView(text).mid(p.start - b0, p.end - p.start) != p.spelling)
            spellings.emplace_back(p.start, p.spelling);
    }
}

void DocumentColourer::writeSpellings(const Spellings &spellings)
{
    // A respelling would replace the steps that could be redone.
    if (spellings.empty() || m_doc->isRedoAvailable())
        return;
    m_applying = true;
    // Without a history the respelling is not recorded (a text just loaded); with
    // one it joins the edit before it.
    const bool enabled = m_doc->isUndoRedoEnabled();
    const bool record = enabled && m_doc->isUndoAvailable();
    if (enabled && !record)
        m_doc->setUndoRedoEnabled(false);
    const int stepsBefore = m_doc->availableUndoSteps();
    QTextCursor cursor(m_doc);
    cursor.beginEditBlock();
    for (const auto &[position, spelling] : spellings) {
        QTextCursor at(m_doc);
        at.setPosition(position + 1);
        const QTextCharFormat format = at.charFormat();
        cursor.setPosition(position);
        cursor.setPosition(position + int(spelling.size()), QTextCursor::KeepAnchor);
        cursor.insertText(spelling, format);
    }
    cursor.endEditBlock();
    if (enabled && !record) {
        m_doc->setUndoRedoEnabled(true);
        m_respellings.forget();
    }
    if (record)
        m_respellings.recordSince(stepsBefore);
    m_applying = false;
}

// ---- Undo and redo ----------------------------------------------------------------------

void DocumentColourer::undo()
{
    m_undoing = true;
    m_respellings.undo();
    m_undoing = false;
}

void DocumentColourer::redo()
{
    m_undoing = true;
    m_respellings.redo();
    m_undoing = false;
}

} // namespace tessaro
