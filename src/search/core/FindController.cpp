#include "search/core/FindController.h"

namespace tessaro::search {

void FindController::searchFrom(FindTarget &target, const QString &text)
{
    target.find(text, target.selStart() + 1, target.textLength());
}

void FindController::find(FindBox &box, FindTarget *target)
{
    if (!target)
        return;
    const QString text = box.text();
    if (text != m_lastFindText) {
        box.addItem(text);
        searchFrom(*target, text);
        m_lastFindText = text;
    } else {
        searchFrom(*target, text);
    }
}

void FindController::findAgain(FindBox &box, FindTarget *target)
{
    if (m_lastFindText.isEmpty() || !target)
        return;
    const QString text = box.text();
    if (text != m_lastFindText)
        box.addItem(text);
    searchFrom(*target, m_lastFindText);
}

} // namespace tessaro::search
