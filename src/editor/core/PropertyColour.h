#pragma once

#include <QColor>
#include <QPalette>

namespace tessaro {

// Colours as the editor's properties hold them: red + 256 * green + 65536 * blue,
// or, with the top bit set, the number of a system colour (0x80000005 is the window
// background).
namespace propertycolour {

constexpr quint32 SystemFlag = 0x80000000u;
constexpr quint32 WindowBackground = 0x80000005u;

bool isSystem(quint32 value);
// The colour a value stands for; system colours are taken from the palette.
QColor toColor(quint32 value, const QPalette &palette);
// The value of an ordinary colour.
quint32 fromColor(const QColor &colour);

} // namespace propertycolour
} // namespace tessaro
