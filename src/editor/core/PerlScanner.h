#pragma once

#include "editor/core/WordScanner.h"

namespace tessaro {

// The Perl scanner: "#" starts a comment to the end of the line; "<<" starts a
// here-document, skipped up to the first "eof" (any case) from three characters on;
// a double quote ends the word and skips to the next double quote that no backslash
// precedes; blank, tab, CR and LF end words.
class PerlScanner : public WordScanner
{
public:
    using WordScanner::WordScanner;
    void scan(qsizetype until) override;
};

} // namespace tessaro
