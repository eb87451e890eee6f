#pragma once

#include <QString>

namespace tessaro {

// Text rules of the editor's block commands (comment, uncomment, indent, outdent)
// and of automatic indentation, on plain line texts.
namespace blockedit {

// The leading blanks and tabs of a line, exactly as they stand.
QString GetIndent(const QString &strLine);

// Walks text from the 1-based start (1 when 0 is given): where the text at the
// position equals the marker, the result is that position's distance from the start,
// counting from 1; blanks and tabs are skipped; any other character gives -1; the
// end of the text gives -2.
int firstNonBlank(const QString &text, int start, const QString &marker);

// Where a marker is to be removed from a line, and how many characters go: the
// offset is -1 when the line keeps its text. A marker of blanks is removed only when
// the line starts with exactly that many blanks; any other marker only when it is
// the first thing after the line's blanks and tabs.
struct Removal
{
    int offset = -1;
    int length = 0;
};
Removal markerRemoval(const QString &line, const QString &marker);

} // namespace blockedit
} // namespace tessaro
