#include "editor/core/UndoSteps.h"

namespace tessaro {

void UndoSteps::added()
{
    ++m_top;
    m_respellings.erase(m_respellings.lower_bound(m_top), m_respellings.end());
}

void UndoSteps::markTopAsRespelling()
{
    if (m_top > 0)
        m_respellings.insert(m_top);
}

void UndoSteps::undone()
{
    if (m_top > 0)
        --m_top;
}

void UndoSteps::redone() { ++m_top; }

void UndoSteps::forget()
{
    m_top = 0;
    m_respellings.clear();
}

} // namespace tessaro
