#include "editor/ui/SourceEditBox.h"

#include "editor/core/LineEnds.h"
#include "editor/core/StyledText.h"
#include "editor/ui/srcText.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QTimer>

namespace tessaro {

namespace {

// Without an assistive technology listening, the box is described as a plain editable
// widget: the Qt port's own description counts every character up to the caret at
// each move, which a 10 MB text makes a pause of its own.
QAccessibleInterface *plainDescription(const QString &className, QObject *object)
{
    if (className == QLatin1String("tessaro::SourceEditBox") && !QAccessible::isActive())
        return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::EditableText);
    return nullptr;
}

} // namespace

SourceEditBox::SourceEditBox(srcText *owner) : QsciScintillaBase(owner), m_owner(owner)
{
    static const bool described = (QAccessible::installFactory(plainDescription), true);
    Q_UNUSED(described);
    setObjectName(QStringLiteral("rtfMain"));
    // 8-bit text (every byte one character, shown as Latin-1), CR LF line breaks, no
    // wrapping, no margins: the box shows the text and nothing else.
    send(SCI_SETCODEPAGE, 0);
    send(SCI_SETEOLMODE, SC_EOL_CRLF);
    send(SCI_SETWRAPMODE, SC_WRAP_NONE);
    for (int margin = 0; margin < 5; ++margin)
        send(SCI_SETMARGINWIDTHN, margin, 0);
    send(SCI_SETMARGINLEFT, 0, 4);
    // The control styles the text itself: the box's lexer is the container.
    send(SCI_SETLEXER, SCLEX_CONTAINER);
    send(SCI_SETSCROLLWIDTHTRACKING, 1);
    send(SCI_SETSCROLLWIDTH, 1);
    // Drag and drop of text within the box, as in a rich-edit box.
    send(SCI_USEPOPUP, 0);
    bindKeys();
    // Edits are told from the notices before them (see the class comment); the
    // notices of the undo steps' markers come as Undo and Redo pass them.
    send(SCI_SETMODEVENTMASK, SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE | SC_MOD_CONTAINER);
    connect(this, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int position, int type, const char *, int length, int, int, int, int, int token,
                   int) {
                if (type & SC_MOD_CONTAINER)
                    Q_EMIT undoMarkerPassed(token);
                else
                    onModified(position, type, length);
            });
    // Styles are claimed as they are asked for: the control has set them already.
    connect(this, &QsciScintillaBase::SCN_STYLENEEDED, this,
            [this](int position) { send(SCI_STARTSTYLING, position, 0); });
}

void SourceEditBox::bindKeys()
{
    // Scintilla's own key map has keys that change the text in ways a rich-edit box
    // does not (cut a line, swap lines, change case, ...): only the box's keys stay.
    send(SCI_CLEARALLCMDKEYS);
    struct Binding
    {
        int key;
        int modifiers;
        int command;
    };
    constexpr int Shift = SCMOD_SHIFT;
    constexpr int Ctrl = SCMOD_CTRL;
    static const Binding bindings[] = {
        {SCK_DOWN, 0, SCI_LINEDOWN},
        {SCK_DOWN, Shift, SCI_LINEDOWNEXTEND},
        {SCK_DOWN, Ctrl, SCI_LINESCROLLDOWN},
        {SCK_UP, 0, SCI_LINEUP},
        {SCK_UP, Shift, SCI_LINEUPEXTEND},
        {SCK_UP, Ctrl, SCI_LINESCROLLUP},
        {SCK_LEFT, 0, SCI_CHARLEFT},
        {SCK_LEFT, Shift, SCI_CHARLEFTEXTEND},
        {SCK_LEFT, Ctrl, SCI_WORDLEFT},
        {SCK_LEFT, Ctrl | Shift, SCI_WORDLEFTEXTEND},
        {SCK_RIGHT, 0, SCI_CHARRIGHT},
        {SCK_RIGHT, Shift, SCI_CHARRIGHTEXTEND},
        {SCK_RIGHT, Ctrl, SCI_WORDRIGHT},
        {SCK_RIGHT, Ctrl | Shift, SCI_WORDRIGHTEXTEND},
        {SCK_HOME, 0, SCI_HOME},
        {SCK_HOME, Shift, SCI_HOMEEXTEND},
        {SCK_HOME, Ctrl, SCI_DOCUMENTSTART},
        {SCK_HOME, Ctrl | Shift, SCI_DOCUMENTSTARTEXTEND},
        {SCK_END, 0, SCI_LINEEND},
        {SCK_END, Shift, SCI_LINEENDEXTEND},
        {SCK_END, Ctrl, SCI_DOCUMENTEND},
        {SCK_END, Ctrl | Shift, SCI_DOCUMENTENDEXTEND},
        {SCK_PRIOR, 0, SCI_PAGEUP},
        {SCK_PRIOR, Shift, SCI_PAGEUPEXTEND},
        {SCK_NEXT, 0, SCI_PAGEDOWN},
        {SCK_NEXT, Shift, SCI_PAGEDOWNEXTEND},
        {SCK_DELETE, 0, SCI_CLEAR},
        {SCK_DELETE, Ctrl, SCI_DELWORDRIGHT},
        {SCK_BACK, 0, SCI_DELETEBACK},
        {SCK_BACK, Shift, SCI_DELETEBACK},
        {SCK_BACK, Ctrl, SCI_DELWORDLEFT},
        {SCK_RETURN, 0, SCI_NEWLINE},
        {SCK_RETURN, Shift, SCI_NEWLINE},
        {SCK_TAB, 0, SCI_TAB},
        {'A', Ctrl, SCI_SELECTALL},
    };
    for (const Binding &b : bindings)
        send(SCI_ASSIGNCMDKEY, ulong(b.key | (b.modifiers << 16)), b.command);
}

