#pragma once

#include "editor/core/WordScanner.h"

namespace tessaro {

// The Visual Basic scanner: a double quote jumps to the next double quote without
// ending the word; "'" starts a comment to the end of the line; a word "REM" (any
// case) that neither list holds turns the rest of its line into a comment; blank,
// tab, CR and LF end words. A form file's header can be left out (see headerEnd).
class VbScanner : public WordScanner
{
public:
    VbScanner(const ScanRequest &request, std::vector<ColourStretch> &out, qsizetype begin,
              qsizetype end);
    void scan(qsizetype until) override;

    // Where the scan of a form file starts when its header is left out: from the
    // start, each "Begin" raises a nesting count and each "End" (any word starting
    // so) lowers it, until the count is back at 0; the scan starts just after the
    // "E" of that "End". A header that never closes runs to the end of the text.
    static qsizetype headerEnd(QStringView text);
};

} // namespace tessaro
