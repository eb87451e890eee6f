// The editor control's text as rich text: the rich-edit box's shape, with the colours
// the text carries.

#include "editor/core/ColourTransfer.h"
#include "editor/core/ColouredLines.h"
#include "editor/core/DocumentColourer.h"
#include "editor/core/EditorPositions.h"
#include "editor/core/PropertyColour.h"
#include "editor/core/RtfDocument.h"
#include "editor/ui/SourceEditBox.h"
#include "editor/ui/srcText.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace tessaro {

namespace {

// The colour runs of a document range, at positions of the range's CR LF text.
std::vector<RtfColourRun> colourRuns(const QTextDocument &doc, int from, int to)
{
    std::vector<RtfColourRun> runs;
    const qsizetype base = positions::toPublic(doc, from);
    for (QTextBlock block = doc.findBlock(from); block.isValid() && block.position() < to;
         block = block.next()) {
        const int b0 = block.position();
        for (const QTextLayout::FormatRange &range : ColouredLines::colours(block)) {
            if (!range.format.hasProperty(QTextFormat::ForegroundBrush))
                continue;
            const int start = std::max(from, b0 + range.start);
            const int end = std::min({to, b0 + range.start + range.length, b0 + block.length() - 1});
            if (end <= start)
                continue;
            const qsizetype pubStart = qsizetype(start) + block.blockNumber() - base;
            const ColourValue colour = propertycolour::fromColor(range.format.foreground().color());
            if (!runs.empty() && runs.back().colour == colour &&
                runs.back().start + runs.back().length == pubStart)
                runs.back().length += end - start;
            else
                runs.push_back({pubStart, end - start, colour});
        }
    }
    return runs;
}

// Gives the document range [from, to) the colours of the runs (positions of the
// range's CR LF text); the lines' colours outside the range stay.
void applyRuns(QTextDocument &doc, int from, int to, const std::vector<RtfColourRun> &runs,
               const QPalette &palette)
{
    const qsizetype base = positions::toPublic(doc, from);
    ColouredLines lines(&doc);
    std::size_t next = 0;
    for (QTextBlock block = doc.findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        const int b0 = block.position();
        const int lineEnd = b0 + block.length() - 1;
        ColouredLines::Ranges ranges;
        for (QTextLayout::FormatRange range : ColouredLines::colours(block)) {
            // What lies outside the range keeps its colour.
            const int start = b0 + range.start;
            const int end = start + range.length;
            if (start < from) {
                QTextLayout::FormatRange before = range;
                before.length = std::min(end, from) - start;
                ranges.append(before);
            }
            if (end > to) {
                range.start = std::max(start, to) - b0;
                range.length = end - b0 - range.start;
                ranges.append(range);
            }
        }
        for (; next < runs.size(); ++next) {
            const RtfColourRun &run = runs[next];
            const int start = positions::toDocument(doc, base + run.start);
            const int end = positions::toDocument(doc, base + run.start + run.length);
            if (start >= lineEnd)
                break;
            const int s = std::max({start, b0, from});
            const int e = std::min({end, lineEnd, to});
            if (e > s) {
                QTextLayout::FormatRange range;
                range.start = s - b0;
                range.length = e - s;
                range.format.setForeground(propertycolour::toColor(run.colour, palette));
                ranges.append(range);
            }
            if (end > lineEnd)
                break; // the run goes on in the next line
        }
        std::sort(ranges.begin(), ranges.end(),
                  [](const auto &a, const auto &b) { return a.start < b.start; });
        lines.setColours(block, ranges);
    }
}

int documentEnd(const QTextDocument &doc) { return doc.characterCount() - 1; }

} // namespace

QString srcText::TextRTF() const
{
    const QTextDocument &doc = *m_rtfMain->document();
    return writeRtf(Text(), colourRuns(doc, 0, documentEnd(doc)));
}

void srcText::setTextRTF(const QString &New_TextRTF)
{
    const RtfDocument rich = readRtf(New_TextRTF);
    // The same text takes the colours alone: its line breaks, its undo history and
    // its changed state stay.
    if (rich.text != Text()) {
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
    QTextDocument &doc = *m_rtfMain->document();
    applyRuns(doc, 0, documentEnd(doc), runs, palette());
}

QString srcText::SelRTF() const
{
    const QTextCursor cursor = m_rtfMain->textCursor();
    return writeRtf(SelText(), colourRuns(*m_rtfMain->document(), cursor.selectionStart(),
                                          cursor.selectionEnd()));
}

void srcText::setSelRTF(const QString &New_SelRTF)
{
    const RtfDocument rich = readRtf(New_SelRTF);
    // Changes waiting for the typing path are coloured first; the inserted text keeps
    // the colours it came with.
    flushTyping();
    QTextCursor cursor = m_rtfMain->textCursor();
    m_busy = true;
    const int start = cursor.selectionStart();
    cursor.insertText(rich.text);
    m_busy = false;
    m_colouring->forgetChanges();
    applyRuns(*m_rtfMain->document(), start, cursor.position(), rich.runs, palette());
    m_rtfMain->setTextCursor(cursor);
}

void srcText::printColours(QTextDocument &printed, int from, int to) const
{
    QTextCursor cursor(&printed);
    QTextCharFormat format;
    for (const RtfColourRun &run : colourRuns(*m_rtfMain->document(), from, to)) {
        format.setForeground(propertycolour::toColor(run.colour, palette()));
        cursor.setPosition(positions::toDocument(printed, run.start));
        cursor.setPosition(positions::toDocument(printed, run.start + run.length),
                           QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(format);
    }
}

} // namespace tessaro
