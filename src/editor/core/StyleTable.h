#pragma once

#include "editor/core/ColourTable.h"

#include <optional>
#include <vector>

namespace tessaro {

// The styles of the editor box: one style byte per character. Style 0 is the plain
// text (no colour of its own: it shows in Colour_Text); every other style stands for
// one colour, given out the first time the colour is asked for. The box has 247
// styles for colours (1-31 and 40-255; 32-39 are its own); once they are all given
// out, further colours share the last one.
class StyleTable
{
public:
    static constexpr int Plain = 0;

    // The style of a colour, given out anew when the colour has none yet.
    int styleFor(ColourValue colour);
    // The colour a style stands for; none for the plain style and unknown styles.
    std::optional<ColourValue> colourOf(int style) const;
    // The styles given out, in order (the plain style not counted).
    const std::vector<int> &styles() const { return m_styles; }

    static constexpr int capacity() { return 31 + 216; }

private:
    static int styleAt(int index);

    std::vector<int> m_styles;
    std::vector<ColourValue> m_colours;
};

} // namespace tessaro
