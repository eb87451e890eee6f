#pragma once

#include <QByteArrayView>

namespace tessaro {

// The text the colourer works on, as the editor box holds it: 8-bit bytes with every
// line break written as CR LF (so a position is a byte and a break counts two), one
// style byte per byte (StyleTable), and a state word per line (LineState).
// Lines are numbered from 0.
class StyledText
{
public:
    virtual ~StyledText() = default;

    virtual qsizetype length() const = 0;
    // The whole text, valid until the next change.
    virtual QByteArrayView bytes() const = 0;
    // Part of the text, valid until the next change; cheaper than the whole text in a
    // box that keeps a gap where the last edit was.
    virtual QByteArrayView bytes(qsizetype from, qsizetype length) const = 0;
    virtual int lineCount() const = 0;
    virtual int lineOf(qsizetype position) const = 0;
    virtual qsizetype lineStart(int line) const = 0;
    // The position of the line's break (the end of the text for the last line).
    virtual qsizetype lineEnd(int line) const = 0;
    virtual int lineState(int line) const = 0;
    virtual void setLineState(int line, int state) = 0;
    // Gives the bytes from `from` on the styles (one byte each). Styling never
    // changes the text and is never an undo step.
    virtual void setStyles(qsizetype from, QByteArrayView styles) = 0;
    virtual int styleAt(qsizetype position) const = 0;

    // Editing for the respellings: a replacement of the same length, recorded as
    // part of the undo step that is open.
    virtual void replace(qsizetype from, QByteArrayView bytes) = 0;
    virtual bool canUndo() const = 0;
    virtual bool canRedo() const = 0;
    virtual void beginUndoStep() = 0;
    virtual void endUndoStep() = 0;
    // Marks the undo step that is open as a respelling.
    virtual void markRespellingStep() = 0;
    virtual void setUndoCollection(bool collect) = 0;
    // Undo and Redo of one step; tell whether that step was marked as a respelling.
    virtual bool undo() = 0;
    virtual bool redo() = 0;
};

// The bits of a line's state word.
namespace linestate {
// The line's break as the file had it (a LineEnd; 0: the text's usual break).
constexpr int LineEndMask = 3;
// The line ends inside a block comment.
constexpr int CommentOpen = 4;
// The comment bit has been worked out for the line's present text (a line split off
// or joined by an edit has not, until it is coloured).
constexpr int Known = 8;
} // namespace linestate

} // namespace tessaro
