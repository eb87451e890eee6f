#pragma once

#include "editor/core/ColouredLines.h"
#include "editor/core/EditorPositions.h"
#include "editor/ui/srcText.h"

#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace tessaro::test {

// The colour the character at a public position of the control shows in.
inline QColor colourAt(const srcText &code, qsizetype publicPos)
{
    QTextDocument *doc = code.RTFBox()->document();
    const int position = positions::toDocument(*doc, publicPos);
    const QTextBlock block = doc->findBlock(position);
    return ColouredLines::shownColour(block, position - block.position(),
                                      code.RTFBox()->palette().color(QPalette::Text));
}

// The foreground colour of the first character of a word of the text.
inline QColor colourOf(const srcText &code, const QString &word, int occurrence = 0)
{
    const QString text = code.Text();
    qsizetype at = -1;
    for (int i = 0; i <= occurrence; ++i)
        at = text.indexOf(word, at + 1);
    return at < 0 ? QColor() : colourAt(code, at);
}

inline const QColor commentColour(0, 128, 0);
inline const QColor keywordColour(0, 0, 127);
inline const QColor textColour(0, 0, 0);

} // namespace tessaro::test
