#include "editor/core/RespellingSteps.h"

#include <QTextDocument>

namespace tessaro {

void RespellingSteps::commandAdded()
{
    m_steps.erase(m_steps.upper_bound(m_knownTop), m_steps.end());
    m_knownTop = m_doc->availableUndoSteps();
}

void RespellingSteps::recordSince(int before)
{
    for (int step = before + 1; step <= m_doc->availableUndoSteps(); ++step)
        m_steps.insert(step);
    m_knownTop = m_doc->availableUndoSteps();
}

void RespellingSteps::forget()
{
    m_steps.clear();
    m_knownTop = m_doc->availableUndoSteps();
}

bool RespellingSteps::respellingOnTop() const
{
    const int top = m_doc->availableUndoSteps();
    return top > 0 && m_steps.count(top);
}

void RespellingSteps::undo()
{
    // The respelling on top goes with the edit below it; a respelling further down
    // belongs to an earlier edit and stays.
    while (respellingOnTop())
        m_doc->undo();
    m_doc->undo();
    m_knownTop = m_doc->availableUndoSteps();
}

void RespellingSteps::redo()
{
    m_doc->redo();
    while (m_doc->availableRedoSteps() > 0 && m_steps.count(m_doc->availableUndoSteps() + 1))
        m_doc->redo();
    m_knownTop = m_doc->availableUndoSteps();
}

} // namespace tessaro
