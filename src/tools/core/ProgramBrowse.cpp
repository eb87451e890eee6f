#include "tools/core/ProgramBrowse.h"

namespace tessaro::programbrowse {

FileDialogRequest request(const QString &title)
{
    FileDialogRequest r;
    r.kind = FileDialogRequest::Open;
    r.title = title;
    r.filter = filter;
    r.cancelError = false; // Cancel gives an empty name instead of an error
    return r;
}

QString choose(const QString &title)
{
    return showFileDialog(request(title));
}

} // namespace tessaro::programbrowse
