#include "editor/core/ColouredLines.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace tessaro {

namespace {

// Marks a line that carries colours. It stays with the line's start (and its layout)
// when lines are split or joined, where the user state follows the line's end.
class ColouredMark : public QTextBlockUserData
{
};

} // namespace

bool ColouredLines::setColours(QTextBlock &block, const Ranges &ranges)
{
    // A line without colours needs no layout of its own to say so.
    if (ranges.isEmpty() && !hasColours(block))
        return false;
    QTextLayout *layout = block.layout();
    if (layout->formats() == ranges)
        return false;
    layout->setFormats(ranges);
    if (ranges.isEmpty())
        block.setUserData(nullptr);
    else if (!block.userData())
        block.setUserData(new ColouredMark);
    const int from = block.position();
    const int to = from + block.length();
    m_dirtyFrom = m_dirtyFrom < 0 ? from : std::min(m_dirtyFrom, from);
    m_dirtyTo = std::max(m_dirtyTo, to);
    return true;
}

void ColouredLines::finish()
{
    if (m_dirtyFrom < 0)
        return;
    // The lines are laid out again when they are next shown; a range of several lines
    // costs no more than marking them.
    const int end = std::min(m_dirtyTo, m_doc->characterCount());
    m_doc->markContentsDirty(m_dirtyFrom, std::max(0, end - m_dirtyFrom));
    m_dirtyFrom = m_dirtyTo = -1;
}

ColouredLines::Ranges ColouredLines::colours(const QTextBlock &block)
{
    if (!block.isValid() || !hasColours(block))
        return {};
    return block.layout()->formats();
}

QColor ColouredLines::shownColour(const QTextBlock &block, int positionInLine,
                                  const QColor &textColour)
{
    const Ranges ranges = colours(block);
    for (auto it = ranges.crbegin(); it != ranges.crend(); ++it)
        if (positionInLine >= it->start && positionInLine < it->start + it->length &&
            it->format.hasProperty(QTextFormat::ForegroundBrush))
            return it->format.foreground().color();
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + positionInLine + 1);
    const QTextCharFormat own = cursor.charFormat();
    return own.hasProperty(QTextFormat::ForegroundBrush) ? own.foreground().color() : textColour;
}

ColouredLines::Ranges ColouredLines::shifted(const Ranges &ranges, int at, int removed, int added)
{
    Ranges out;
    out.reserve(ranges.size());
    const int removedEnd = at + removed;
    for (QTextLayout::FormatRange range : ranges) {
        int start = range.start;
        int end = range.start + range.length;
        // Removed characters take their colour with them.
        auto cut = [&](int p) { return p <= at ? p : (p >= removedEnd ? p - removed : at); };
        start = cut(start);
        end = cut(end);
        // Inserted text takes the colour before it (after it at the line's start).
        const bool grows = added > 0 && (at == 0 ? start == 0 && end > 0 : start < at && end >= at);
        if (start >= at && !(at == 0 && grows))
            start += added;
        if (end > at || (end == at && grows))
            end += added;
        range.start = start;
        range.length = end - start;
        if (range.length > 0)
            out.append(range);
    }
    return out;
}

// ---- Line state ---------------------------------------------------------------------

int ColouredLines::lineEndBits(const QTextBlock &block)
{
    const int state = block.userState();
    return state < 0 ? 0 : (state & LineEndMask);
}

bool ColouredLines::endsInComment(const QTextBlock &block)
{
    const int state = block.userState();
    return state >= 0 && (state & CommentOpenBit) != 0;
}

bool ColouredLines::stateKnown(const QTextBlock &block) { return block.userState() >= 0; }

bool ColouredLines::hasColours(const QTextBlock &block)
{
    return block.userData() != nullptr;
}

void ColouredLines::setLineEnd(QTextBlock &block, int lineEnd)
{
    setStateBits(block, LineEndMask, lineEnd & LineEndMask);
}

void ColouredLines::setEndsInComment(QTextBlock &block, bool inComment)
{
    setStateBits(block, CommentOpenBit, inComment ? CommentOpenBit : 0);
}

void ColouredLines::setStateBits(QTextBlock &block, int mask, int bits)
{
    // A line whose state is unknown (-1) gets one, even when it is all zero.
    const int old = block.userState();
    const int state = (std::max(0, old) & ~mask) | bits;
    if (state != old)
        block.setUserState(state);
}

} // namespace tessaro
