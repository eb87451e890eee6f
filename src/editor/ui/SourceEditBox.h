#pragma once

#include "editor/ui/QsciBase.h"

#include <QByteArrayView>

namespace tessaro {

class srcText;

// The visible text box of the editor control (rtfMain): a Scintilla editor holding the
// text as 8-bit bytes with every line break CR LF, so a position is a byte and a
// break counts two. It hands its keys and its pastes to the control first, so that
// they go through the control's own paths, and knows only the keys of a plain
// rich-edit box: none of Scintilla's own commands that change the text.
class SourceEditBox : public QsciScintillaBase
{
    Q_OBJECT
public:
    explicit SourceEditBox(srcText *owner);

    long send(unsigned int message, unsigned long wParam = 0, long lParam = 0) const
    {
        return SendScintilla(message, wParam, lParam);
    }

    qsizetype length() const { return send(SCI_GETLENGTH); }
    // The whole text, valid until the next change.
    QByteArrayView bytes() const;
    // Replaces the whole text without an undo step; the history is emptied.
    void setBytes(QByteArrayView text);
    // The bytes of [from, to).
    QByteArray bytes(qsizetype from, qsizetype to) const;

    qsizetype caret() const { return send(SCI_GETCURRENTPOS); }
    qsizetype anchor() const { return send(SCI_GETANCHOR); }
    qsizetype selectionStart() const { return send(SCI_GETSELECTIONSTART); }
    qsizetype selectionEnd() const { return send(SCI_GETSELECTIONEND); }
    bool hasSelection() const { return selectionEnd() > selectionStart(); }
    // Selects from anchor to caret and shows the caret.
    void select(qsizetype anchor, qsizetype caret);
    // Replaces the selection with the bytes (which may hold NUL bytes); the caret
    // ends after them.
    void replaceSelection(QByteArrayView text);

    int lineOf(qsizetype position) const { return int(send(SCI_LINEFROMPOSITION, position)); }
    qsizetype lineStart(int line) const { return send(SCI_POSITIONFROMLINE, line); }
    qsizetype lineEnd(int line) const { return send(SCI_GETLINEENDPOSITION, line); }
    int lineCount() const { return int(send(SCI_GETLINECOUNT)); }
    // Number of the first line shown (a line wrapped over several rows counts once).
    int firstVisibleLine() const;

    bool isReadOnly() const { return send(SCI_GETREADONLY) != 0; }
    void setReadOnly(bool readOnly) { send(SCI_SETREADONLY, readOnly); }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    QByteArray fromMimeData(const QMimeData *source, bool &rectangular) const override;
    QMimeData *toMimeData(const QByteArray &text, bool rectangular) const override;

private:
    void bindKeys();

    srcText *m_owner;
};

} // namespace tessaro
