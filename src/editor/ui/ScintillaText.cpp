#include "editor/ui/ScintillaText.h"

#include "editor/ui/SourceEditBox.h"

namespace tessaro {

qsizetype ScintillaText::length() const { return m_box.length(); }

QByteArrayView ScintillaText::bytes() const { return m_box.bytes(); }

int ScintillaText::lineCount() const { return m_box.lineCount(); }

int ScintillaText::lineOf(qsizetype position) const { return m_box.lineOf(position); }

qsizetype ScintillaText::lineStart(int line) const { return m_box.lineStart(line); }

qsizetype ScintillaText::lineEnd(int line) const { return m_box.lineEnd(line); }

int ScintillaText::lineState(int line) const
{
    return int(m_box.send(SourceEditBox::SCI_GETLINESTATE, line));
}

void ScintillaText::setLineState(int line, int state)
{
    m_box.send(SourceEditBox::SCI_SETLINESTATE, line, state);
}

void ScintillaText::setStyles(qsizetype from, QByteArrayView styles)
{
    if (styles.isEmpty())
        return;
    m_box.send(SourceEditBox::SCI_STARTSTYLING, from, 0);
    m_box.SendScintilla(SourceEditBox::SCI_SETSTYLINGEX, uintptr_t(styles.size()), styles.data());
}

int ScintillaText::styleAt(qsizetype position) const
{
    return int(m_box.send(SourceEditBox::SCI_GETSTYLEAT, position));
}

void ScintillaText::replace(qsizetype from, QByteArrayView bytes)
{
    m_box.send(SourceEditBox::SCI_SETTARGETRANGE, from, from + bytes.size());
    m_box.SendScintilla(SourceEditBox::SCI_REPLACETARGET, uintptr_t(bytes.size()), bytes.data());
}

bool ScintillaText::canUndo() const { return m_box.send(SourceEditBox::SCI_CANUNDO) != 0; }

bool ScintillaText::canRedo() const { return m_box.send(SourceEditBox::SCI_CANREDO) != 0; }

void ScintillaText::beginUndoStep() { m_box.send(SourceEditBox::SCI_BEGINUNDOACTION); }

void ScintillaText::endUndoStep() { m_box.send(SourceEditBox::SCI_ENDUNDOACTION); }

void ScintillaText::setUndoCollection(bool collect)
{
    m_box.send(SourceEditBox::SCI_SETUNDOCOLLECTION, collect);
}

void ScintillaText::undo() { m_box.send(SourceEditBox::SCI_UNDO); }

void ScintillaText::redo() { m_box.send(SourceEditBox::SCI_REDO); }

void ScintillaText::noteModification(int type, qsizetype position, qsizetype length,
                                     int linesAdded)
{
    if (type & SourceEditBox::SC_MOD_BEFOREDELETE) {
        const int first = lineOf(position);
        const int last = lineOf(position + length);
        m_joinedLineState = last > first ? lineState(last) : -1;
        return;
    }
    if ((type & SourceEditBox::SC_MOD_DELETETEXT) && linesAdded < 0 && m_joinedLineState >= 0) {
        setLineState(lineOf(position), m_joinedLineState & linestate::LineEndMask);
        m_joinedLineState = -1;
        return;
    }
    if ((type & SourceEditBox::SC_MOD_INSERTTEXT) && linesAdded > 0) {
        const int first = lineOf(position);
        const int old = lineState(first);
        for (int line = first; line < first + linesAdded; ++line)
            setLineState(line, 0);
        setLineState(first + linesAdded, old & linestate::LineEndMask);
    }
}

} // namespace tessaro
