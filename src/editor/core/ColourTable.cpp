#include "editor/core/ColourTable.h"

#include "platform/core/RuntimeError.h"

#include <cmath>

namespace tessaro {

namespace {

quint8 toByte(double value)
{
    if (value < 0 || value > 255)
        throw RuntimeError(RuntimeError::Overflow);
    return quint8(value);
}

} // namespace

quint8 colourComponent(ColourValue value, int component)
{
    const float single = float(value);
    const auto whole = quint64(single);
    switch (component) {
    case 0: return quint8(whole & 0xFF);
    case 1: return toByte(double(whole & 0xFF00FF00u) / 256.0);
    case 2: return toByte(std::floor(double(single) / 65536.0));
    default: return 0;
    }
}

void HighlightColours::setStartupValues()
{
    m_slots[0] = 0xFF0000; // keywords: blue
    m_slots[1] = 0xFF0000; // function names: blue
    m_slots[2] = 0x008000; // comments: the text-mode palette's green
    m_slots[3] = 0;
    m_slots[4] = 0; // plain text
}

QString HighlightColours::tableEntry(int n) const
{
    const ColourValue value = slot(n);
    return QStringLiteral("\\red%1\\green%2\\blue%3;")
        .arg(colourComponent(value, 0))
        .arg(colourComponent(value, 1))
        .arg(colourComponent(value, 2));
}

QString HighlightColours::buildTable()
{
    QString table = QStringLiteral("{\\colortbl\\red0\\green0\\blue0;");
    for (int n = 0; n < slotCount; ++n) {
        table += tableEntry(n);
        m_switches[size_t(n)] = QStringLiteral("\\cf%1").arg(n + 1);
    }
    return table + QLatin1Char('}');
}

QString replaceColourTable(const QString &rtf, const QString &table)
{
    const qsizetype p = rtf.indexOf(QLatin1String("{\\colortbl"));
    if (p < 0)
        return rtf;
    const qsizetype q = rtf.indexOf(QLatin1Char('}'), p);
    // Without a closing brace the search gives position 0, and "the text after it"
    // is the whole text: nothing is lost, the old text follows the new table.
    return rtf.left(p) + table + rtf.mid(q + 1);
}

} // namespace tessaro
