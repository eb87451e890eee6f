// The editing commands of the editor control: block rewrites, indentation, the
// key handling of rtfMain, marks and the caret memory.

#include "editor/core/BlockEdit.h"
#include "editor/core/ColourScan.h"
#include "editor/core/DocumentColourer.h"
#include "editor/core/KeyCodes.h"
#include "editor/core/PropertyColour.h"
#include "editor/core/RtfDocument.h"
#include "editor/ui/SourceEditBox.h"
#include "editor/ui/srcText.h"
#include "platform/core/TextFile.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>

#include <algorithm>

namespace tessaro {

QString srcText::GetIndent(const QString &strLine) const
{
    return blockedit::GetIndent(strLine);
}

QString srcText::indentUnit() const
{
    return m_indentWithBlanks ? QString(std::max(1, m_indentValue), u' ') : QStringLiteral("\t");
}

QString srcText::commentMarkerForBlock() const
{
    if (!m_commentMarker.isEmpty())
        return m_commentMarker;
    // Java, JavaScript and C comment their lines with "//".
    if (m_mode == mode::C || m_mode == mode::Java || m_mode == mode::JavaScript)
        return QStringLiteral("//");
    return QString();
}

void srcText::CommentBlock()
{
    const QString marker = commentMarkerForBlock();
    if (!marker.isEmpty())
        rewriteBlock(marker, true);
}

void srcText::UncommentBlock()
{
    const QString marker = commentMarkerForBlock();
    if (!marker.isEmpty())
        rewriteBlock(marker, false);
}

void srcText::Indent()
{
    rewriteBlock(indentUnit(), true);
}

void srcText::Outdent()
{
    rewriteBlock(indentUnit(), false);
}

QString srcText::lineText(int line) const
{
    const qsizetype start = m_rtfMain->lineStart(line);
    return textfile::fromBytes(m_rtfMain->bytes(start, m_rtfMain->lineEnd(line)));
}

void srcText::rewriteBlock(const QString &marker, bool add)
{
    if (marker.isEmpty() || m_rtfMain->isReadOnly())
        return;
    QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    m_rtfMain->setUpdatesEnabled(false);
    m_busy = true;

    const qsizetype selStart = m_rtfMain->selectionStart();
    const qsizetype selEnd = m_rtfMain->selectionEnd();
    const int firstLine = m_rtfMain->lineOf(selStart);
    int lastLine = m_rtfMain->lineOf(selEnd);
    // A selection that ends at the very start of a line does not take that line in.
    if (selEnd > selStart && lastLine != firstLine && selEnd == m_rtfMain->lineStart(lastLine))
        --lastLine;

    const QByteArray markerBytes = textfile::toBytes(marker);
    m_rtfMain->send(SourceEditBox::SCI_BEGINUNDOACTION);
    for (int line = firstLine; line <= lastLine; ++line) {
        const qsizetype start = m_rtfMain->lineStart(line);
        if (add) {
            m_rtfMain->replaceRange(start, start, markerBytes);
        } else {
            const blockedit::Removal removal = blockedit::markerRemoval(lineText(line), marker);
            if (removal.offset >= 0)
                m_rtfMain->replaceRange(start + removal.offset,
                                        start + removal.offset + removal.length, {});
        }
    }
    m_rtfMain->send(SourceEditBox::SCI_ENDUNDOACTION);
    const qsizetype start = m_rtfMain->lineStart(firstLine);
    const qsizetype end = m_rtfMain->lineEnd(lastLine);
    const bool commenting = add && marker == commentMarkerForBlock();
    if (commenting && m_mode != mode::Html && DocumentColourer::modeColours(m_mode, false)) {
        // The commented block shows as a comment at once, without a colouring run.
        std::vector<RtfColourRun> comment;
        const ColourValue colour = shownColour(m_colourComment);
        for (int line = firstLine; line <= lastLine; ++line) {
            const qsizetype from = m_rtfMain->lineStart(line);
            comment.push_back({from - start, m_rtfMain->lineEnd(line) - from, colour});
        }
        styleRuns(start, end - start, comment);
    }
    select(start, end);
    m_busy = false;
    flushTyping();

    m_rtfMain->setUpdatesEnabled(true);
    m_rtfMain->viewport()->update();
    QGuiApplication::restoreOverrideCursor();
}

void srcText::InsertBlock(const QString &strCode, bool bReplaceSelection, bool bIndent)
{
    if (m_rtfMain->isReadOnly())
        return;
    const qsizetype anchor = m_rtfMain->anchor();
    const qsizetype caret = m_rtfMain->caret();
    const qsizetype at = m_rtfMain->selectionStart();
    const QString indent =
        bIndent ? blockedit::GetIndent(lineText(m_rtfMain->lineOf(at))) : QString();
    QString code = strCode;
    code.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    if (!indent.isEmpty())
        code.replace(QLatin1String("\n"), QLatin1String("\n") + indent);
    const QByteArray bytes = textfile::toBytes(withCrLfBreaks(code));
    if (bReplaceSelection) {
        // The caret ends after the block.
        m_rtfMain->replaceSelection(bytes);
    } else {
        // The block goes in front of the selected text, which moves with its text.
        m_rtfMain->replaceRange(at, at, bytes);
        m_rtfMain->select(anchor + bytes.size(), caret + bytes.size());
    }
    flushTyping();
    emitSelChangeIfMoved();
}

void srcText::FontBackColour(quint32 oColor)
{
    if (!m_rtfMain->hasSelection())
        return;
    // A background is a box indicator drawn under the text, one for each colour (the
    // box has 24 for its container); it moves with its text and no colouring touches
    // it.
    constexpr int FirstIndicator = 8;
    constexpr int Indicators = 24;
    const QColor colour = propertycolour::toColor(oColor, palette());
    const quint32 value = propertycolour::fromColor(colour);
    auto known = std::find(m_backColours.begin(), m_backColours.end(), value);
    if (known == m_backColours.end()) {
        if (int(m_backColours.size()) == Indicators)
            known = m_backColours.end() - 1;
        else
            known = m_backColours.insert(m_backColours.end(), value);
        const int indicator = FirstIndicator + int(known - m_backColours.begin());
        m_rtfMain->send(SourceEditBox::SCI_INDICSETSTYLE, indicator,
                        SourceEditBox::INDIC_STRAIGHTBOX);
        m_rtfMain->SendScintilla(SourceEditBox::SCI_INDICSETFORE, ulong(indicator), colour);
        m_rtfMain->send(SourceEditBox::SCI_INDICSETALPHA, indicator, 255);
        m_rtfMain->send(SourceEditBox::SCI_INDICSETOUTLINEALPHA, indicator, 255);
        m_rtfMain->send(SourceEditBox::SCI_INDICSETUNDER, indicator, 1);
    }
    const qsizetype start = m_rtfMain->selectionStart();
    const qsizetype length = m_rtfMain->selectionEnd() - start;
    for (std::size_t i = 0; i < m_backColours.size(); ++i) {
        m_rtfMain->send(SourceEditBox::SCI_SETINDICATORCURRENT, ulong(FirstIndicator + int(i)));
        m_rtfMain->send(SourceEditBox::SCI_INDICATORCLEARRANGE, ulong(start), length);
    }
    m_rtfMain->send(SourceEditBox::SCI_SETINDICATORCURRENT,
                    ulong(FirstIndicator + int(known - m_backColours.begin())));
    m_rtfMain->send(SourceEditBox::SCI_INDICATORFILLRANGE, ulong(start), length);
}

void srcText::SetViewMode(int eViewMode)
{
    switch (eViewMode) {
    case 0: m_rtfMain->send(SourceEditBox::SCI_SETWRAPMODE, SourceEditBox::SC_WRAP_NONE); break;
    case 1: m_rtfMain->send(SourceEditBox::SCI_SETWRAPMODE, SourceEditBox::SC_WRAP_WORD); break;
    case 2: m_rtfMain->send(SourceEditBox::SCI_SETWRAPMODE, SourceEditBox::SC_WRAP_CHAR); break;
    default: return;
    }
    m_viewMode = eViewMode;
}

// ---- Marks and the caret memory -----------------------------------------------------------

namespace {
// The box's marker that marks a line; it is drawn as the line's background.
constexpr int MarkMarker = 1;
} // namespace

void srcText::defineMarks()
{
    m_rtfMain->send(SourceEditBox::SCI_MARKERDEFINE, MarkMarker, SourceEditBox::SC_MARK_BACKGROUND);
    m_rtfMain->SendScintilla(SourceEditBox::SCI_MARKERSETBACK, MarkMarker, QColor(255, 243, 176));
}

void srcText::Mark()
{
    const int line = CurrentLine();
    if (m_rtfMain->send(SourceEditBox::SCI_MARKERGET, line) & (1 << MarkMarker))
        m_rtfMain->send(SourceEditBox::SCI_MARKERDELETE, line, MarkMarker);
    else
        m_rtfMain->send(SourceEditBox::SCI_MARKERADD, line, MarkMarker);
}

void srcText::ClearMarks()
{
    m_rtfMain->send(SourceEditBox::SCI_MARKERDELETEALL, MarkMarker);
}

QList<int> srcText::MarkedLines() const
{
    QList<int> lines;
    for (long line = m_rtfMain->send(SourceEditBox::SCI_MARKERNEXT, 0, 1 << MarkMarker); line >= 0;
         line = m_rtfMain->send(SourceEditBox::SCI_MARKERNEXT, ulong(line + 1), 1 << MarkMarker))
        lines.append(int(line));
    return lines;
}

void srcText::SaveCursorPos()
{
    m_savedCursor.start = SelStart();
    m_savedCursor.length = SelLength();
    m_savedCursor.vscroll = int(m_rtfMain->send(SourceEditBox::SCI_GETFIRSTVISIBLELINE));
    m_savedCursor.hscroll = int(m_rtfMain->send(SourceEditBox::SCI_GETXOFFSET));
    m_savedCursor.valid = true;
}

void srcText::RestoreCursorPos()
{
    if (!m_savedCursor.valid)
        return;
    SetSelection(m_savedCursor.start, m_savedCursor.start + m_savedCursor.length);
    m_rtfMain->send(SourceEditBox::SCI_SETFIRSTVISIBLELINE, ulong(m_savedCursor.vscroll));
    m_rtfMain->send(SourceEditBox::SCI_SETXOFFSET, ulong(m_savedCursor.hscroll));
}

// ---- Keys ------------------------------------------------------------------------------------

bool srcText::handleKeyDown(QKeyEvent *event)
{
    using namespace keycodes;
    int code = keyCode(*event);
    const int shift = shiftState(*event);
    const int pressed = code;
    Q_EMIT KeyDown(code, shift);
    if (pressed != 0 && code == 0)
        return true; // the container swallowed the key
    if (event->matches(QKeySequence::Undo)) {
        Undo();
        return true;
    }
    if (event->matches(QKeySequence::Redo)) {
        Redo();
        return true;
    }
    const bool ctrl = (shift & CtrlMask) && !(shift & AltMask);
    if (ctrl && code == V) {
        Paste();
        return true;
    }
    if (ctrl && code == C) {
        Copy();
        return true;
    }
    if (ctrl && code == X) {
        cutSelection();
        return true;
    }
    if (m_rtfMain->isReadOnly())
        return false;
    if (code == Enter && m_autoIndent && !ctrl) {
        autoIndentNewLine();
        return true;
    }
    if (code == Tab && !ctrl && handleTab(shift & ShiftMask))
        return true;
    if (code == Backspace && !ctrl && handleBackspace())
        return true;

    int ascii = keyAscii(*event);
    if (ascii != 0) {
        const int typed = ascii;
        Q_EMIT KeyPress(ascii);
        if (ascii == 0)
            return true;
        if (ascii != typed && ascii >= 32 && ascii != 127) {
            m_rtfMain->replaceSelection(textfile::toBytes(QString(QChar(ascii))));
            afterKey();
            return true;
        }
    }
    if (code == Enter) {
        // A plain line break, with Shift too.
        m_rtfMain->replaceSelection("\r\n");
        m_rtfMain->send(SourceEditBox::SCI_SCROLLCARET);
        afterKey();
        return true;
    }
    return false;
}

void srcText::afterKey()
{
    m_colouringFromKeys = true;
    flushTyping();
    m_colouringFromKeys = false;
    emitSelChangeIfMoved();
}

void srcText::handleKeyUp(QKeyEvent *event)
{
    int code = keycodes::keyCode(*event);
    Q_EMIT KeyUp(code, keycodes::shiftState(*event));
}

void srcText::autoIndentNewLine()
{
    m_busy = true;
    const QString indent =
        blockedit::GetIndent(lineText(m_rtfMain->lineOf(m_rtfMain->selectionStart())));
    m_rtfMain->replaceSelection(textfile::toBytes(QStringLiteral("\r\n") + indent));
    m_rtfMain->send(SourceEditBox::SCI_SCROLLCARET);
    m_busy = false;
    Q_EMIT SelChange();
    afterKey();
}

bool srcText::handleTab(bool backwards)
{
    const qsizetype selStart = m_rtfMain->selectionStart();
    const bool lines = m_rtfMain->lineOf(selStart) != m_rtfMain->lineOf(m_rtfMain->selectionEnd());
    if (backwards) {
        Outdent();
        return true;
    }
    if (lines) {
        Indent();
        return true;
    }
    if (!m_indentWithBlanks)
        return false; // the box inserts the tab
    const int width = std::max(1, m_indentValue);
    const int column = int(selStart - m_rtfMain->lineStart(m_rtfMain->lineOf(selStart)));
    m_rtfMain->replaceSelection(QByteArray(width - column % width, ' '));
    afterKey();
    return true;
}

bool srcText::handleBackspace()
{
    // With blank indentation, Backspace in the leading blanks goes back to the
    // previous indent stop.
    if (!m_indentWithBlanks || m_rtfMain->hasSelection() || m_indentValue < 1)
        return false;
    const qsizetype caret = m_rtfMain->caret();
    const int line = m_rtfMain->lineOf(caret);
    const int column = int(caret - m_rtfMain->lineStart(line));
    const QString before = lineText(line).left(column);
    if (column == 0 || before.count(u' ') != before.size())
        return false;
    const int back = column % m_indentValue == 0 ? m_indentValue : column % m_indentValue;
    m_rtfMain->replaceRange(caret - back, caret, {});
    afterKey();
    return true;
}

} // namespace tessaro
