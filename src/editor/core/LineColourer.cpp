#include "editor/core/LineColourer.h"

#include "editor/core/BasicText.h"
#include "editor/core/ColourTable.h"
#include "editor/core/SectionDefinitions.h"

namespace tessaro {

namespace {
// The slots whose switches the colourer writes.
enum Slot { KeywordSlot = 0, FunctionSlot = 1, CommentSlot = 2, PlainSlot = 4, OperatorSlot = 5 };
} // namespace

LineColourer::LineColourer(const SectionDefinitions &definitions, const HighlightColours &colours)
    : m_definitions(definitions), m_colours(colours)
{
}

void LineColourer::setFlags(bool lineComment, bool string, bool blockComment)
{
    m_inLineComment = lineComment;
    m_inString = string;
    m_inBlockComment = blockComment;
}

const QString &LineColourer::sw(int slot) const
{
    return m_colours.colourSwitch(slot);
}

QString LineColourer::colourWord(const QString &piece, bool first)
{
    if (m_inLineComment) {
        if (!first)
            return sw(CommentSlot) + piece + sw(PlainSlot);
        m_inLineComment = false; // a line comment ends with its line
    }

    // The block suffix is taken off and put back uncoloured at the end; with an empty
    // suffix every word ends with it and nothing changes.
    QString word = piece;
    const QString &suffix = m_definitions.blockSuffix();
    const bool suffixCut = basictext::endsWith(word, suffix);
    if (suffixCut)
        word.chop(suffix.size());

    const QString trimmed = basictext::trim(word);
    if (trimmed.isEmpty())
        return word; // without its suffix

    const QString lower = trimmed.toLower();
    const bool keyword = m_definitions.isKeyword(lower);
    const bool function = m_definitions.isFunction(lower);
    const bool comment = m_definitions.isCommentMarker(lower.left(1));
    const bool op = m_definitions.isOperator(trimmed);
    const QString &delimiter = m_definitions.stringDelimiter();
    const qsizetype delimiterAt = basictext::inStr(trimmed, delimiter);

    // String state, unless the word is an empty string or holds a second delimiter.
    const bool emptyString = trimmed.left(2) == delimiter + delimiter;
    const bool secondDelimiter =
        delimiterAt > 0 && basictext::inStr(delimiterAt + 1, trimmed, delimiter) > 0;
    if (!emptyString && !secondDelimiter) {
        if (m_inString) {
            if (delimiterAt == 0)
                return piece; // string contents stay as they are
            m_inString = false;
        } else if (delimiterAt > 0) {
            m_inString = true;
        }
    }

    QString out = word;
    if (op)
        out = sw(OperatorSlot) + out + sw(PlainSlot);
    if (keyword)
        out = sw(KeywordSlot) + out + sw(PlainSlot);
    if (function)
        out = sw(FunctionSlot) + out + sw(PlainSlot);
    if (comment && !keyword && !function) {
        out = sw(CommentSlot) + out + sw(PlainSlot);
        m_inLineComment = true;
    }
    if (!keyword && !function && !comment)
        out = sw(PlainSlot) + out;
    if (suffixCut)
        out += suffix;
    return out;
}

QString LineColourer::colourLine(QString line)
{
    const QString trimmed = basictext::trim(line);
    const QString &opener = m_definitions.multiLineStart();
    const QString &closer = m_definitions.multiLineEnd();
    if (basictext::startsWith(trimmed, opener)) {
        m_inBlockComment = true;
        line = sw(CommentSlot) + line;
    }
    if (basictext::endsWith(trimmed, closer)) {
        m_inBlockComment = false;
        line = sw(CommentSlot) + line + sw(PlainSlot);
    }
    // A switch lasts until the next one: the lines of a block comment need no more.
    if (m_inBlockComment)
        return line;

    const QString lower = trimmed.toLower();
    for (const SectionDefinitions::CommentMarker &marker : m_definitions.commentMarkers())
        if (basictext::startsWith(lower, marker.marker))
            return sw(CommentSlot) + line;

    // Pieces run from one blank up to and including the next, so every blank is
    // written twice: after a switch RTF takes the first as the switch's delimiter.
    QString out;
    bool first = true;
    qsizetype from = 0;
    for (qsizetype blank = line.indexOf(u' '); blank >= 0; blank = line.indexOf(u' ', blank + 1)) {
        out += colourWord(line.mid(from, blank - from + 1), first);
        first = false;
        from = blank;
    }
    out += colourWord(line.mid(from), first);
    return out;
}

} // namespace tessaro
