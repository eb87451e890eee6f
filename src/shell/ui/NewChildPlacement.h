#pragma once

class QMdiArea;
class QMdiSubWindow;

namespace tessaro {

// Shows a child just added to the MDI area where a new document window belongs: the
// next cascade position at three quarters of the area's size (newChildRect), so it
// opens ready to read rather than at the small size its contents ask for. A child
// that the area shows maximised (because the active one is) stays so.
void showNewChild(QMdiArea &area, QMdiSubWindow *child);

// Window > Cascade: the open (not minimised) windows from the top left, each one step
// further down and right at the size a new document window gets, the front-most last
// and still in front. Minimised windows keep their place.
void cascadeChildren(QMdiArea &area);

} // namespace tessaro