QByteArrayView SourceEditBox::bytes() const
{
    const auto *data = static_cast<const char *>(SendScintillaPtrResult(SCI_GETCHARACTERPOINTER));
    return QByteArrayView(data, length());
}

QByteArrayView SourceEditBox::range(qsizetype from, qsizetype length) const
{
    from = std::clamp<qsizetype>(from, 0, this->length());
    length = std::clamp<qsizetype>(length, 0, this->length() - from);
    if (length == 0)
        return {};
    const auto *data =
        reinterpret_cast<const char *>(send(SCI_GETRANGEPOINTER, ulong(from), long(length)));
    return QByteArrayView(data, length);
}

void SourceEditBox::onModified(int position, int type, int length)
{
    // The edit told before this one is made by now.
    settle();
    PendingEdit edit;
    edit.insertion = type & SC_MOD_BEFOREINSERT;
    edit.position = position;
    edit.length = length;
    edit.line = lineOf(position);
    edit.lastLine = edit.insertion ? edit.line : lineOf(position + length);
    edit.keptState = int(send(SCI_GETLINESTATE, edit.insertion ? edit.line : edit.lastLine));
    m_pending = edit;
    if (!m_settleQueued) {
        // An edit that no call of the box ends (a drag within the box, say) is told
        // from the event loop.
        m_settleQueued = true;
        QTimer::singleShot(0, this, [this] {
            m_settleQueued = false;
            settle();
        });
    }
}

void SourceEditBox::settle()
{
    if (!m_pending)
        return;
    const PendingEdit edit = *m_pending;
    m_pending.reset();
    const int keptEnd = edit.keptState & linestate::LineEndMask;
    if (edit.insertion) {
        const int lastLine = lineOf(edit.position + edit.length);
        if (lastLine > edit.line) {
            for (int line = edit.line; line < lastLine; ++line)
                send(SCI_SETLINESTATE, ulong(line), 0);
            send(SCI_SETLINESTATE, ulong(lastLine), keptEnd);
        }
        Q_EMIT edited(edit.position, 0, edit.length);
    } else {
        if (edit.lastLine > edit.line)
            send(SCI_SETLINESTATE, ulong(edit.line), keptEnd);
        Q_EMIT edited(edit.position, edit.length, 0);
    }
}

void SourceEditBox::setBytes(QByteArrayView text)
{
    settle();
    const bool readOnly = isReadOnly();
    setReadOnly(false);
    send(SCI_SETUNDOCOLLECTION, 0);
    send(SCI_CLEARALL);
    settle();
    // New lines copy the state of the line they are inserted at: they start at 0.
    send(SCI_SETLINESTATE, 0, 0);
    send(SCI_CLEARDOCUMENTSTYLE);
    if (!text.isEmpty())
        SendScintilla(SCI_APPENDTEXT, uintptr_t(text.size()), text.data());
    // The new text's lines all have the state 0 already.
    m_pending.reset();
    send(SCI_SETUNDOCOLLECTION, 1);
    send(SCI_EMPTYUNDOBUFFER);
    send(SCI_SETSAVEPOINT);
    send(SCI_GOTOPOS, 0);
    setReadOnly(readOnly);
}

void SourceEditBox::select(qsizetype anchor, qsizetype caret)
{
    send(SCI_SETSEL, anchor, caret);
}

void SourceEditBox::replaceRange(qsizetype from, qsizetype to, QByteArrayView text)
{
    send(SCI_SETTARGETRANGE, ulong(from), long(to));
    // Scintilla wants a text even for none.
    SendScintilla(SCI_REPLACETARGET, uintptr_t(text.size()), text.isEmpty() ? "" : text.data());
    settle();
}

