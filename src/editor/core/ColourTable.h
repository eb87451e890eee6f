#pragma once

#include <QString>

#include <array>

namespace tessaro {

// A colour value in the platform's order: red + 256 * green + 65536 * blue. Values
// with the top bit set name system colours.
using ColourValue = quint32;

namespace colour {
constexpr ColourValue windowBackground = 0x80000005; // the window-background system colour
constexpr ColourValue comment = 0x8000;              // Colour_Comment's default
constexpr ColourValue keyword = 0x7F0000;            // Colour_Keyword's default
constexpr ColourValue text = 0;                      // Colour_Text's default
} // namespace colour

// One component of a colour: 0 red, 1 green, 2 blue; any other number gives 0. The
// value goes through single precision first (large values round); a component that
// does not fit a byte (a system colour) raises run-time error 6.
quint8 colourComponent(ColourValue value, int component);

// The seven colour slots of the section-file colourer and the colour switches that
// the colour table built from them defines ("\cf1" .. "\cf7", slot order).
class HighlightColours
{
public:
    static constexpr int slotCount = 7;

    // The values the main window gives the slots at start-up: blue keywords and
    // function names, green comments, black for the rest.
    void setStartupValues();

    ColourValue slot(int n) const { return m_slots.at(size_t(n)); }
    void setSlot(int n, ColourValue value) { m_slots.at(size_t(n)) = value; }

    // "\red<r>\green<g>\blue<b>;" for slot n.
    QString tableEntry(int n) const;
    // "{\colortbl\red0\green0\blue0;" + the seven entries + "}"; also sets the switches.
    QString buildTable();
    // The switch of slot n once a table was built ("" before).
    const QString &colourSwitch(int n) const { return m_switches.at(size_t(n)); }

private:
    std::array<ColourValue, slotCount> m_slots{};
    std::array<QString, slotCount> m_switches;
};

// Replaces the first "{\colortbl" group (up to its first "}") with `table`; text
// without a colour table comes back unchanged.
QString replaceColourTable(const QString &rtf, const QString &table);

} // namespace tessaro
