#pragma once

#include "editor/core/ColourScan.h"

#include <QString>

#include <optional>

namespace tessaro {

// What setting the editor's Mode does to its comment marker and word lists.
struct ModeWordLists
{
    // False for the modes that leave marker and lists as they are (1, 7, 9 and any
    // value outside 0-6).
    bool loadsLists = false;
    // The single-line comment marker the mode sets, when it sets one.
    std::optional<QString> commentMarker;
    // The files of the black and blue lists, in the program's folder. An empty
    // black file name empties the black list without reading anything (Perl).
    QString blackFile;
    QString blueFile;
};

// The table of modes: 0 Visual Basic, 2 Java, 3 JavaScript, 4 VBScript, 5 Perl and
// 6 C load lists; C's blue list is the section definition file "tessaro.stx".
ModeWordLists modeWordLists(int mode);

// The mode a file's name selects when the editor loads it: C (6) for names ending in
// ".c", ".h" or ".cpp" (as written, in lower case), none (9) for any other.
int modeForFileName(const QString &fileName);

// Reads a word list: the whole file as one string, from the folder + "/" + the file
// name. A file that is missing or unreadable gives an empty list, without a message.
QString readWordList(const QString &folder, const QString &fileName);

// The editor's word lists and comment marker, as Mode leaves them.
struct EditorWordLists
{
    QString commentMarker;
    WordListIndex black;
    WordListIndex blue;

    // Applies the mode's row of the table, reading lists from `folder`.
    void applyMode(int mode, const QString &folder);
};

// A file's text as the editor holds it: every line break (CR LF, LF or a lone CR)
// becomes CR LF, so positions count a line break as two characters.
QString editorText(const QString &fileText);

} // namespace tessaro
