#pragma once

#include <QObject>

class QSocketNotifier;

namespace tessaro {

// Turns SIGTERM (and SIGINT) into a Qt signal delivered on the user-interface thread,
// so the program can close its main window the normal way (settings written) when the
// session ends or a script asks it to stop. Only one instance may exist.
class TerminationSignal : public QObject
{
    Q_OBJECT
public:
    explicit TerminationSignal(QObject *parent = nullptr);
    ~TerminationSignal() override;

Q_SIGNALS:
    void requested();

private:
    QSocketNotifier *m_notifier = nullptr;
};

} // namespace tessaro
