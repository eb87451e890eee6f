#include "editor/core/DocumentColourer.h"

#include "editor/core/EditorPositions.h"

#include <QCursor>
#include <QGuiApplication>
#include <QHash>
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
    std::vector<Piece> pieces;
    std::vector<Change> changes; // found and not yet written
    std::size_t written = 0;
    std::vector<std::pair<int, QString>> spellings;
    std::size_t nextPiece = 0;
    int nextBlock = 0;
};

DocumentColourer::DocumentColourer(QTextDocument *document, QTextDocument *snapshot,
                                   QTimer *progressTimer, QObject *parent)
    : QObject(parent), m_doc(document), m_snapshot(snapshot), m_progressTimer(progressTimer)
{
    m_colours = {QColor(0, 128, 0), QColor(0, 0, 127), QColor(0, 0, 0)};
    m_snapshot->setUndoRedoEnabled(false);
    // Each slice of a run is started from the event loop by this timer.
    m_sliceTimer.setSingleShot(true);
    m_sliceTimer.setInterval(0);
    connect(&m_sliceTimer, &QTimer::timeout, this, &DocumentColourer::step);
    // A step added to the undo history replaces every step that could be redone.
    connect(m_doc, &QTextDocument::undoCommandAdded, this, [this] {
        m_ownSteps.erase(m_ownSteps.upper_bound(m_knownTop), m_ownSteps.end());
        m_knownTop = m_doc->availableUndoSteps();
    });
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

// ---- Line state ------------------------------------------------------------------

int DocumentColourer::lineEndBits(const QTextBlock &block)
{
    const int state = block.userState();
    return state < 0 ? 0 : (state & 3);
}

bool DocumentColourer::endsInComment(const QTextBlock &block)
{
    const int state = block.userState();
    return state >= 0 && (state & CommentOpenBit) != 0;
}

void DocumentColourer::setLineState(QTextBlock &block, int lineEnd, bool inComment)
{
    const int state = (lineEnd & 3) | (inComment ? CommentOpenBit : 0);
    if (state != std::max(0, block.userState()))
        block.setUserState(state);
}

bool DocumentColourer::lineStartsInComment(const QTextBlock &block) const
{
    const QTextBlock previous = block.previous();
    return cLike() && previous.isValid() && endsInComment(previous);
}

// ---- Full run ---------------------------------------------------------------------

bool DocumentColourer::start(bool html, bool silent)
{
    if (!modeColours(m_request.mode, html))
        return false;
    if (m_run) {
        // A new request while a run is under way: the run starts over with the new
        // choice; its progress signals stay one start and one completion. A run of
        // the typing path that is now asked for openly starts reporting.
        m_run->html = html;
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
    run.changes.clear();
    run.written = 0;
    run.spellings.clear();
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
    const qint64 budgetNs = SliceBudgetMs * 1000000;
    m_formatColours.clear();
    m_formatPlain.clear();
    // Compare lines until enough changes wait or half the slice is gone...
    QTextBlock block = m_doc->findBlockByNumber(run.nextBlock);
    int lines = 0;
    while (block.isValid()) {
        collectSpellings(block, run.pieces, run.nextPiece, run.spellings, -1);
        const bool inComment = diffLine(block, run.pieces, run.nextPiece, run.changes);
        setLineState(block, lineEndBits(block), inComment);
        block = block.next();
        if ((++lines & 7) == 0 &&
            (clock.nsecsElapsed() >= budgetNs / 2 ||
             run.changes.size() - run.written >= std::size_t(256)))
            break;
    }
    run.nextBlock = block.isValid() ? block.blockNumber() : m_doc->blockCount();
    // ...then write them while the slice lasts; what is left waits for the next one.
    run.written += writeChanges(run.changes, run.written, run.spellings, &clock, budgetNs);
    run.spellings.clear();
    if (run.written >= run.changes.size()) {
        run.changes.clear();
        run.written = 0;
    }
    return !block.isValid() && run.changes.empty();
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

void DocumentColourer::noteChange(int from, int removed, int added)
{
    Q_UNUSED(removed);
    ++m_generation;
    const int first = m_doc->findBlock(from).blockNumber();
    QTextBlock lastBlock = m_doc->findBlock(from + added);
    const int last = lastBlock.isValid() ? lastBlock.blockNumber() : m_doc->blockCount() - 1;
    if (first < 0)
        return;
    m_dirtyFirst = m_dirtyFirst < 0 ? first : std::min(m_dirtyFirst, first);
    m_dirtyLast = std::max(m_dirtyLast, std::max(first, last));
}

void DocumentColourer::flush(int caretPosition)
{
    if (m_dirtyFirst < 0)
        return;
    const int first = m_dirtyFirst;
    const int last = std::min(m_dirtyLast, m_doc->blockCount() - 1);
    m_dirtyFirst = m_dirtyLast = -1;
    if (!modeColours(m_request.mode, m_request.mode == mode::Html) || last < first)
        return;
    if (last - first + 1 > LargeChange) {
        Q_EMIT largeChange();
        return;
    }
    colourLines(first, last, caretPosition);
}

void DocumentColourer::colourLines(int firstBlock, int lastBlock, int caretPosition)
{
    if (!modeColours(m_request.mode, m_request.mode == mode::Html))
        return;
    m_formatColours.clear();
    m_formatPlain.clear();
    QElapsedTimer clock;
    clock.start();
    std::vector<Change> changes;
    std::vector<std::pair<int, QString>> spellings;
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
        std::size_t next = 0;
        collectSpellings(block, pieces, next, spellings, caretPosition);
        next = 0;
        const bool endState = diffLine(block, pieces, next, changes);
        const bool oldState = endsInComment(block);
        setLineState(block, lineEndBits(block), endState);
        const int number = block.blockNumber();
        block = block.next();
        inComment = endState && cLike();
        if (number >= lastBlock && endState == oldState)
            break;
        if (number >= lastBlock && block.isValid() && clock.elapsed() >= TypingBudgetMs) {
            // A long cascade (a comment opened above many lines) goes on from the
            // event loop, so the keystroke is shown at once.
            const int from = block.blockNumber();
            m_dirtyFirst = m_dirtyFirst < 0 ? from : std::min(m_dirtyFirst, from);
            m_dirtyLast = std::max(m_dirtyLast, from);
            QTimer::singleShot(0, this, [this] { flush(); });
            break;
        }
    }
    writeChanges(changes, 0, spellings);
}

// ---- Comparing and writing colours ---------------------------------------------------

const QColor &DocumentColourer::colourOf(StretchKind kind) const
{
    switch (kind) {
    case StretchKind::Comment: return m_colours.comment;
    case StretchKind::Keyword: return m_colours.keyword;
    case StretchKind::Text: break;
    }
    return m_colours.text;
}

bool DocumentColourer::sameColour(const QTextFragment &fragment, StretchKind kind,
                                  bool *plain) const
{
    const int index = fragment.charFormatIndex();
    auto it = m_formatColours.constFind(index);
    if (it == m_formatColours.constEnd()) {
        const QTextCharFormat format = fragment.charFormat();
        const bool coloured = format.hasProperty(QTextFormat::ForegroundBrush);
        const QRgb colour = coloured ? format.foreground().color().rgba()
                                     : QRgb(0); // no colour of its own
        it = m_formatColours.insert(index, colour);
        m_formatPlain.insert(index, format.properties().size() == (coloured ? 1 : 0));
    }
    *plain = m_formatPlain.value(index);
    // Text without a colour of its own shows in the text colour.
    if (it.value() == 0)
        return kind == StretchKind::Text;
    return it.value() == colourOf(kind).rgba();
}

void DocumentColourer::collectSpellings(const QTextBlock &block, const std::vector<Piece> &pieces,
                                        std::size_t from,
                                        std::vector<std::pair<int, QString>> &spellings,
                                        int caretPosition) const
{
    const int b0 = block.position();
    const int textEnd = b0 + block.length() - 1;
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

bool DocumentColourer::diffLine(const QTextBlock &block, const std::vector<Piece> &pieces,
                                std::size_t &next, std::vector<Change> &changes) const
{
    const int b0 = block.position();
    const int separator = b0 + block.length() - 1;
    while (next < pieces.size() && pieces[next].end <= b0)
        ++next;
    std::size_t r = next;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        if (!fragment.isValid())
            continue;
        const int f1 = fragment.position() + fragment.length();
        int x = fragment.position();
        while (x < f1) {
            while (r < pieces.size() && pieces[r].end <= x)
                ++r;
            StretchKind want = StretchKind::Text;
            int segmentEnd = f1;
            if (r < pieces.size() && pieces[r].start <= x) {
                want = pieces[r].kind;
                segmentEnd = std::min(f1, pieces[r].end);
            } else if (r < pieces.size()) {
                segmentEnd = std::min(f1, pieces[r].start);
            }
            bool plain = false;
            if (!sameColour(fragment, want, &plain)) {
                // A change that goes on from the end of the line before takes the line
                // break with it: a comment over many lines is one change.
                if (!changes.empty() && changes.back().kind == want &&
                    (changes.back().end == x || (x == b0 && changes.back().end + 1 == x))) {
                    changes.back().end = segmentEnd;
                    changes.back().plain = changes.back().plain && plain;
                } else {
                    changes.push_back({x, segmentEnd, want, plain});
                }
            }
            x = segmentEnd;
        }
    }
    if (block.length() == 1 && !changes.empty() && changes.back().end + 1 == b0) {
        // An empty line inside a change keeps the change in one piece.
        while (r < pieces.size() && pieces[r].end <= b0)
            ++r;
        const StretchKind want = (r < pieces.size() && pieces[r].start <= b0) ? pieces[r].kind
                                                                               : StretchKind::Text;
        if (want == changes.back().kind)
            changes.back().end = b0;
    }
    while (r < pieces.size() && pieces[r].end <= separator)
        ++r;
    next = r;
    return r < pieces.size() && pieces[r].start <= separator &&
           pieces[r].kind == StretchKind::Comment;
}

std::size_t DocumentColourer::writeChanges(const std::vector<Change> &changes,
                                           std::size_t from,
                                           const std::vector<std::pair<int, QString>> &spellings,
                                           const QElapsedTimer *clock, qint64 budgetNs)
{
    if (from >= changes.size() && spellings.empty())
        return 0;
    m_applying = true;
    // Without an undo history the colours are not recorded. With one they become a
    // step of their own that undo and redo take together with the edit before it.
    const bool wasEnabled = m_doc->isUndoRedoEnabled();
    const bool record = wasEnabled && m_doc->isUndoAvailable();
    const int stepsBefore = m_doc->availableUndoSteps();
    if (!record && wasEnabled) {
        m_doc->setUndoRedoEnabled(false);
        forgetUndoSteps();
    }
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
    QTextCharFormat format;
    std::size_t i = from;
    while (i < changes.size()) {
        const Change &change = changes[i++];
        format.setForeground(colourOf(change.kind));
        cursor.setPosition(change.start);
        cursor.setPosition(change.end, QTextCursor::KeepAnchor);
        // Text that holds nothing but a colour takes the new format whole, which is
        // much cheaper than merging it into every piece.
        if (change.plain)
            cursor.setCharFormat(format);
        else
            cursor.mergeCharFormat(format);
        if (clock && (i & 15) == 0 && clock->nsecsElapsed() >= budgetNs)
            break;
    }
    cursor.endEditBlock();
    if (!record && wasEnabled)
        m_doc->setUndoRedoEnabled(true);
    // The history counts commands: every command of this step is the colourer's.
    for (int step = stepsBefore + 1; record && step <= m_doc->availableUndoSteps(); ++step)
        m_ownSteps.insert(step);
    m_knownTop = m_doc->availableUndoSteps();
    m_applying = false;
    return i - from;
}

// ---- Undo and redo ----------------------------------------------------------------------

void DocumentColourer::forgetUndoSteps()
{
    m_ownSteps.clear();
    m_knownTop = m_doc->availableUndoSteps();
}

bool DocumentColourer::ownStepOnTop() const
{
    const int top = m_doc->availableUndoSteps();
    return top > 0 && m_ownSteps.count(top);
}

void DocumentColourer::undo()
{
    // The colours of an edit are undone with it: first the colouring steps on top,
    // then the edit, then the colouring steps of the edit before.
    while (ownStepOnTop())
        m_doc->undo();
    m_doc->undo();
    while (ownStepOnTop())
        m_doc->undo();
    m_knownTop = m_doc->availableUndoSteps();
}

void DocumentColourer::redo()
{
    m_doc->redo();
    while (m_doc->availableRedoSteps() > 0 && m_ownSteps.count(m_doc->availableUndoSteps() + 1))
        m_doc->redo();
    m_knownTop = m_doc->availableUndoSteps();
}

} // namespace tessaro
