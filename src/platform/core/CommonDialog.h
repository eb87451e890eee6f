#pragma once

#include <QString>

namespace tessaro {

// A request to the common file dialog. The filter is one text:
// descriptions and patterns alternate, separated by "|", patterns joined by ";"
// ("Source Files (*.c, *.h)|*.c;*.h|All Files (*.*)|*.*").
struct FileDialogRequest
{
    enum Kind { Open, Save };
    Kind kind = Open;
    QString title;
    QString filter;
    bool allowMultiSelect = false;
    // When set, Cancel raises run-time error 32755 ("Cancel was selected.");
    // otherwise Cancel returns an empty file name.
    bool cancelError = false;
    QString initialFolder;
};

// The one way the program asks for a file name, and shows the printer dialogs.
// Tests install a service that records the request and returns a scripted answer.
class CommonDialogService
{
public:
    virtual ~CommonDialogService() = default;
    // The chosen file name; "" when cancelled. With several files chosen in a
    // multiple-selection dialog: the folder, a blank and the names separated by
    // single blanks.
    virtual QString fileName(const FileDialogRequest &request) = 0;
    // The printer set-up dialog; false when cancelled.
    virtual bool printerSetup(const QString &title) = 0;
};

CommonDialogService &commonDialog();
CommonDialogService *setCommonDialogService(CommonDialogService *service);

// Shows a file dialog, raising error 32755 on Cancel when the request asks for it.
QString showFileDialog(const FileDialogRequest &request);

// The "desc|pattern" filter text as a Qt name filter list ("Desc (pat1 pat2)"). The
// pattern "*.*" becomes "*": it stands for every file, also one without a dot.
QStringList qtNameFilters(const QString &filterText);

// The folder-blank-names text of a multiple selection, which is what the
// workspace's sorting rules read: one file gives its full path; several give the folder, a blank
// and the names.
QString multiSelectionText(const QStringList &paths);

} // namespace tessaro
