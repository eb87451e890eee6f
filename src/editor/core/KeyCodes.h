#pragma once

class QKeyEvent;

namespace tessaro {

// Key events as the editor's key events report them: virtual key codes
// (letters and digits as their upper-case character codes, 13 Enter, 9 Tab,
// 8 Backspace, 46 Delete, ...) and a shift state of 1 Shift, 2 Ctrl, 4 Alt.
namespace keycodes {

enum : int {
    Backspace = 8,
    Tab = 9,
    Enter = 13,
    ShiftKey = 16,
    ControlKey = 17,
    Escape = 27,
    Delete = 46,
    C = 67,
    V = 86,
    X = 88,
};

enum : int { ShiftMask = 1, CtrlMask = 2, AltMask = 4 };

int keyCode(const QKeyEvent &event);
int shiftState(const QKeyEvent &event);
// The character code of a key that types a character (0 for keys that type none):
// printable Latin-1 characters, 13 for Enter, 8 for Backspace, 9 for Tab, 27 for
// Escape, and the control codes of Ctrl+letter.
int keyAscii(const QKeyEvent &event);

} // namespace keycodes
} // namespace tessaro
