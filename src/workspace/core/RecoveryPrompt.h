#pragma once

#include <QString>
#include <QVector>

namespace tessaro {

// A document kept from an earlier session, as the recovery dialog lists it.
struct RecoveryOffer
{
    QString caption;
    QString path; // empty for an untitled document
    qsizetype bytes = 0;
};

// What the user chose: open the selected documents again (the others are given up),
// give them all up, or decide at the next start (the dialog closed without a choice).
struct RecoveryChoice
{
    enum Action { Recover, Discard, Later };
    Action action = Later;
    QVector<int> selected; // indexes into the offers, for Recover
};

// The one way the program asks which kept documents to recover. The real service is
// the program's own dialog (frmRecover); until one is installed (a headless run, the
// tests) the offer goes to the error stream and every document is recovered, since
// giving work up needs a person's say.
class RecoveryPromptService
{
public:
    virtual ~RecoveryPromptService() = default;
    virtual RecoveryChoice choose(const QVector<RecoveryOffer> &offers) = 0;
};

RecoveryChoice chooseRecovery(const QVector<RecoveryOffer> &offers);
// Installs a service and returns the previous one (the caller keeps ownership);
// nullptr goes back to the error stream.
RecoveryPromptService *setRecoveryPromptService(RecoveryPromptService *service);

} // namespace tessaro
