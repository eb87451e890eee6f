// The editor control's text as rich text: the rich-edit box's shape, with the colours
// the text carries.

#include "editor/core/PropertyColour.h"
#include "editor/core/DocumentColourer.h"
#include "editor/core/EditorPositions.h"
#include "editor/core/RtfDocument.h"
#include "editor/ui/SourceEditBox.h"
#include "editor/ui/srcText.h"

#include <QTextBlock>
#include <QTextDocument>

namespace tessaro {

namespace {

// The colour runs of a document range, at positions of the range's CR LF text.
std::vector<RtfColourRun> colourRuns(const QTextDocument &doc, int from, int to)
{
    std::vector<RtfColourRun> runs;
    const qsizetype base = positions::toPublic(doc, from);
    for (QTextBlock block = doc.findBlock(from); block.isValid() && block.position() < to;
         block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const QTextCharFormat format = fragment.charFormat();
            if (!format.hasProperty(QTextFormat::ForegroundBrush))
                continue;
            const int start = std::max(from, fragment.position());
            const int end = std::min(to, fragment.position() + fragment.length());
            if (end <= start)
                continue;
            const qsizetype pubStart = qsizetype(start) + block.blockNumber() - base;
            const ColourValue colour = propertycolour::fromColor(format.foreground().color());
            if (!runs.empty() && runs.back().colour == colour &&
                runs.back().start + runs.back().length == pubStart)
                runs.back().length += end - start;
            else
                runs.push_back({pubStart, end - start, colour});
        }
    }
    return runs;
}

// Gives the text from a document position on the colours of the runs.
void applyRuns(QTextDocument &doc, int from, const std::vector<RtfColourRun> &runs,
               const QPalette &palette)
{
    const qsizetype base = positions::toPublic(doc, from);
    QTextCursor cursor(&doc);
    QTextCharFormat format;
    for (const RtfColourRun &run : runs) {
        format.setForeground(propertycolour::toColor(run.colour, palette));
        cursor.setPosition(positions::toDocument(doc, base + run.start));
        cursor.setPosition(positions::toDocument(doc, base + run.start + run.length),
                           QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(format);
    }
}

} // namespace

QString srcText::TextRTF() const
{
    const QTextDocument &doc = *m_rtfMain->document();
    return writeRtf(Text(), colourRuns(doc, 0, doc.characterCount() - 1));
}

void srcText::setTextRTF(const QString &New_TextRTF)
{
    const RtfDocument rich = readRtf(New_TextRTF);
    setText(rich.text);
    // The colours come with the text: the lines are not coloured again.
    m_colouring->forgetChanges();
    QTextDocument &doc = *m_rtfMain->document();
    doc.setUndoRedoEnabled(false);
    applyRuns(doc, 0, rich.runs, palette());
    doc.setUndoRedoEnabled(true);
    m_colouring->forgetUndoSteps();
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
    QTextCursor cursor = m_rtfMain->textCursor();
    cursor.beginEditBlock();
    const int start = cursor.selectionStart();
    cursor.insertText(rich.text);
    applyRuns(*m_rtfMain->document(), start, rich.runs, palette());
    cursor.endEditBlock();
    m_rtfMain->setTextCursor(cursor);
}

} // namespace tessaro
