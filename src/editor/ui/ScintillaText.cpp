#include "editor/ui/ScintillaText.h"

#include "editor/ui/SourceEditBox.h"

namespace tessaro {

qsizetype ScintillaText::length() const
{
    return m_box.length();
}

QByteArrayView ScintillaText::bytes() const
{
    return m_box.bytes();
}

QByteArrayView ScintillaText::bytes(qsizetype from, qsizetype length) const
{
    return m_box.range(from, length);
}

int ScintillaText::lineCount() const
{
    return m_box.lineCount();
}

int ScintillaText::lineOf(qsizetype position) const
{
    return m_box.lineOf(position);
}

qsizetype ScintillaText::lineStart(int line) const
{
    return m_box.lineStart(line);
}

qsizetype ScintillaText::lineEnd(int line) const
{
    return m_box.lineEnd(line);
}

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
    m_box.replaceRange(from, from + bytes.size(), bytes);
}

bool ScintillaText::canUndo() const
{
    return m_box.send(SourceEditBox::SCI_CANUNDO) != 0;
}

bool ScintillaText::canRedo() const
{
    return m_box.send(SourceEditBox::SCI_CANREDO) != 0;
}

void ScintillaText::beginUndoStep()
{
    m_box.send(SourceEditBox::SCI_BEGINUNDOACTION);
}

void ScintillaText::endUndoStep()
{
    m_box.send(SourceEditBox::SCI_ENDUNDOACTION);
}

void ScintillaText::markRespellingStep()
{
    m_box.send(SourceEditBox::SCI_ADDUNDOACTION, SourceEditBox::RespellingMarker, 0);
}

void ScintillaText::setUndoCollection(bool collect)
{
    m_box.send(SourceEditBox::SCI_SETUNDOCOLLECTION, collect);
}

bool ScintillaText::undoOrRedo(int message)
{
    bool marked = false;
    const auto watch =
        QObject::connect(&m_box, &SourceEditBox::undoMarkerPassed, [&marked](int token) {
            marked = marked || token == SourceEditBox::RespellingMarker;
        });
    m_box.send(message);
    m_box.settle();
    QObject::disconnect(watch);
    return marked;
}

bool ScintillaText::undo()
{
    return undoOrRedo(SourceEditBox::SCI_UNDO);
}

bool ScintillaText::redo()
{
    return undoOrRedo(SourceEditBox::SCI_REDO);
}

} // namespace tessaro