void SourceEditBox::replaceSelection(QByteArrayView text)
{
    replaceRange(selectionStart(), selectionEnd(), text);
    const qsizetype end = send(SCI_GETTARGETEND);
    send(SCI_SETSEL, end, end);
}

int SourceEditBox::firstVisibleLine() const
{
    return int(send(SCI_DOCLINEFROMVISIBLE, send(SCI_GETFIRSTVISIBLELINE)));
}

void SourceEditBox::keyPressEvent(QKeyEvent *event)
{
    if (m_owner->handleKeyDown(event)) {
        event->accept();
        return;
    }
    // The clipboard keys of the Insert and Delete keys go the control's ways too.
    const Qt::KeyboardModifiers mods = event->modifiers() & ~Qt::KeypadModifier;
    if (event->key() == Qt::Key_Insert && mods == Qt::ShiftModifier) {
        m_owner->Paste();
        return;
    }
    if (event->key() == Qt::Key_Insert && mods == Qt::ControlModifier) {
        m_owner->Copy();
        return;
    }
    if (event->key() == Qt::Key_Delete && mods == Qt::ShiftModifier) {
        m_owner->cutSelection();
        return;
    }
    // A key with Ctrl (and no Alt) types nothing; Ctrl+A selects all.
    const bool ctrl = (mods & Qt::ControlModifier) && !(mods & Qt::AltModifier);
    const bool selectAll = event->key() == Qt::Key_A && mods == Qt::ControlModifier;
    if (ctrl && !selectAll && !event->text().isEmpty() && event->text().at(0).isPrint())
        return;
    QsciScintillaBase::keyPressEvent(event);
    settle();
    m_owner->afterKey();
}

void SourceEditBox::inputMethodEvent(QInputMethodEvent *event)
{
    QsciScintillaBase::inputMethodEvent(event);
    settle();
    m_owner->afterKey();
}

void SourceEditBox::dropEvent(QDropEvent *event)
{
    QsciScintillaBase::dropEvent(event);
    settle();
}

void SourceEditBox::keyReleaseEvent(QKeyEvent *event)
{
    m_owner->handleKeyUp(event);
    QsciScintillaBase::keyReleaseEvent(event);
}

void SourceEditBox::contextMenuEvent(QContextMenuEvent *event)
{
    // The menu of a plain text box; every command goes through the control, like its
    // keys.
    QMenu menu;
    const bool writable = !isReadOnly();
    auto add = [&](const QString &text, const QString &name, const QKeySequence &keys, bool enabled,
                   auto slot) {
        QAction *action = menu.addAction(text, m_owner, slot);
        action->setObjectName(name);
        action->setShortcut(keys);
        action->setEnabled(enabled);
    };
    add(tr("&Undo"), QStringLiteral("edit-undo"), QKeySequence::Undo, writable && send(SCI_CANUNDO),
        &srcText::Undo);
    add(tr("&Redo"), QStringLiteral("edit-redo"), QKeySequence::Redo, writable && send(SCI_CANREDO),
        &srcText::Redo);
    menu.addSeparator();
    add(tr("Cu&t"), QStringLiteral("edit-cut"), QKeySequence::Cut, writable && hasSelection(),
        &srcText::cutSelection);
    add(tr("&Copy"), QStringLiteral("edit-copy"), QKeySequence::Copy, hasSelection(),
        &srcText::Copy);
    add(tr("&Paste"), QStringLiteral("edit-paste"), QKeySequence::Paste,
        writable && m_owner->CanPaste(), &srcText::Paste);
    add(tr("Delete"), QStringLiteral("edit-delete"), QKeySequence(), writable && hasSelection(),
        &srcText::Clear);
    menu.addSeparator();
    add(tr("Select All"), QStringLiteral("select-all"), QKeySequence::SelectAll, length() > 0,
        &srcText::SelectAll);
    menu.exec(event->globalPos());
}

bool SourceEditBox::canInsertFromMimeData(const QMimeData *source) const
{
    return source && source->hasText();
}

QByteArray SourceEditBox::fromMimeData(const QMimeData *source, bool &rectangular) const
{
    // Dropped text comes in as the box holds text: 8-bit, every break CR LF.
    rectangular = false;
    return source ? withCrLfBreaks(source->text()).toLatin1() : QByteArray();
}

QMimeData *SourceEditBox::toMimeData(const QByteArray &text, bool rectangular) const
{
    Q_UNUSED(rectangular);
    // Other programs get the text with the desktop's line feeds.
    auto *data = new QMimeData;
    data->setText(QString::fromLatin1(text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    return data;
}

} // namespace tessaro
