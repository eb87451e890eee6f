#include "editor/ui/cTextBoxEdit.h"

#include <QPlainTextEdit>

namespace tessaro {

bool cTextBoxEdit::CanUndo() const { return m_box && m_box->document()->isUndoAvailable(); }

void cTextBoxEdit::Undo()
{
    if (CanUndo())
        m_box->undo();
}

void cTextBoxEdit::ReplaceSelection(QPlainTextEdit *txtThis, const QString &sText, bool bAllowUndo)
{
    if (!txtThis)
        return;
    QTextDocument *doc = txtThis->document();
    const bool undoWasOn = doc->isUndoRedoEnabled();
    // A replacement that may not be undone also empties the undo history, as the
    // edit control's single-level undo does.
    if (!bAllowUndo)
        doc->setUndoRedoEnabled(false);
    txtThis->insertPlainText(sText);
    if (!bAllowUndo)
        doc->setUndoRedoEnabled(undoWasOn);
}

void cTextBoxEdit::ClearSelection()
{
    if (m_box)
        ReplaceSelection(m_box, QString(), false);
}

} // namespace tessaro
