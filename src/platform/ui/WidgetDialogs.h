#pragma once

namespace tessaro {

// Installs the real message box and common dialog services, which show modal
// windows. With TESSARO_HEADLESS_MSGBOX set in the environment they are not
// installed: message boxes then go to the error stream and take their default
// button, and file dialogs are cancelled (for scripted and headless runs).
void installWidgetDialogs();

} // namespace tessaro
