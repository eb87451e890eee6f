#pragma once

#include "workspace/core/RecoveryPrompt.h"

#include <QDialog>

class QListWidget;

namespace tessaro {

// The recovery dialog: the documents an earlier session left unsaved, each with a
// tick (all ticked at first), and two buttons: "Recover Selected" opens the ticked
// ones again and gives the others up, "Discard" gives them all up. Closing the dialog
// otherwise (Escape, the close box) decides nothing: the documents are offered again
// at the next start.
class frmRecover : public QDialog
{
    Q_OBJECT
public:
    explicit frmRecover(const QVector<RecoveryOffer> &offers, QWidget *parent = nullptr);

    RecoveryChoice choice() const { return m_choice; }

private:
    void recoverSelected();
    void discardAll();

    QListWidget *m_list;
    RecoveryChoice m_choice;
};

// Makes frmRecover the recovery prompt (not with TESSARO_HEADLESS_MSGBOX set, as for
// the message boxes).
void installRecoveryDialog();

} // namespace tessaro
