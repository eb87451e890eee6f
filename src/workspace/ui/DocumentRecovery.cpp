#include "workspace/ui/DocumentRecovery.h"

#include "editor/ui/srcText.h"
#include "platform/core/EmergencySave.h"
#include "platform/core/TextFile.h"
#include "shell/ui/frmMain.h"
#include "workspace/core/DocumentRules.h"
#include "workspace/core/RecoveryPrompt.h"
#include "workspace/ui/DocumentCommands.h"
#include "workspace/ui/frmDocument.h"

#include <QTimer>

namespace tessaro {

namespace {
const char kObjectName[] = "documentRecovery";
}

DocumentRecovery::DocumentRecovery(frmMain &frame, const QString &root)
    : QObject(&frame), m_frame(frame), m_session(root), m_root(root)
{
    setObjectName(QLatin1String(kObjectName));
}

DocumentRecovery *DocumentRecovery::of(const frmMain &frame)
{
    return frame.findChild<DocumentRecovery *>(QLatin1String(kObjectName),
                                               Qt::FindDirectChildrenOnly);
}

DocumentRecovery *DocumentRecovery::install(frmMain &frame, const QString &root)
{
    if (DocumentRecovery *existing = of(frame))
        return existing;
    auto *recovery = new DocumentRecovery(frame, root);
    connect(DocumentCommands::install(frame), &DocumentCommands::documentCreated, recovery,
            &DocumentRecovery::watch);
    setEmergencySave([recovery] { recovery->writeAllNow(); });
    return recovery;
}

DocumentRecovery::~DocumentRecovery()
{
    setEmergencySave(nullptr);
    m_session.close();
}

void DocumentRecovery::watch(frmDocument *document)
{
    Watched watched;
    watched.id = m_nextId++;
    watched.timer = new QTimer(this);
    watched.timer->setSingleShot(true);
    connect(watched.timer, &QTimer::timeout, this, [this, document] { writeCopy(document); });
    m_watched.insert(document, watched);

    srcText *code = document->code();
    connect(code, &srcText::Change, this, [this, document] { changed(document); });
    connect(code, &srcText::FileSaved, this, [this, document] { dropCopy(document); });
    connect(document, &frmDocument::unloaded, this, [this, document](bool unsavedWorkKept) {
        if (unsavedWorkKept)
            writeCopy(document);
        else
            dropCopy(document);
        forget(document);
    });
    connect(document, &QObject::destroyed, this, [this, document] { forget(document); });
}

void DocumentRecovery::changed(frmDocument *document)
{
    const auto it = m_watched.find(document);
    if (it == m_watched.end())
        return;
    it->pending = true;
    if (!it->timer->isActive())
        it->timer->start(m_delayMs);
}

bool DocumentRecovery::writeCopy(frmDocument *document)
{
    const auto it = m_watched.find(document);
    if (it == m_watched.end())
        return false;
    it->timer->stop();
    it->pending = false;
    srcText *code = document->code();
    if (!code->Modified()) {
        m_session.remove(it->id);
        return true;
    }
    RecoveryCopy copy;
    copy.caption = document->caption();
    copy.path = documents::isUntitled(copy.caption) ? QString() : copy.caption;
    copy.lineEnd = code->usualLineEnd();
    copy.cSource = document->ccode;
    copy.text = textfile::toBytes(code->fileText());
    // A copy that cannot be written (a full disk) is tried again at the next change.
    return m_session.write(it->id, copy);
}

void DocumentRecovery::dropCopy(frmDocument *document)
{
    const auto it = m_watched.find(document);
    if (it == m_watched.end())
        return;
    it->timer->stop();
    it->pending = false;
    m_session.remove(it->id);
}

void DocumentRecovery::forget(frmDocument *document)
{
    const auto it = m_watched.find(document);
    if (it == m_watched.end())
        return;
    delete it->timer;
    m_watched.erase(it);
}

void DocumentRecovery::writeAllNow()
{
    for (auto it = m_watched.begin(); it != m_watched.end(); ++it)
        if (it->pending)
            writeCopy(it.key());
}

frmDocument *DocumentRecovery::recover(const RecoveryCopy &copy)
{
    frmDocument *document = DocumentCommands::install(m_frame)->NewDocument();
    document->setCaption(copy.caption);
    document->code()->restoreText(textfile::fromBytes(copy.text), copy.lineEnd, copy.path);
    document->ccode = copy.cSource;
    document->markChanged();
    return document;
}

void DocumentRecovery::offerEarlierWork()
{
    recovery::EarlierSessions earlier(m_root);
    const QVector<recovery::EarlierSessions::Copy> copies = earlier.copies();
    if (copies.isEmpty())
        return;
    QVector<RecoveryOffer> offers;
    for (const auto &kept : copies)
        offers.append(RecoveryOffer{kept.copy.caption, kept.copy.path, kept.copy.text.size()});

    const RecoveryChoice choice = chooseRecovery(offers);
    if (choice.action == RecoveryChoice::Later)
        return;
    for (int i = 0; i < copies.size(); ++i) {
        if (choice.action == RecoveryChoice::Recover && choice.selected.contains(i)) {
            // The earlier copy goes only once the recovered text has a copy of its own.
            frmDocument *document = recover(copies[i].copy);
            if (!writeCopy(document))
                continue;
        }
        earlier.discard(copies[i].file);
    }
}

} // namespace tessaro
