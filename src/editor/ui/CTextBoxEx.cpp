#include "editor/ui/CTextBoxEx.h"

#include "editor/core/EditorPositions.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

namespace tessaro {

void CTextBoxEx::TextBox(QPlainTextEdit *txtNewBox)
{
    if (m_box)
        m_box->removeEventFilter(this);
    m_box = txtNewBox;
    if (m_box)
        m_box->installEventFilter(this);
}

bool CTextBoxEx::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_box && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_A && key->modifiers() == Qt::ControlModifier) {
            m_box->selectAll();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

int CTextBoxEx::LineLen(qsizetype CharPos) const
{
    if (!m_box)
        return 0;
    const QTextDocument &doc = *m_box->document();
    if (CharPos < 0) {
        // The characters of the caret's lines that lie outside the selection.
        const QTextCursor cursor = m_box->textCursor();
        const QTextBlock first = doc.findBlock(cursor.selectionStart());
        const QTextBlock last = doc.findBlock(cursor.selectionEnd());
        const int before = cursor.selectionStart() - first.position();
        const int after = last.position() + last.length() - 1 - cursor.selectionEnd();
        return before + after;
    }
    return doc.findBlock(positions::toDocument(doc, CharPos)).length() - 1;
}

int CTextBoxEx::GetLineFromChar(qsizetype CharPos) const
{
    if (!m_box)
        return 0;
    if (CharPos < 0)
        return m_box->textCursor().blockNumber();
    const QTextDocument &doc = *m_box->document();
    return doc.findBlock(positions::toDocument(doc, CharPos)).blockNumber();
}

int CTextBoxEx::LineCount() const { return m_box ? m_box->document()->blockCount() : 0; }

int CTextBoxEx::TopLine() const
{
    return m_box ? m_box->cursorForPosition(QPoint(0, 0)).blockNumber() : 0;
}

bool CTextBoxEx::CanUndo() const { return m_box && m_box->document()->isUndoAvailable(); }

qsizetype CTextBoxEx::GetCharFromLine(int LineIndex) const
{
    if (!m_box)
        return -1;
    const QTextDocument &doc = *m_box->document();
    if (LineIndex == -1)
        LineIndex = m_box->textCursor().blockNumber();
    if (LineIndex < 0 || LineIndex >= doc.blockCount())
        return -1;
    return positions::toPublic(doc, doc.findBlockByNumber(LineIndex).position());
}

QString CTextBoxEx::GetLine(int LineIndex) const
{
    if (!m_box || LineIndex >= LineCount())
        return QString();
    const qsizetype start = GetCharFromLine(LineIndex);
    if (start < 0)
        return QString();
    const int length = LineLen(start);
    if (length < 1)
        return QString();
    const QTextDocument &doc = *m_box->document();
    return doc.findBlock(positions::toDocument(doc, start)).text().left(length);
}

void CTextBoxEx::Undo()
{
    if (m_box)
        m_box->undo();
}

void CTextBoxEx::SetModified(bool blnDirty)
{
    if (m_box)
        m_box->document()->setModified(blnDirty);
}

bool CTextBoxEx::Modified() const { return m_box && m_box->document()->isModified(); }

} // namespace tessaro
