#include "tools/core/OptionsTabs.h"

namespace tessaro::optionstabs {

QVector<double> pageLefts(int selectedTab, int pageCount)
{
    QVector<double> lefts;
    lefts.reserve(pageCount);
    for (int i = 0; i < pageCount; ++i)
        lefts.append(i == selectedTab - 1 ? shownLeftTwips : hiddenLeftTwips);
    return lefts;
}

TabStep stepForKey(bool tabKey, bool ctrl, bool shift, bool alt)
{
    if (!tabKey || !ctrl || alt)
        return TabStep::None;
    return shift ? TabStep::Previous : TabStep::Next;
}

int steppedTab(int selectedTab, int tabCount, TabStep step)
{
    if (tabCount <= 0)
        return selectedTab;
    switch (step) {
    case TabStep::Next: return selectedTab >= tabCount ? 1 : selectedTab + 1;
    case TabStep::Previous: return selectedTab <= 1 ? tabCount : selectedTab - 1;
    case TabStep::None: break;
    }
    return selectedTab;
}

} // namespace tessaro::optionstabs
