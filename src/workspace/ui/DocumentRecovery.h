#pragma once

#include "workspace/core/RecoveryStore.h"

#include <QHash>
#include <QObject>
#include <QPointer>

class QTimer;

namespace tessaro {

class frmMain;
class frmDocument;

// Keeps a recovery copy of every document window with unsaved changes, so that a
// crash, a killed process, a hang-up or an untrapped run-time error loses at most the
// last kDelayMs of typing. A copy is written kDelayMs after the first change that is
// not in it yet (further typing in that time goes into the same write), at once by
// writeAllNow (the emergency save), and removed when the document is saved or closed
// without saving. A document whose save failed as it closed keeps its copy for the
// next start. At start-up the copies of earlier sessions that no running program owns
// are offered in one dialog (RecoveryPromptService); recovered documents open as
// changed documents with their old caption.
//
// None of this changes what the program shows or does otherwise: no window, message
// or exit status differs while there is nothing to recover.
class DocumentRecovery : public QObject
{
    Q_OBJECT
public:
    static constexpr int kDelayMs = 2000;

    // Watches every document the frame's document commands make from now on and
    // installs the emergency save. `root` is the recovery folder (tests use their own).
    static DocumentRecovery *install(frmMain &frame, const QString &root = recovery::folder());
    static DocumentRecovery *of(const frmMain &frame);
    // A clean end: the program's copies folder goes unless a copy is left in it.
    ~DocumentRecovery() override;

    // Writes the copy of every document changed since its last copy, at once.
    void writeAllNow();
    // Offers the copies of earlier sessions, if there are any (after the main window
    // is shown at start-up).
    void offerEarlierWork();

    // Where this program's copies are (empty until the first one is written).
    QString sessionFolder() const { return m_session.path(); }
    void setDelay(int milliseconds) { m_delayMs = milliseconds; }

private:
    struct Watched
    {
        int id = 0;
        QTimer *timer = nullptr;
        bool pending = false; // changed since the last copy was written
    };

    DocumentRecovery(frmMain &frame, const QString &root);
    void watch(frmDocument *document);
    void changed(frmDocument *document);
    bool writeCopy(frmDocument *document);
    void dropCopy(frmDocument *document);
    void forget(frmDocument *document);
    frmDocument *recover(const RecoveryCopy &copy);

    frmMain &m_frame;
    recovery::SessionFolder m_session;
    QString m_root;
    QHash<frmDocument *, Watched> m_watched;
    int m_nextId = 1;
    int m_delayMs = kDelayMs;
};

} // namespace tessaro
