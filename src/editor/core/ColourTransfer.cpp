#include "editor/core/ColourTransfer.h"

#include <optional>

namespace tessaro {

namespace {

// The colour of each character of the copy, in order, read from its runs.
class CopyColours
{
public:
    explicit CopyColours(const std::vector<RtfColourRun> &runs) : m_runs(runs) {}

    std::optional<ColourValue> at(qsizetype position)
    {
        while (m_next < m_runs.size() &&
               m_runs[m_next].start + m_runs[m_next].length <= position)
            ++m_next;
        if (m_next < m_runs.size() && m_runs[m_next].start <= position)
            return m_runs[m_next].colour;
        return std::nullopt;
    }

private:
    const std::vector<RtfColourRun> &m_runs;
    std::size_t m_next = 0;
};

void append(std::vector<RtfColourRun> &runs, qsizetype position, std::optional<ColourValue> colour)
{
    if (!colour)
        return;
    if (!runs.empty() && runs.back().colour == *colour &&
        runs.back().start + runs.back().length == position) {
        ++runs.back().length;
        return;
    }
    runs.push_back({position, 1, *colour});
}

} // namespace

std::vector<RtfColourRun> transferColours(const QString &text, const RtfDocument &coloured)
{
    std::vector<RtfColourRun> runs;
    CopyColours copy(coloured.runs);
    const QString &other = coloured.text;
    std::optional<ColourValue> previous;
    qsizetype j = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        while (j < other.size() && other.at(j) != text.at(i) && other.at(j) == u' ')
            ++j; // a blank the copy has twice
        std::optional<ColourValue> colour = previous;
        if (j < other.size() && other.at(j) == text.at(i))
            colour = copy.at(j++);
        append(runs, i, colour);
        previous = colour;
    }
    return runs;
}

} // namespace tessaro
