#pragma once

#include "editor/core/LineEnds.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace tessaro {

// What is kept of a document with unsaved changes, so that a crash, a killed process
// or an untrapped run-time error loses none of it: the text as its file would be
// written, the window's caption, the file's path (empty for an untitled document),
// the line-end kind new lines get, and whether it was shown as C source.
//
// On disk: a first line "Tessaro recovery copy 1", then "key=value" lines whose values
// are percent-encoded UTF-8 (caption, path, lineEnd, cSource), an empty line, and the
// text's bytes (8-bit, as the file would hold them) to the end of the file.
struct RecoveryCopy
{
    QString caption;
    QString path;
    LineEnd lineEnd = LineEnd::CRLF;
    bool cSource = false;
    QByteArray text;

    QByteArray toBytes() const;
    // nullopt for bytes that are no recovery copy (another file, a cut-off header).
    static std::optional<RecoveryCopy> fromBytes(const QByteArray &bytes);

    bool operator==(const RecoveryCopy &other) const;
};

} // namespace tessaro
