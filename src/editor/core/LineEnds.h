#pragma once

#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <vector>

namespace tessaro {

// The kinds of line break a source file can hold. An editor line keeps the break it
// was loaded with, so a file saves back byte for byte; lines typed anew get the
// file's usual break.
enum class LineEnd : std::uint8_t { Unknown = 0, LF = 1, CRLF = 2, CR = 3 };

QString lineEndText(LineEnd end);

// The line breaks of a text in order, as a text editor splits it: CR LF, a lone LF
// and a lone CR each end one line.
struct LineEnds
{
    std::vector<LineEnd> breaks;   // one entry per line break, in text order
    LineEnd usual = LineEnd::CRLF; // the most frequent kind (CR LF when there is none)
    bool uniform = true;           // every break is of the usual kind
};

LineEnds scanLineEnds(const QString &text);
LineEnds scanLineEnds(QByteArrayView text);

// The text's line breaks as scanLineEnds finds them, with the given usual kind: lines
// typed anew get it, and the text is uniform only when every break is of that kind.
LineEnds lineEndsWithUsual(const QString &text, LineEnd usual);

// The text with every line break written as CR LF, breaks counted as scanLineEnds
// counts them (CR LF, a lone LF, a lone CR). Positions in the result count each break
// as two characters, as the editor's public positions do. A text whose breaks are all
// CR LF already comes back as it is (shared, not copied). For QString and QByteArray.
template <typename Text> Text withCrLfBreaks(const Text &text);
template <> QByteArray withCrLfBreaks(const QByteArray &text);
// Gives 8-bit text CR LF breaks in place and tells the breaks it had, in one pass:
// scanLineEnds and withCrLfBreaks at once.
LineEnds toCrLfBreaks(QByteArray &text);

// Decodes a file's bytes given in pieces, in order, as the editor holds its text:
// every byte one character (8-bit text, Latin-1), every line break (CR LF, a lone LF,
// a lone CR) written as CR LF, also when a CR LF is split between two pieces. The
// same text as withCrLfBreaks of the decoded file, without a copy of the whole file.
class CrLfTextDecoder
{
public:
    explicit CrLfTextDecoder(qsizetype expectedBytes = 0);
    void add(QByteArrayView piece);
    QString take() { return std::move(m_text); }

private:
    QString m_text;
    bool m_afterCr = false; // the last piece ended in a CR
};

} // namespace tessaro
