#pragma once

#include "editor/ui/SourceEditBox.h"
#include "editor/ui/srcText.h"

#include <QColor>

namespace tessaro::test {

// The colour the character at a position of the control shows in: the foreground of
// its style in the box.
inline QColor colourAt(const srcText &code, qsizetype position)
{
    return code.RTFBox()->foregroundAt(position);
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

// Whether the box could undo or redo a step.
inline bool canUndo(const srcText &code)
{
    return code.RTFBox()->send(SourceEditBox::SCI_CANUNDO) != 0;
}
inline bool canRedo(const srcText &code)
{
    return code.RTFBox()->send(SourceEditBox::SCI_CANREDO) != 0;
}

// The steps the box could undo, counted by undoing them all and redoing them again.
inline int undoStepCount(const srcText &code)
{
    const SourceEditBox *box = code.RTFBox();
    int steps = 0;
    while (box->send(SourceEditBox::SCI_CANUNDO)) {
        box->send(SourceEditBox::SCI_UNDO);
        ++steps;
    }
    for (int i = 0; i < steps; ++i)
        box->send(SourceEditBox::SCI_REDO);
    return steps;
}

// The background a character was given (FontBackColour), or no colour.
inline QColor backgroundAt(const srcText &code, qsizetype position)
{
    const SourceEditBox *box = code.RTFBox();
    const long on = box->send(SourceEditBox::SCI_INDICATORALLONFOR, ulong(position));
    for (int indicator = 8; indicator < 32; ++indicator) {
        if (on & (1L << indicator)) {
            return SourceEditBox::colourOf(box->send(SourceEditBox::SCI_INDICGETFORE, ulong(indicator)));
        }
    }
    return QColor();
}

inline int wrapMode(const srcText &code)
{
    return int(code.RTFBox()->send(SourceEditBox::SCI_GETWRAPMODE));
}

inline const QColor commentColour(0, 128, 0);
inline const QColor keywordColour(0, 0, 127);
inline const QColor textColour(0, 0, 0);

} // namespace tessaro::test
