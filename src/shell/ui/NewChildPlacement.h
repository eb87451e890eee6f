#pragma once

class QMdiArea;
class QMdiSubWindow;

namespace tessaro {

// Shows a child just added to the MDI area where a new document window belongs: the
// next cascade position at three quarters of the area's size (newChildRect), so it
// opens ready to read rather than at the small size its contents ask for. A child
// that the area shows maximised (because the active one is) stays so.
void showNewChild(QMdiArea &area, QMdiSubWindow *child);

} // namespace tessaro
