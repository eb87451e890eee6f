#include "editor/core/StyleTable.h"

#include <algorithm>

namespace tessaro {

int StyleTable::styleAt(int index)
{
    // Styles 32-39 are the box's own (default, line numbers, braces, control
    // characters, indent guides, call tips, fold text).
    return index < 31 ? index + 1 : index - 31 + 40;
}

int StyleTable::styleFor(ColourValue colour)
{
    const auto known = std::find(m_colours.begin(), m_colours.end(), colour);
    if (known != m_colours.end())
        return m_styles[std::size_t(known - m_colours.begin())];
    if (int(m_styles.size()) == capacity())
        return m_styles.back();
    m_styles.push_back(styleAt(int(m_styles.size())));
    m_colours.push_back(colour);
    return m_styles.back();
}

std::optional<ColourValue> StyleTable::colourOf(int style) const
{
    const auto at = std::find(m_styles.begin(), m_styles.end(), style);
    if (at == m_styles.end())
        return std::nullopt;
    return m_colours[std::size_t(at - m_styles.begin())];
}

} // namespace tessaro
