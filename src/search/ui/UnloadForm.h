#pragma once

class QWidget;

namespace tessaro::search {

// Unloads a form: closes the MDI child window that holds it, or the form itself when
// it stands alone. Forms of this subsystem are deleted on close.
void unloadForm(QWidget *form);

} // namespace tessaro::search
