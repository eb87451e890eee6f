#pragma once

#include <QIcon>

namespace tessaro {

// The program's icon: data/tessaro.svg rendered at the sizes desktops use, compiled
// into the program as PNG images.
QIcon applicationIcon();

// Gives the application's windows (main window, documents, dialogs) the program's icon
// and names the desktop entry they belong to ("tessaro"), so a desktop shows them with
// the menu entry's icon.
void installApplicationIcon();

} // namespace tessaro
