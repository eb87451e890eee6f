#pragma once

#include "platform/core/CommonDialog.h"

#include <QString>

namespace tessaro {

// Browsing for one of the outside programs (web browser, FTP client, e-mail client)
// that the options dialog and the publishing wizard keep paths for.
namespace programbrowse {

inline const QString ftpTitle = QStringLiteral("Browse for FTP Client");
inline const QString webTitle = QStringLiteral("Browse for Web Browser");
inline const QString emailTitle = QStringLiteral("Browse for Email Client");

// Programs on Linux carry no extension, so the filter lists every file; the dialog's
// description keeps the word "Executables" that users know from program dialogs.
inline const QString filter = QStringLiteral("Executables (*)|*");

// An open-file request with the given title, the program filter and no cancel error.
FileDialogRequest request(const QString &title);

// Shows the open-file dialog for a program; "" when cancelled.
QString choose(const QString &title);

} // namespace programbrowse

} // namespace tessaro
