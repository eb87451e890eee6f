#pragma once

#include <QObject>

class QSocketNotifier;

namespace tessaro {

// Turns SIGTERM (and SIGINT) into a Qt signal delivered on the user-interface thread,
// so the program can close its main window the normal way (settings written) when the
// session ends or a script asks it to stop; SIGHUP likewise into hangUp, so the
// program can keep its unsaved work before it ends as a hang-up ends it (see
// endByHangUp). Only one instance may exist.
class TerminationSignal : public QObject
{
    Q_OBJECT
public:
    explicit TerminationSignal(QObject *parent = nullptr);
    ~TerminationSignal() override;

    // Ends the process the way SIGHUP ends a program that does not handle it.
    [[noreturn]] static void endByHangUp();

Q_SIGNALS:
    void requested();
    void hangUp();

private:
    QSocketNotifier *m_notifier = nullptr;
};

} // namespace tessaro
