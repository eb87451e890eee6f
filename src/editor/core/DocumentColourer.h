#pragma once

#include "editor/core/ColourScan.h"

#include <QColor>
#include <QHash>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <set>
#include <vector>

class QTextBlock;
class QTextFragment;
class QTextDocument;

namespace tessaro {

class CrLfLines;

// Colours a QTextDocument with the scanners, in two ways:
//
// - A full run (start): the text is taken as a snapshot (which the hidden document,
//   rtfTemp, shows when it is read), scanned in time slices and the result merged
//   into the visible document in slices, with the event loop served in between. A
//   text that changes during the run makes the run start over from a new snapshot.
// - The typing path (noteChange + flush): the changed lines are scanned again at
//   once, one line at a time. A line that starts inside a block comment is scanned
//   behind an opening "/*", and when a line's end moves into or out of a block
//   comment the following lines are coloured too, so typing a comment delimiter
//   re-colours the whole comment it opens or closes.
//
// Only the colours that differ from the document's are written, as foreground
// colours (a background set by the user stays). Text without a colour of its own
// counts as text colour: the view shows it in its text colour, which the editor
// keeps equal to the text colour. Spelling replacements write the
// list's spelling over a word of the same letters.
class DocumentColourer : public QObject
{
    Q_OBJECT
public:
    DocumentColourer(QTextDocument *document, QTextDocument *snapshot, QTimer *progressTimer,
                     QObject *parent = nullptr);
    ~DocumentColourer() override;

    struct Colours
    {
        QColor comment;
        QColor keyword;
        QColor text;
    };
    void setColours(const Colours &colours) { m_colours = colours; }
    // What the scans get: mode, word lists and the form-header switch (the text is
    // filled in per scan).
    void setRequest(const ScanRequest &request) { m_request = request; }
    const ScanRequest &request() const { return m_request; }

    // The hidden document holding the text of the last run's snapshot.
    QTextDocument *snapshotDocument();

    // Whether a run in this mode colours anything.
    static bool modeColours(int mode, bool html);

    // Starts a full run; an active run is dropped first. Silent runs raise no
    // progress signals and leave the progress timer alone. Returns false when the
    // mode colours nothing (no run, no signals).
    bool start(bool html, bool silent);
    void cancel();
    // A cancel was asked for and the run has not stopped yet.
    bool cancelPending() const;
    bool isRunning() const { return m_run != nullptr; }
    int percentComplete() const;
    // How many times the current or last run started over because the text changed.
    int restarts() const { return m_restarts; }

    // True while the colourer itself is changing the document; its own changes are
    // not edits of the text.
    bool isApplying() const { return m_applying; }
    // Forgets the changes noted so far (a new text that a full run will colour).
    void forgetChanges() { m_dirtyFirst = m_dirtyLast = -1; }
    // An edit of the text (document positions, as contentsChange gives them).
    void noteChange(int from, int removed, int added);
    // Colours the lines changed since the last flush (the typing path). The caret
    // position keeps the word being typed from being re-spelled under the caret.
    void flush(int caretPosition = -1);
    // Colours the given lines (block numbers, inclusive) as the typing path does.
    void colourLines(int firstBlock, int lastBlock, int caretPosition = -1);

    // Undo and redo of the document that take the colouring steps along with the
    // edits they belong to, so colours never make an undo step of their own.
    void undo();
    void redo();
    // Forgets the colouring steps (the history was emptied).
    void forgetUndoSteps();

    // The lines changed at once above which the typing path starts a silent full run
    // instead of colouring line by line.
    static constexpr int LargeChange = 2000;

    // Line state kept in a block's user state: the low two bits are the line's break
    // (LineEnd), bit 2 tells that the line ends inside a block comment.
    static constexpr int CommentOpenBit = 4;
    static int lineEndBits(const QTextBlock &block);
    static bool endsInComment(const QTextBlock &block);
    static void setLineState(QTextBlock &block, int lineEnd, bool inComment);

Q_SIGNALS:
    void progressStart();
    void progressChange(int percentComplete);
    void progressComplete();
    // The typing path wants a full run (a change too large to colour line by line).
    void largeChange();

private:
    struct Run;
    struct Piece
    {
        int start;
        int end;
        StretchKind kind;
        QString spelling;
    };
    struct Change
    {
        int start;
        int end;
        StretchKind kind;
        bool plain; // the text has no format beyond a colour: the colour may replace it
    };

    void step();
    void finish();
    void beginSnapshot();
    void fillSlice();
    void convertSlice();
    bool applySlice(const QElapsedTimer &clock);
    // Compares the wanted colours of one line with the document's and records what
    // differs; returns whether the line's end lies inside a block comment.
    bool diffLine(const QTextBlock &block, const std::vector<Piece> &pieces, std::size_t &next,
                  std::vector<Change> &changes) const;
    // Writes the changes from `from` on (all of them, or as many as fit the time
    // budget when a clock is given) and the spellings; returns how many were written.
    std::size_t writeChanges(const std::vector<Change> &changes, std::size_t from,
                             const std::vector<std::pair<int, QString>> &spellings,
                             const QElapsedTimer *clock = nullptr, qint64 budgetNs = 0);
    bool sameColour(const QTextFragment &fragment, StretchKind kind, bool *plain) const;
    // Records the list spellings that differ from the line's letters.
    void collectSpellings(const QTextBlock &block, const std::vector<Piece> &pieces,
                          std::size_t from, std::vector<std::pair<int, QString>> &spellings,
                          int caretPosition) const;
    const QColor &colourOf(StretchKind kind) const;
    bool lineStartsInComment(const QTextBlock &block) const;
    bool ownStepOnTop() const;
    bool cLike() const;

    QTextDocument *m_doc;
    QTextDocument *m_snapshot;
    QTimer *m_progressTimer;
    Colours m_colours;
    ScanRequest m_request;
    std::unique_ptr<Run> m_run;
    QTimer m_sliceTimer;
    QString m_snapshotText; // the last snapshot, until rtfTemp is filled with it
    bool m_snapshotStale = false;
    bool m_applying = false;
    int m_restarts = 0;
    quint64 m_generation = 0;
    int m_dirtyFirst = -1;
    int m_dirtyLast = -1;
    // Foreground of each character format of the document (0: none of its own).
    mutable QHash<int, QRgb> m_formatColours;
    mutable QHash<int, bool> m_formatPlain; // formats that hold a colour at most
    // Places in the undo history (1 = the oldest step) that hold colours only.
    std::set<int> m_ownSteps;
    int m_knownTop = 0; // the history's size after the last change seen here
};

} // namespace tessaro
