#pragma once

#include <QString>

class QTextDocument;

namespace tessaro {

// A plain text box (the text box helpers' QPlainTextEdit) holds its text in a
// QTextDocument, where a line break is one character, while every position its
// callers see counts a line break as two (CR LF), as the rich-edit control's positions
// do. These functions convert between the two.
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

} // namespace tessaro
