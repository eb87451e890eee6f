#pragma once

#include <QObject>

class QAction;
class QMainWindow;
class QPushButton;
class QToolBar;

namespace tessaro {

class ToolbarIcons;

// The main toolbar `cToolbar1`: one QAction per button, in order, separators
// included, numbered from 1 as the toolbar counts them. A button has no caption; its
// key is also its tooltip and its objectName is "cToolbar1_<key>" (separators
// "cToolbar1_Separator_<number>"); the key and the number are kept in the properties
// "Key" and "Index". A click reads the button's key and dispatches on it.
class MainToolbar : public QObject
{
    Q_OBJECT
public:
    // `frame` holds the menu actions the buttons stand for, `findButton` is the find
    // box's button.
    MainToolbar(QMainWindow &frame, QPushButton *findButton);

    QToolBar *toolbar() const { return m_toolbar; }
    ToolbarIcons *images() const { return m_images; }
    // The button with a number (1-based), or nullptr.
    QAction *button(int number) const;

    // A click on button `number`: dispatches its key.
    void ButtonClick(int number);
    // Runs the command of a key; any key the toolbar does not know does nothing.
    void dispatchKey(const QString &key);
    // The dispatcher for buttons that carry their key, which also knows "FindnF".
    void dispatchButtonKey(const QString &key);

private:
    void run(const QString &command);

    QMainWindow &m_frame;
    QPushButton *m_findButton;
    ToolbarIcons *m_images;
    QToolBar *m_toolbar;
};

} // namespace tessaro
