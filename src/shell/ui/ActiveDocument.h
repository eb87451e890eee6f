#pragma once

#include <QVariant>

class QMdiArea;
class QMdiSubWindow;
class QObject;

namespace tessaro {

// Access to the active document window and its editor control, which is always the
// child named "code". The editor is reached by member name, without knowing its
// class: its methods must be invokable (slots or Q_INVOKABLE) and its properties Qt
// properties. A call to a member the control does not have fails, and the caller
// decides whether to ignore that.

// The active MDI child, or nullptr.
QMdiSubWindow *activeChild(QMdiArea *area);

// The `code` control of a child window, or nullptr.
QObject *codeOf(QMdiSubWindow *child);

// Whether the child is the output window or the Find in Files dialog.
bool isOutputOrFindInFiles(QMdiSubWindow *child);

// Calls the invokable member `name` of `target` with the arguments given; false when
// there is no target or it has no such member taking that many arguments.
bool callByName(QObject *target, const char *name, const QVariantList &arguments = {});

// Reads the value of `name` from `target`: its Qt property of that name, else an
// invokable member without arguments that returns it. Invalid when neither exists.
QVariant readByName(QObject *target, const char *name);

} // namespace tessaro
