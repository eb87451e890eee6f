#pragma once

#include "editor/core/RtfDocument.h"

#include <vector>

namespace tessaro {

// Lays the colours of a coloured copy of a text onto the text itself. The copy is
// what the section-file line colourer made of the text's RTF: it may hold blanks
// the text does not have (the colourer writes a blank twice where no colour switch
// takes one of them: in runs of blanks and inside strings) and may lack characters
// (a piece that is only the block suffix loses it). Characters are matched in
// order: an extra blank of the copy is passed over, and a character the copy lacks
// takes the colour of the character before it. Positions are those of `text`.
std::vector<RtfColourRun> transferColours(const QString &text, const RtfDocument &coloured);

} // namespace tessaro
