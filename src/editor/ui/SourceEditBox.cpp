#include "editor/ui/SourceEditBox.h"

#include "editor/ui/srcText.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

#include <memory>

namespace tessaro {

SourceEditBox::SourceEditBox(srcText *owner) : QPlainTextEdit(owner), m_owner(owner)
{
    setObjectName(QStringLiteral("rtfMain"));
}

void SourceEditBox::keyPressEvent(QKeyEvent *event)
{
    if (m_owner->handleKeyDown(event)) {
        event->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
    m_owner->afterKey();
}

void SourceEditBox::keyReleaseEvent(QKeyEvent *event)
{
    m_owner->handleKeyUp(event);
    QPlainTextEdit::keyReleaseEvent(event);
}

void SourceEditBox::contextMenuEvent(QContextMenuEvent *event)
{
    // Undo and redo of the menu go through the control, like its keys.
    std::unique_ptr<QMenu> menu(createStandardContextMenu(event->pos()));
    for (QAction *action : menu->actions()) {
        if (action->objectName() == QLatin1String("edit-undo")) {
            action->disconnect();
            connect(action, &QAction::triggered, m_owner, &srcText::Undo);
        } else if (action->objectName() == QLatin1String("edit-redo")) {
            action->disconnect();
            connect(action, &QAction::triggered, m_owner, &srcText::Redo);
        }
    }
    menu->exec(event->globalPos());
}

bool SourceEditBox::canInsertFromMimeData(const QMimeData *source) const
{
    return source && source->hasText();
}

void SourceEditBox::insertFromMimeData(const QMimeData *source)
{
    if (source && source->hasText() && !isReadOnly())
        m_owner->pasteText(source->text());
}

void SourceEditBox::resizeEvent(QResizeEvent *event)
{
    // A change of width makes the box lay out every line again, which costs a few
    // hundred milliseconds a step in a 10 MiB text. Lines that never wrap keep their
    // layout at any width, so the box is told only of the height then (its scroll
    // bars still follow the new size).
    if (lineWrapMode() == QPlainTextEdit::NoWrap && event->oldSize().isValid() &&
        event->oldSize().width() != event->size().width()) {
        QResizeEvent heightOnly(event->size(),
                                QSize(event->size().width(), event->oldSize().height()));
        QPlainTextEdit::resizeEvent(&heightOnly);
        return;
    }
    QPlainTextEdit::resizeEvent(event);
}

} // namespace tessaro
