#pragma once

#include <QString>

#include <vector>

class QTextDocument;

namespace tessaro {

// The editor shows its text in a QTextDocument, where a line break is one character,
// while every position its callers see counts a line break as two (CR LF), as the
// rich-edit control's positions do. These functions convert between the two.
namespace positions {

// Public position of a document position (document position + line number).
qsizetype toPublic(const QTextDocument &doc, int docPos);
// Document position of a public position. A position on the LF of a CR LF pair maps
// to the end of its line; positions outside the text are clamped to it.
int toDocument(const QTextDocument &doc, qsizetype pubPos);
// Length of the text with every line break counted as two.
qsizetype publicLength(const QTextDocument &doc);
// The text with lines joined by CR LF.
QString publicText(const QTextDocument &doc);
// The text of one document range with line breaks written as CR LF.
QString publicText(const QTextDocument &doc, int docFrom, int docTo);

} // namespace positions

// The line starts of a CR LF text, for converting many positions of one snapshot
// at once: the line at a position, and the position in a document that holds the
// same lines with one-character line breaks.
class CrLfLines
{
public:
    explicit CrLfLines(const QString &crlfText);
    // Lines added one at a time: the text so far has one line starting at 0.
    CrLfLines() : m_starts{0}, m_length(0) {}
    void addLineStart(qsizetype start) { m_starts.push_back(start); }
    void setLength(qsizetype length) { m_length = length; }

    qsizetype lineCount() const { return static_cast<qsizetype>(m_starts.size()); }
    qsizetype lineStart(qsizetype line) const { return m_starts[static_cast<std::size_t>(line)]; }
    // Length of a line without its break.
    qsizetype lineLength(qsizetype line) const;
    qsizetype lineOf(qsizetype pos) const;
    // The document position of a CR LF position: on the CR of a line's break it is the
    // document's break character; on the LF it is the start of the next line.
    qsizetype toDocument(qsizetype pos) const;
    // The same for positions that mostly grow: the line of the last call is the hint
    // where the search starts.
    qsizetype toDocument(qsizetype pos, qsizetype &lineHint) const;

private:
    std::vector<qsizetype> m_starts;
    qsizetype m_length;
};

} // namespace tessaro
