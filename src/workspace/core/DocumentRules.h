#pragma once

#include <QString>

namespace tessaro::documents {

// The rules by which document windows are named, coloured and saved.

// The caption of the n-th untitled document: "Source " + n.
QString untitledCaption(qint32 counter);

// The caption a loading document shows until its file is in.
QString loadingCaption(const QString &path);

// Whether a caption names a C source that opens with C colouring: it ends in ".cpp",
// ".h" or ".c", compared exactly (X.C is not one).
bool opensAsCSource(const QString &caption);

// Whether a name chosen in Save or Save As switches the document to C colouring: it
// ends in ".h" or ".c" (exactly).
bool savesAsCSource(const QString &name);

// Whether Save and the save-changes prompt treat a document as never saved: its
// caption's first six characters are "Source" (a relative name such as Source.c
// counts too).
bool isUntitled(const QString &caption);

// The dialogs of the File commands.
QString sourceFileFilter(); // Open, Save, Save As
QString promptSaveFilter(); // the save dialog of the save-changes prompt
QString openTitle();        // "Open"
QString saveTitle();        // "Save"
QString saveAsTitle();      // "Save As"

// The save-changes prompt.
QString saveChangesPrompt(const QString &caption);
QString saveChangesTitle();

// The document counter behind untitled captions: starts at 0, never reset, 32-bit.
// Raises 6 "Overflow" past 2147483647.
qint32 nextDocumentNumber(qint32 &counter);

} // namespace tessaro::documents
