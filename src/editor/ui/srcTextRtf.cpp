// The editor control's text as rich text: the rich-edit box's shape, with the colours
// the text carries (the styles of the box).

#include "editor/core/ColourTransfer.h"
#include "editor/core/DocumentColourer.h"
#include "editor/core/RtfDocument.h"
#include "editor/core/StyledText.h"
#include "editor/ui/ScintillaText.h"
#include "editor/ui/SourceEditBox.h"
#include "editor/ui/srcText.h"
#include "platform/core/TextFile.h"

#include <algorithm>

namespace tessaro {

std::vector<RtfColourRun> srcText::colourRuns(qsizetype from, qsizetype to) const
{
    std::vector<RtfColourRun> runs;
    // The styles come from the box in pieces: a style byte after each text byte.
    constexpr qsizetype Piece = 64 * 1024;
    QByteArray styled;
    for (qsizetype start = from; start < to; start += Piece) {
        const qsizetype end = std::min(to, start + Piece);
        styled.resize(2 * (end - start) + 2);
        m_rtfMain->SendScintilla(SourceEditBox::SCI_GETSTYLEDTEXT, long(start), long(end),
                                 styled.data());
        for (qsizetype i = start; i < end; ++i) {
            const int style = quint8(styled[2 * (i - start) + 1]);
            if (style == StyleTable::Plain)
                continue;
            const std::optional<ColourValue> colour = m_styles.colourOf(style);
            if (!colour)
                continue;
            const qsizetype at = i - from;
            if (!runs.empty() && runs.back().colour == *colour &&
                runs.back().start + runs.back().length == at)
                ++runs.back().length;
            else
                runs.push_back({at, 1, *colour});
        }
    }
    return runs;
}

void srcText::styleRuns(qsizetype from, qsizetype length, const std::vector<RtfColourRun> &runs)
{
    from = std::clamp<qsizetype>(from, 0, m_rtfMain->length());
    length = std::clamp<qsizetype>(length, 0, m_rtfMain->length() - from);
    const QByteArrayView text = m_rtfMain->range(from, length);
    QByteArray styles(length, char(StyleTable::Plain));
    const std::size_t stylesBefore = m_styles.styles().size();
    for (const RtfColourRun &run : runs) {
        const char style = char(m_styles.styleFor(run.colour));
        const qsizetype start = std::clamp<qsizetype>(run.start, 0, length);
        const qsizetype end = std::clamp<qsizetype>(run.start + run.length, start, length);
        for (qsizetype i = start; i < end; ++i) {
            // A line break never takes a colour.
            const char c = text[i];
            if (c != '\r' && c != '\n')
                styles[i] = style;
        }
    }
    if (m_styles.styles().size() != stylesBefore)
        applyStyles();
    m_text->setStyles(from, styles);
}

QString srcText::TextRTF() const
{
    return writeRtf(Text(), colourRuns(0, m_rtfMain->length()));
}

void srcText::setTextRTF(const QString &New_TextRTF)
{
    const RtfDocument rich = readRtf(New_TextRTF);
    // The same text takes the colours alone: its line breaks, its undo history and
    // its changed state stay.
    if (withCrLfBreaks(rich.text) != Text()) {
        setText(rich.text);
        m_colouring->forgetChanges();
    }
    // The colours come with the text: the lines are not coloured again.
    applyColourRuns(rich.runs);
}

void srcText::ColourFromRTF(const QString &strRTF)
{
    applyColourRuns(transferColours(Text(), readRtf(strRTF)));
}

void srcText::applyColourRuns(const std::vector<RtfColourRun> &runs)
{
    // The colours given replace what a run under way or the typing path would give.
    flushTyping();
    m_colouring->forgetChanges();
    if (m_colouring->isRunning())
        m_colouring->cancel();
    styleRuns(0, m_rtfMain->length(), runs);
}

QString srcText::SelRTF() const
{
    return writeRtf(SelText(), colourRuns(m_rtfMain->selectionStart(), m_rtfMain->selectionEnd()));
}

void srcText::setSelRTF(const QString &New_SelRTF)
{
    const RtfDocument rich = readRtf(New_SelRTF);
    // Changes waiting for the typing path are coloured first; the inserted text keeps
    // the colours it came with.
    flushTyping();
    const qsizetype start = m_rtfMain->selectionStart();
    const QByteArray bytes = textfile::toBytes(withCrLfBreaks(rich.text));
    m_busy = true;
    m_rtfMain->replaceSelection(bytes);
    m_busy = false;
    m_colouring->forgetChanges();
    styleRuns(start, bytes.size(), rich.runs);
    emitSelChangeIfMoved();
}

} // namespace tessaro
