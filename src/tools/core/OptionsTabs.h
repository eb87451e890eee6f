#pragma once

#include <QVector>

namespace tessaro::optionstabs {

// The options dialog shows one page per tab. Tabs are numbered from 1 as the tab
// strip numbers them; pages from 0. A page is shown by moving it to its place and
// hidden by moving it far to the left, out of view.
constexpr double shownLeftTwips = 210;
constexpr double hiddenLeftTwips = -20000;

// The left edge, in twips, of each of pageCount pages when tab selectedTab is
// selected: the page whose index is selectedTab - 1 is shown, every other hidden.
QVector<double> pageLefts(int selectedTab, int pageCount);

enum class TabStep { None, Next, Previous };

// What a key does to the tab selection: Tab with only Ctrl held selects the next tab,
// Tab with Ctrl and Shift the previous one; anything else does nothing.
TabStep stepForKey(bool tabKey, bool ctrl, bool shift, bool alt);

// The tab selected after a step from selectedTab among tabCount tabs, wrapping from
// the last to the first and from the first to the last.
int steppedTab(int selectedTab, int tabCount, TabStep step);

} // namespace tessaro::optionstabs
