#pragma once

#include "editor/core/WordScanner.h"

#include <memory>

namespace tessaro {

// The HTML scanner. Outside tags nothing is coloured. "<!--" up to "-->" is a
// comment. A tag, from "<" to ">", takes the keyword colour, except its attribute
// values (after "=": quoted with "'" or a double quote, or up to the next blank or
// ">"), which keep the text colour. The body of a "script" element, up to
// "</script>", is scanned as script by the C scanner with the current lists.
// The markup's stretches keep their own spelling.
class HtmlScanner : public WordScanner
{
public:
    HtmlScanner(const ScanRequest &request, std::vector<ColourStretch> &out, qsizetype begin,
                qsizetype end);
    ~HtmlScanner() override;
    void scan(qsizetype until) override;

private:
    // Colours the tag starting with the "<" at `at`; returns the position after it
    // and whether it opens a script element.
    qsizetype tag(qsizetype at, bool *opensScript);
    void markup(StretchKind kind, qsizetype start, qsizetype stop);

    std::unique_ptr<WordScanner> m_script;
};

} // namespace tessaro
