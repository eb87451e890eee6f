#pragma once

#include <QFont>

namespace tessaro {

// The font of text that lines up in columns (documents, the output window): the
// desktop's fixed font when it really is fixed-pitch; otherwise (a desktop whose
// scheme names no fixed font hands out a proportional one) a monospace family at the
// same size, as fontconfig resolves it, e.g. "DejaVu Sans Mono".
QFont fixedPitchFont(const QFont &systemFixed);
// The same for the desktop's own fixed font.
QFont fixedPitchFont();

} // namespace tessaro
