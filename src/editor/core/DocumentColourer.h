#pragma once

#include "editor/core/ColourScan.h"
#include "editor/core/ColourTable.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

namespace tessaro {

class StyleTable;
class StyledText;

// Colours the editor box's text (StyledText) with the scanners, in two ways:
//
// - A full run (start): the text is taken as a snapshot (the hidden second text of
//   the control, which TempCharacterCount and SetTempSelection work on), scanned in
//   time slices and the result laid onto the box as styles in slices, with the event
//   loop served in between. A text that changes during the run makes the run start
//   over from a new snapshot.
// - The typing path (noteChange + flush): the changed lines are scanned again at
//   once, one line at a time. A line that starts inside a block comment is scanned
//   behind an opening "/*", and when a line's end moves into or out of a block
//   comment the following lines are coloured too, so typing a comment delimiter
//   re-colours the whole comment it opens or closes.
//
// Colours are styles: they never become an edit of the text, an undo step or a change
// of the redo steps. Only the respellings (a word given its list's spelling) change
// the text; they join the edit before them (a step marked as a respelling is undone
// and redone with the step before it), are not recorded when there
// is no history, and are left out after Undo and Redo and whenever steps could be
// redone, so the redo steps stay.
class DocumentColourer : public QObject
{
    Q_OBJECT
public:
    DocumentColourer(StyledText &text, StyleTable &styles, QTimer *progressTimer,
                     QObject *parent = nullptr);
    ~DocumentColourer() override;

    // The colours comments and keywords get (colour values, system colours resolved).
    struct Colours
    {
        ColourValue comment;
        ColourValue keyword;
    };
    void setColours(const Colours &colours);
    // What the scans get: mode, word lists and the form-header switch (the text is
    // filled in per scan).
    void setRequest(const ScanRequest &request) { m_request = request; }
    const ScanRequest &request() const { return m_request; }

    // The text of the last run's snapshot.
    const QByteArray &snapshot() const { return m_snapshot; }

    // Whether a run in this mode colours anything.
    static bool modeColours(int mode, bool html);

    // Starts a full run; an active run is dropped first. Silent runs raise no
    // progress signals and leave the progress timer alone; a run without respelling
    // only colours. Returns false when the mode colours nothing (no run, no signals).
    bool start(bool html, bool silent, bool respell = true);
    void cancel();
    // A cancel was asked for and the run has not stopped yet.
    bool cancelPending() const;
    bool isRunning() const { return m_run != nullptr; }
    // Changed lines wait for the typing path (a long cascade goes on from the event
    // loop).
    bool hasWaitingLines() const;
    // The share of the run done so far (0-99 while it runs), all its phases counted.
    int percentComplete() const;
    // How many times the current or last run started over because the text changed.
    int restarts() const { return m_restarts; }

    // True while the colourer itself is changing the text (a respelling); its own
    // changes are not edits of the text.
    bool isApplying() const { return m_applying; }
    // Forgets the changes noted so far (a new text that a full run will colour).
    void forgetChanges() { m_dirtyFirst = m_dirtyLast = -1; }
    // An edit of the text, told once it is made: at `position`, `removed` bytes went
    // and `added` came.
    void noteChange(qsizetype position, qsizetype removed, qsizetype added);
    // Colours the lines changed since the last flush (the typing path). The caret
    // position keeps the word being typed from being respelled under the caret.
    void flush(qsizetype caretPosition = -1);

    // Undo and redo of the text; a respelling goes with the edit before it.
    void undo();
    void redo();

    // The lines changed at once above which the typing path starts a silent full run
    // instead of colouring line by line.
    static constexpr int LargeChange = 2000;

Q_SIGNALS:
    void progressStart();
    void progressChange(int percentComplete);
    void progressComplete();
    // The typing path wants a full run (a change too large to colour line by line);
    // without respelling when the change came from Undo or Redo.
    void largeChange(bool respell);

private:
    struct Run;
    struct Piece
    {
        qsizetype start;
        qsizetype end;
        StretchKind kind;
        QString spelling;
    };
    using Spellings = std::vector<std::pair<qsizetype, QString>>;

    void step();
    void finish();
    void beginSnapshot();
    void fillSlice();
    bool applySlice(const QElapsedTimer &clock);
    void colourLines(int firstLine, int lastLine, qsizetype caretPosition, bool respell);
    // Appends the styles of one line and its break to `styles`, from the pieces (in
    // order) from `next` on; `next` moves past the pieces that end in the line. Tells
    // whether the line's end lies inside a block comment.
    void lineStyles(int line, const std::vector<Piece> &pieces, std::size_t &next,
                    QByteArray &styles, bool *endsInComment) const;
    // Records the list spellings that differ from the line's letters.
    void collectSpellings(int line, const std::vector<Piece> &pieces, std::size_t from,
                          Spellings &spellings, qsizetype caretPosition) const;
    void writeSpellings(const Spellings &spellings);
    // Lays what was worked out for the lines from `first` on onto the text: the
    // respellings, then the styles and each line's comment state.
    void commitLines(int first, const Spellings &spellings, const QByteArray &styles,
                     const std::vector<bool> &inComment);
    void setCommentState(int line, bool inComment);
    bool lineStartsInComment(int line) const;
    bool cLike() const;
    QString lineText(int line) const;

    StyledText &m_text;
    StyleTable &m_styles;
    QTimer *m_progressTimer;
    char m_commentStyle = 0;
    char m_keywordStyle = 0;
    ScanRequest m_request;
    std::unique_ptr<Run> m_run;
    QTimer m_sliceTimer;
    QByteArray m_snapshot;
    bool m_applying = false;
    int m_restarts = 0;
    quint64 m_generation = 0;
    int m_dirtyFirst = -1;
    int m_dirtyLast = -1;
    // The waiting lines were changed by Undo or Redo: they get colours only.
    bool m_dirtyFromUndo = false;
    bool m_undoing = false;
};

} // namespace tessaro
