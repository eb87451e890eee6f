#include "search/ui/UnloadForm.h"

#include <QMdiSubWindow>

namespace tessaro::search {

void unloadForm(QWidget *form)
{
    if (auto *child = qobject_cast<QMdiSubWindow *>(form->parentWidget()))
        child->close();
    else
        form->close();
}

} // namespace tessaro::search
