#include "editor/ui/SourceEditBox.h"

#include "editor/ui/srcText.h"

#include <QKeyEvent>
#include <QMimeData>

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

bool SourceEditBox::canInsertFromMimeData(const QMimeData *source) const
{
    return source && source->hasText();
}

void SourceEditBox::insertFromMimeData(const QMimeData *source)
{
    if (source && source->hasText() && !isReadOnly())
        m_owner->pasteText(source->text());
}

} // namespace tessaro
