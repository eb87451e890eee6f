#pragma once

class QFileDialog;

namespace tessaro {

struct FileDialogRequest;

// Gives a file dialog the request's title, folder, filters and kind (open one or
// several files, or save).
void setUpFileDialog(QFileDialog &dialog, const FileDialogRequest &request);

// Installs the real message box and common dialog services, which show modal
// windows. With TESSARO_HEADLESS_MSGBOX set in the environment they are not
// installed: message boxes then go to the error stream and take their default
// button, and file dialogs are cancelled (for scripted and headless runs). With
// TESSARO_HEADLESS_MSGBOX_WAIT_MS=<ms> as well, each message box serves events for
// that long before it answers, as a box a user reads for a while.
void installWidgetDialogs();

} // namespace tessaro
