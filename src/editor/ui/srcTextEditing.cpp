// The editing commands of the editor control: block rewrites, indentation, the
// key handling of rtfMain, marks and the caret memory.

#include "editor/core/BlockEdit.h"
#include "editor/core/ColourScan.h"
#include "editor/core/ColouredLines.h"
#include "editor/core/DocumentColourer.h"
#include "editor/core/EditorPositions.h"
#include "editor/core/KeyCodes.h"
#include "editor/core/PropertyColour.h"
#include "editor/ui/SourceEditBox.h"
#include "editor/ui/srcText.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace tessaro {

QString srcText::GetIndent(const QString &strLine) const { return blockedit::GetIndent(strLine); }

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

void srcText::Indent() { rewriteBlock(indentUnit(), true); }

void srcText::Outdent() { rewriteBlock(indentUnit(), false); }

void srcText::rewriteBlock(const QString &marker, bool add)
{
    if (marker.isEmpty() || m_rtfMain->isReadOnly())
        return;
    QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    m_rtfMain->setUpdatesEnabled(false);
    m_busy = true;

    QTextDocument *doc = m_rtfMain->document();
    const QTextCursor selection = m_rtfMain->textCursor();
    QTextBlock first = doc->findBlock(selection.selectionStart());
    QTextBlock last = doc->findBlock(selection.selectionEnd());
    // A selection that ends at the very start of a line does not take that line in.
    if (selection.hasSelection() && last != first && selection.selectionEnd() == last.position())
        last = last.previous();
    const int firstLine = first.blockNumber();
    const int lastLine = last.blockNumber();

    QTextCursor cursor(doc);
    cursor.beginEditBlock();
    for (QTextBlock block = first; block.isValid() && block.blockNumber() <= lastLine;
         block = block.next()) {
        if (add) {
            cursor.setPosition(block.position());
            cursor.insertText(marker);
        } else {
            const blockedit::Removal removal = blockedit::markerRemoval(block.text(), marker);
            if (removal.offset >= 0) {
                cursor.setPosition(block.position() + removal.offset);
                cursor.setPosition(block.position() + removal.offset + removal.length,
                                   QTextCursor::KeepAnchor);
                cursor.removeSelectedText();
            }
        }
    }
    cursor.endEditBlock();
    const QTextBlock lastBlock = doc->findBlockByNumber(lastLine);
    const int start = doc->findBlockByNumber(firstLine).position();
    const int end = lastBlock.position() + lastBlock.length() - 1;
    const bool commenting = add && marker == commentMarkerForBlock();
    if (commenting && m_mode != mode::Html && DocumentColourer::modeColours(m_mode, false)) {
        // The commented block shows as a comment at once, without a colouring run.
        QTextLayout::FormatRange comment;
        comment.format.setForeground(propertycolour::toColor(m_colourComment, palette()));
        ColouredLines lines(doc);
        for (QTextBlock block = doc->findBlockByNumber(firstLine);
             block.isValid() && block.blockNumber() <= lastLine; block = block.next()) {
            comment.start = 0;
            comment.length = block.length() - 1;
            lines.setColours(block, comment.length > 0 ? ColouredLines::Ranges{comment}
                                                       : ColouredLines::Ranges{});
        }
    }

    QTextCursor selected(doc);
    selected.setPosition(start);
    selected.setPosition(end, QTextCursor::KeepAnchor);
    m_rtfMain->setTextCursor(selected);
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
    QTextCursor cursor = m_rtfMain->textCursor();
    if (!bReplaceSelection)
        cursor.setPosition(cursor.selectionStart()); // in front of the selected text
    const QString indent =
        bIndent ? blockedit::GetIndent(cursor.document()->findBlock(cursor.selectionStart()).text())
                : QString();
    QString code = strCode;
    code.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    if (!indent.isEmpty())
        code.replace(QLatin1String("\n"), QLatin1String("\n") + indent);
    cursor.beginEditBlock();
    cursor.insertText(code);
    cursor.endEditBlock();
    // A kept selection moves with its text; a replaced one leaves the caret after
    // the block.
    if (bReplaceSelection)
        m_rtfMain->setTextCursor(cursor);
    flushTyping();
}

void srcText::FontBackColour(quint32 oColor)
{
    QTextCursor cursor = m_rtfMain->textCursor();
    if (!cursor.hasSelection())
        return;
    QTextCharFormat format;
    format.setBackground(propertycolour::toColor(oColor, palette()));
    cursor.mergeCharFormat(format);
}

