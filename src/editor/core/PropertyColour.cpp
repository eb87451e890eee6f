#include "editor/core/PropertyColour.h"

namespace tessaro::propertycolour {

bool isSystem(quint32 value) { return (value & SystemFlag) != 0; }

static QPalette::ColorRole systemRole(quint32 index)
{
    switch (index) {
    case 5: return QPalette::Base;              // window background
    case 8: return QPalette::Text;              // window text
    case 13: return QPalette::Highlight;        // highlight
    case 14: return QPalette::HighlightedText;  // highlighted text
    case 15: return QPalette::Button;           // button face
    case 18: return QPalette::ButtonText;       // button text
    case 7:                                     // menu text
    case 9: return QPalette::WindowText;        // caption text
    case 24: return QPalette::ToolTipBase;      // tool tip background
    case 23: return QPalette::ToolTipText;      // tool tip text
    default: return QPalette::Window;
    }
}

QColor toColor(quint32 value, const QPalette &palette)
{
    if (isSystem(value))
        return palette.color(systemRole(value & 0xFFu));
    return QColor(int(value & 0xFFu), int((value >> 8) & 0xFFu), int((value >> 16) & 0xFFu));
}

quint32 fromColor(const QColor &colour)
{
    const QColor rgb = colour.toRgb();
    return quint32(rgb.red()) | (quint32(rgb.green()) << 8) | (quint32(rgb.blue()) << 16);
}

} // namespace tessaro::propertycolour
