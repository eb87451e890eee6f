#include "editor/core/KeyCodes.h"

#include <QKeyEvent>

namespace tessaro::keycodes {

int keyCode(const QKeyEvent &event)
{
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
        return key; // Qt uses the upper-case character codes, as virtual key codes do
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return 112 + (key - Qt::Key_F1);
    switch (key) {
    case Qt::Key_Backspace: return Backspace;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: return Tab;
    case Qt::Key_Return:
    case Qt::Key_Enter: return Enter;
    case Qt::Key_Shift: return ShiftKey;
    case Qt::Key_Control: return ControlKey;
    case Qt::Key_Alt: return 18;
    case Qt::Key_Pause: return 19;
    case Qt::Key_CapsLock: return 20;
    case Qt::Key_Escape: return Escape;
    case Qt::Key_Space: return 32;
    case Qt::Key_PageUp: return 33;
    case Qt::Key_PageDown: return 34;
    case Qt::Key_End: return 35;
    case Qt::Key_Home: return 36;
    case Qt::Key_Left: return 37;
    case Qt::Key_Up: return 38;
    case Qt::Key_Right: return 39;
    case Qt::Key_Down: return 40;
    case Qt::Key_Insert: return 45;
    case Qt::Key_Delete: return Delete;
    case Qt::Key_Semicolon: return 186;
    case Qt::Key_Equal:
    case Qt::Key_Plus: return 187;
    case Qt::Key_Comma: return 188;
    case Qt::Key_Minus: return 189;
    case Qt::Key_Period: return 190;
    case Qt::Key_Slash: return 191;
    case Qt::Key_QuoteLeft: return 192;
    case Qt::Key_BracketLeft: return 219;
    case Qt::Key_Backslash: return 220;
    case Qt::Key_BracketRight: return 221;
    case Qt::Key_Apostrophe: return 222;
    default: break;
    }
    return 0;
}

int shiftState(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers m = event.modifiers();
    return (m & Qt::ShiftModifier ? ShiftMask : 0) | (m & Qt::ControlModifier ? CtrlMask : 0) |
           (m & Qt::AltModifier ? AltMask : 0);
}

int keyAscii(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return Enter;
    case Qt::Key_Backspace: return Backspace;
    case Qt::Key_Tab: return Tab;
    case Qt::Key_Escape: return Escape;
    default: break;
    }
    if ((event.modifiers() & Qt::ControlModifier) && event.key() >= Qt::Key_A &&
        event.key() <= Qt::Key_Z)
        return event.key() - Qt::Key_A + 1;
    const QString text = event.text();
    if (text.size() == 1 && text.at(0).unicode() >= 32 && text.at(0).unicode() < 256 &&
        text.at(0).unicode() != 127)
        return text.at(0).unicode();
    return 0;
}

} // namespace tessaro::keycodes