void srcText::SetViewMode(int eViewMode)
{
    switch (eViewMode) {
    case 0: m_rtfMain->setLineWrapMode(QPlainTextEdit::NoWrap); break;
    case 1:
        m_rtfMain->setLineWrapMode(QPlainTextEdit::WidgetWidth);
        m_rtfMain->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        break;
    case 2:
        m_rtfMain->setLineWrapMode(QPlainTextEdit::WidgetWidth);
        m_rtfMain->setWordWrapMode(QTextOption::WrapAnywhere);
        break;
    default: return;
    }
    m_viewMode = eViewMode;
}

// ---- Marks and the caret memory -----------------------------------------------------------

void srcText::Mark()
{
    QTextCursor line = m_rtfMain->textCursor();
    line.clearSelection();
    line.movePosition(QTextCursor::StartOfBlock);
    const int number = line.blockNumber();
    const auto existing = std::find_if(m_marks.begin(), m_marks.end(), [&](const QTextCursor &c) {
        return c.blockNumber() == number;
    });
    if (existing != m_marks.end())
        m_marks.erase(existing);
    else
        m_marks.append(line);
    updateMarks();
}

void srcText::ClearMarks()
{
    m_marks.clear();
    updateMarks();
}

QList<int> srcText::MarkedLines() const
{
    QList<int> lines;
    for (const QTextCursor &mark : m_marks)
        if (!lines.contains(mark.blockNumber()))
            lines.append(mark.blockNumber());
    std::sort(lines.begin(), lines.end());
    return lines;
}

void srcText::updateMarks()
{
    QList<QTextEdit::ExtraSelection> selections;
    for (const QTextCursor &mark : m_marks) {
        QTextEdit::ExtraSelection selection;
        selection.cursor = mark;
        selection.format.setBackground(QColor(255, 243, 176));
        selection.format.setProperty(QTextFormat::FullWidthSelection, true);
        selections.append(selection);
    }
    m_rtfMain->setExtraSelections(selections);
}

void srcText::SaveCursorPos()
{
    m_savedCursor.start = SelStart();
    m_savedCursor.length = SelLength();
    m_savedCursor.vscroll = m_rtfMain->verticalScrollBar()->value();
    m_savedCursor.hscroll = m_rtfMain->horizontalScrollBar()->value();
    m_savedCursor.valid = true;
}

void srcText::RestoreCursorPos()
{
    if (!m_savedCursor.valid)
        return;
    SetSelection(m_savedCursor.start, m_savedCursor.start + m_savedCursor.length);
    m_rtfMain->verticalScrollBar()->setValue(m_savedCursor.vscroll);
    m_rtfMain->horizontalScrollBar()->setValue(m_savedCursor.hscroll);
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
            m_rtfMain->insertPlainText(QString(QChar(ascii)));
            afterKey();
            return true;
        }
    }
    if (code == Enter) {
        // A plain line break: never the line separator that Shift+Enter would give.
        m_rtfMain->textCursor().insertText(QStringLiteral("\n"));
        m_rtfMain->ensureCursorVisible();
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
}

void srcText::handleKeyUp(QKeyEvent *event)
{
    int code = keycodes::keyCode(*event);
    Q_EMIT KeyUp(code, keycodes::shiftState(*event));
}

void srcText::autoIndentNewLine()
{
    m_busy = true;
    QTextCursor cursor = m_rtfMain->textCursor();
    const QString indent =
        blockedit::GetIndent(cursor.document()->findBlock(cursor.selectionStart()).text());
    cursor.beginEditBlock();
    cursor.insertText(QStringLiteral("\n") + indent);
    cursor.endEditBlock();
    m_rtfMain->setTextCursor(cursor);
    m_rtfMain->ensureCursorVisible();
    m_busy = false;
    Q_EMIT SelChange();
    afterKey();
}

bool srcText::handleTab(bool backwards)
{
    const QTextCursor cursor = m_rtfMain->textCursor();
    const QTextDocument *doc = m_rtfMain->document();
    const bool lines = cursor.hasSelection() && doc->findBlock(cursor.selectionStart()) !=
                                                    doc->findBlock(cursor.selectionEnd());
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
    const int column = cursor.selectionStart() - doc->findBlock(cursor.selectionStart()).position();
    m_rtfMain->insertPlainText(QString(width - column % width, u' '));
    afterKey();
    return true;
}

bool srcText::handleBackspace()
{
    // With blank indentation, Backspace in the leading blanks goes back to the
    // previous indent stop.
    QTextCursor cursor = m_rtfMain->textCursor();
    if (!m_indentWithBlanks || cursor.hasSelection() || m_indentValue < 1)
        return false;
    const int column = cursor.positionInBlock();
    const QString before = cursor.block().text().left(column);
    if (column == 0 || before.count(u' ') != before.size())
        return false;
    const int back = column % m_indentValue == 0 ? m_indentValue : column % m_indentValue;
    cursor.setPosition(cursor.position() - back, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    m_rtfMain->setTextCursor(cursor);
    afterKey();
    return true;
}

} // namespace tessaro
