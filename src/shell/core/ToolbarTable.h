#pragma once

#include <QString>
#include <QVector>

namespace tessaro {

// A button of the main toolbar: its key (also its tooltip) and its image index in
// the toolbar's image list. A separator has an empty key and image -1.
struct ToolbarButton
{
    QString key;
    int image = -1;
    bool isSeparator() const { return key.isEmpty(); }
};

// The toolbar's buttons in order.
const QVector<ToolbarButton> &mainToolbarButtons();

// The command a toolbar key runs: the objectName of the menu action it stands for,
// or "cmdFind" for the find box's button. Keys compare exactly (case counts); an
// unknown key gives "".
QString toolbarCommandForKey(const QString &key);

// The same dispatch for a toolbar whose buttons carry their keys, which also knows
// "FindnF" (Find in Files).
QString toolbarButtonCommandForKey(const QString &key);

} // namespace tessaro
