#pragma once

#include "editor/ui/QsciBase.h"

#include <QByteArrayView>
#include <QColor>

#include <optional>

namespace tessaro {

class srcText;

// The visible text box of the editor control (rtfMain): a Scintilla editor holding the
// text as 8-bit bytes with every line break CR LF, so a position is a byte and a
// break counts two. It hands its keys and its pastes to the control first, so that
// they go through the control's own paths, and knows only the keys of a plain
// rich-edit box: none of Scintilla's own commands that change the text.
//
// Edits are told (edited) once they are made, from the notice Scintilla gives before
// each one: the notices after an edit would cost the Qt port a count of every
// character up to the edit, for its accessibility events. The box keeps its lines'
// states (LineState) right through the edits: the line that an edit splits gives its
// break to the last of its parts, whose comment state is then unknown, as are the new
// lines' (their break is the usual one); the line that a deletion joins others to
// takes the break of the last one.
class SourceEditBox : public QsciScintillaBase
{
    Q_OBJECT
public:
    explicit SourceEditBox(srcText *owner);

    // Tells of the edit under way (edited), if any: every change of the text is told
    // by the time a call of the box's that changes it returns.
    void settle();
    // The token that marks an undo step as a respelling.
    static constexpr int RespellingMarker = 1;

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
    QByteArray bytes(qsizetype from, qsizetype to) const
    {
        return range(from, to - from).toByteArray();
    }
    // A part of the text in place, valid until the next change. Only a part that holds
    // the gap Scintilla keeps at the last edit is moved to be read, where bytes()
    // moves the gap to the end of the text.
    QByteArrayView range(qsizetype from, qsizetype length) const;
    char at(qsizetype position) const { return char(send(SCI_GETCHARAT, ulong(position))); }

    qsizetype caret() const { return send(SCI_GETCURRENTPOS); }
    qsizetype anchor() const { return send(SCI_GETANCHOR); }
    qsizetype selectionStart() const { return send(SCI_GETSELECTIONSTART); }
    qsizetype selectionEnd() const { return send(SCI_GETSELECTIONEND); }
    bool hasSelection() const { return selectionEnd() > selectionStart(); }
    // Selects from anchor to caret and shows the caret.
    void select(qsizetype anchor, qsizetype caret);
    // Replaces [from, to) with the bytes (which may hold NUL bytes) as one undo step
    // and tells of the edit; positions after it move with the text.
    void replaceRange(qsizetype from, qsizetype to, QByteArrayView text);
    // Replaces the selection; the caret ends after the bytes.
    void replaceSelection(QByteArrayView text);
    // A colour as Scintilla gives it (red + 256 * green + 65536 * blue).
    static QColor colourOf(long value)
    {
        return QColor(int(value & 0xff), int((value >> 8) & 0xff), int((value >> 16) & 0xff));
    }
    // The colour a character shows in: the foreground of its style.
    QColor foregroundAt(qsizetype position) const
    {
        return colourOf(send(SCI_STYLEGETFORE, ulong(send(SCI_GETSTYLEAT, ulong(position)))));
    }

    int lineOf(qsizetype position) const { return int(send(SCI_LINEFROMPOSITION, position)); }
    qsizetype lineStart(int line) const { return send(SCI_POSITIONFROMLINE, line); }
    qsizetype lineEnd(int line) const { return send(SCI_GETLINEENDPOSITION, line); }
    int lineCount() const { return int(send(SCI_GETLINECOUNT)); }
    // Number of the first line shown (a line wrapped over several rows counts once).
    int firstVisibleLine() const;

    bool isReadOnly() const { return send(SCI_GETREADONLY) != 0; }
    void setReadOnly(bool readOnly) { send(SCI_SETREADONLY, readOnly); }

Q_SIGNALS:
    // An edit of the text, once it is made: at `position`, `removed` bytes went and
    // `added` came.
    void edited(qsizetype position, qsizetype removed, qsizetype added);
    // Undo or Redo went through a step marked with the token.
    void undoMarkerPassed(int token);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    QByteArray fromMimeData(const QMimeData *source, bool &rectangular) const override;
    QMimeData *toMimeData(const QByteArray &text, bool rectangular) const override;

private:
    void bindKeys();
    void onModified(int position, int type, int length);

    struct PendingEdit
    {
        bool insertion = false;
        qsizetype position = 0;
        qsizetype length = 0;
        int line = 0;      // the line of the edit's start
        int lastLine = 0;  // a deletion's last line
        int keptState = 0; // the state whose break the edited line keeps
    };
    std::optional<PendingEdit> m_pending;
    bool m_settleQueued = false;
    srcText *m_owner;
};

} // namespace tessaro
