#pragma once

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
    std::vector<LineEnd> breaks; // one entry per line break, in text order
    LineEnd usual = LineEnd::CRLF; // the most frequent kind (CR LF when there is none)
    bool uniform = true;           // every break is of the usual kind
};

LineEnds scanLineEnds(const QString &text);

// The text's line breaks as scanLineEnds finds them, with the given usual kind: lines
// typed anew get it, and the text is uniform only when every break is of that kind.
LineEnds lineEndsWithUsual(const QString &text, LineEnd usual);

} // namespace tessaro
