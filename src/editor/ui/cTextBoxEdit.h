#pragma once

#include <QPointer>
#include <QString>

class QPlainTextEdit;

namespace tessaro {

// Undo and selection replacement on a plain multi-line text box, with the results of
// the edit-control messages they stand for (EM_CANUNDO, EM_UNDO, EM_REPLACESEL).
class cTextBoxEdit
{
public:
    // Attaches the box the operations work on.
    void Attach(QPlainTextEdit *txtThis) { m_box = txtThis; }
    QPlainTextEdit *box() const { return m_box; }

    // Undoes the last change, only when there is one to undo.
    void Undo();
    bool CanUndo() const;
    // Replaces the selection of the box by the text. Without bAllowUndo the
    // replacement cannot be undone, and neither can anything before it.
    void ReplaceSelection(QPlainTextEdit *txtThis, const QString &sText, bool bAllowUndo);
    // Deletes the selection, without undo.
    void ClearSelection();

private:
    QPointer<QPlainTextEdit> m_box;
};

} // namespace tessaro
