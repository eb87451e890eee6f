#include "editor/ui/DeferredDeleteHold.h"

#include <QCoreApplication>
#include <QEvent>

namespace tessaro {

DeferredDeleteHold::DeferredDeleteHold(QObject *held) : m_held(held)
{
    QCoreApplication::instance()->installEventFilter(this);
}

DeferredDeleteHold::~DeferredDeleteHold()
{
    QCoreApplication::instance()->removeEventFilter(this);
    for (const QPointer<QObject> &object : std::as_const(m_postponed))
        if (object)
            object->deleteLater();
}

bool DeferredDeleteHold::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::DeferredDelete || !m_held)
        return false;
    for (QObject *holder = m_held; holder; holder = holder->parent()) {
        if (holder == watched) {
            if (!m_postponed.contains(watched))
                m_postponed.append(watched);
            return true;
        }
    }
    return false;
}

} // namespace tessaro
