#pragma once

#include "editor/core/ColourScan.h"

#include <QStringView>

#include <vector>

namespace tessaro {

// The frame that every control-engine scanner shares: a walk over a range of the
// text that can stop at any character and resume later, the word being collected,
// and the look-up of a finished word in the black list and then the blue list.
//
// A word is collected from the characters that the scanner appends to it; a
// skipped stretch (a string, a lone "/") may interrupt it without ending it, so a
// word can consist of several pieces of the text. Its stretch runs from the first
// character of its first piece to the last character of its last piece.
class WordScanner
{
public:
    WordScanner(const ScanRequest &request, std::vector<ColourStretch> &out, qsizetype begin,
                qsizetype end);
    virtual ~WordScanner();
    WordScanner(const WordScanner &) = delete;
    WordScanner &operator=(const WordScanner &) = delete;

    // Scans on until the position reaches `until` or the end of the range. A skip
    // (comment, string) may carry the position past `until`.
    virtual void scan(qsizetype until) = 0;

    // Index in the text of the next character to look at.
    qsizetype position() const { return m_pos; }
    bool atEnd() const { return m_pos >= m_end; }

protected:
    enum class Found { None, Black, Blue };

    static bool isSeparator(char16_t c)
    {
        return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
    }

    // The walk every scan() makes: from the position up to `until` (or the end of
    // the range), `step(i, limit)` handles the character at i and returns the
    // index to go on from. The position is kept for the next call, never past the
    // range's end even when a skip overshoots.
    template <typename Step> void walk(qsizetype until, Step step)
    {
        const qsizetype limit = qMin(until, m_end);
        qsizetype i = m_pos;
        while (i < limit)
            i = step(i, limit);
        m_pos = qMin(i, m_end);
    }

    // A word character at `at` joins the word; returns the next index.
    qsizetype wordChar(qsizetype at)
    {
        beginPiece(at);
        return at + 1;
    }

    // The word takes the character at `at` (the start of a run of characters).
    void beginPiece(qsizetype at)
    {
        if (m_pieceStart < 0) {
            m_pieceStart = at;
            if (m_wordStart < 0)
                m_wordStart = at;
        }
    }
    // A skipped stretch begins at `at`: the current piece of the word ends there.
    void interruptWord(qsizetype at);
    // Forgets the word collected so far (a comment swallowed it).
    void discardWord();
    // The word ends at the delimiter at `at`: looks it up and colours it. The
    // collected text is left in *word when asked for.
    Found endWord(qsizetype at, QString *word = nullptr);

    // The text from `start` to `stop` is a comment: it swallows the word being
    // collected and becomes a comment stretch. Returns `stop`.
    qsizetype comment(qsizetype start, qsizetype stop);
    // A comment from `start` to the end of its line, looked for from `from`.
    // Returns where the scan goes on.
    qsizetype lineComment(qsizetype start, qsizetype from) { return comment(start, lineEnd(from)); }
    // The index after the double quote that closes the one at `at`, or just past the
    // range's end when none does. With `backslashEscapes`, a quote that a backslash
    // precedes does not close.
    qsizetype afterQuote(qsizetype at, bool backslashEscapes = false) const;
    // Position of the next "\r\n" at or after `from` within the range, or the range's end.
    qsizetype lineEnd(qsizetype from) const;
    // Position of `what` at or after `from` within the range, or -1.
    qsizetype find(QStringView what, qsizetype from,
                   Qt::CaseSensitivity cs = Qt::CaseSensitive) const;
    qsizetype find(char16_t what, qsizetype from) const;

    const ScanRequest &m_request;
    std::vector<ColourStretch> &m_out;
    const char16_t *m_chars;
    QStringView m_range; // the text from 0 to the end of the range
    qsizetype m_pos;
    qsizetype m_end;

private:
    qsizetype m_wordStart = -1;
    qsizetype m_pieceStart = -1;
    std::vector<std::pair<qsizetype, qsizetype>> m_pieces; // finished pieces: start, length
    QString m_buffer;
};

// The scanner for a mode, or nullptr when the mode colours nothing.
std::unique_ptr<WordScanner> makeScanner(const ScanRequest &request,
                                         std::vector<ColourStretch> &out);

} // namespace tessaro
