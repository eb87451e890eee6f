#pragma once

#include "editor/core/WordScanner.h"

namespace tessaro {

// The scanner of C, Java and JavaScript. A double quote jumps to the next double
// quote (no escapes) without ending the word; "//" and "/*" start comments; any
// other "/" is skipped without ending the word; blank, tab, CR and LF end words.
// Every other character, punctuation included, belongs to the word.
class CScanner : public WordScanner
{
public:
    using WordScanner::WordScanner;
    void scan(qsizetype until) override;
};

} // namespace tessaro
