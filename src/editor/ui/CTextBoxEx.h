#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <QPlainTextEdit>

namespace tessaro {

// Line-level operations on a plain multi-line text box, with the results of the
// edit-control messages they stand for. Positions count a line break as two
// characters (CR LF), lines are the text's lines numbered from 0.
//
// The class also handles the box's key-down: Ctrl+A selects the whole text, which a
// plain edit box does not do by itself.
class CTextBoxEx : public QObject
{
    Q_OBJECT
public:
    explicit CTextBoxEx(QObject *parent = nullptr) : QObject(parent) {}

    // Attaches the box (kept as mtxtBox) and starts handling its keys.
    void TextBox(QPlainTextEdit *txtNewBox);
    QPlainTextEdit *mtxtBox() const { return m_box; }

    // EM_LINELENGTH: length of the line holding the offset (without its break);
    // -1 gives the length of the caret line's text outside the selection.
    int LineLen(qsizetype CharPos) const;
    // EM_LINEFROMCHAR: the line holding the offset; -1 gives the caret's line.
    int GetLineFromChar(qsizetype CharPos) const;
    // EM_GETLINECOUNT: at least 1.
    int LineCount() const;
    // EM_GETFIRSTVISIBLELINE.
    int TopLine() const;
    // EM_CANUNDO.
    bool CanUndo() const;
    // EM_LINEINDEX: offset of the line's first character; -1 when the line does not
    // exist; line -1 is the caret's line.
    qsizetype GetCharFromLine(int LineIndex) const;
    // The line's text: empty for a line number at or past LineCount and for an empty
    // line.
    QString GetLine(int LineIndex) const;
    // EM_UNDO.
    void Undo();
    // EM_SETMODIFY / EM_GETMODIFY.
    void SetModified(bool blnDirty);
    bool Modified() const;
    // The caret's line (EM_LINEFROMCHAR with -1).
    int CurrentLine() const { return GetLineFromChar(-1); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<QPlainTextEdit> m_box;
};

} // namespace tessaro
