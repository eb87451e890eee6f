#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

namespace tessaro {

// Holds back the deferred deletion (deleteLater) of a widget and of every widget
// holding it while the hold lasts, and asks for those deletions again when it ends.
// A control that serves the event loop in the middle of one of its calls uses it, so
// that a window closed meanwhile does not vanish under the call and under its caller.
class DeferredDeleteHold : public QObject
{
    Q_OBJECT
public:
    explicit DeferredDeleteHold(QObject *held);
    ~DeferredDeleteHold() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<QObject> m_held;
    QList<QPointer<QObject>> m_postponed;
};

} // namespace tessaro
