#include "workspace/ui/DocumentCommands.h"

#include "editor/ui/srcText.h"
#include "platform/core/CommonDialog.h"
#include "platform/core/ErrorTraps.h"
#include "shell/core/AppState.h"
#include "shell/ui/NewChildPlacement.h"
#include "shell/ui/frmMain.h"
#include "workspace/core/DocumentRules.h"
#include "workspace/ui/frmDocument.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace tessaro {

namespace {
const char kObjectName[] = "documentCommands";
}

DocumentCommands::DocumentCommands(frmMain &frame) : QObject(&frame), m_frame(frame)
{
    setObjectName(QLatin1String(kObjectName));
}

DocumentCommands *DocumentCommands::of(const frmMain &frame)
{
    return frame.findChild<DocumentCommands *>(QLatin1String(kObjectName),
                                               Qt::FindDirectChildrenOnly);
}

DocumentCommands *DocumentCommands::install(frmMain &frame)
{
    DocumentCommands *commands = of(frame);
    if (!commands)
        commands = new DocumentCommands(frame);
    commands->attach();
    return commands;
}

void DocumentCommands::attach()
{
    connectAction("mnuFileNew", &DocumentCommands::mnuFileNew_Click);
    connectAction("mnuFileOpen", &DocumentCommands::mnuFileOpen_Click);
    connectAction("mnuFileSave", &DocumentCommands::mnuFileSave_Click);
    connectAction("mnuFileSaveAs", &DocumentCommands::mnuFileSaveAs_Click);
    connectAction("mnuFileClose", &DocumentCommands::mnuFileClose_Click);
}

void DocumentCommands::connectAction(const char *name, void (DocumentCommands::*handler)())
{
    QAction *action = m_frame.action(QLatin1String(name));
    if (!action || m_connected.contains(action))
        return;
    m_connected.append(action);
    connect(action, &QAction::triggered, this, handler);
}

frmDocument *DocumentCommands::NewDocument()
{
    const qint32 number = documents::nextDocumentNumber(m_counter);
    auto *document = new frmDocument;
    QMdiSubWindow *child = m_frame.mdiArea()->addSubWindow(document);
    child->setAttribute(Qt::WA_DeleteOnClose);
    document->setCaption(documents::untitledCaption(number));
    showNewChild(*m_frame.mdiArea(), child);
    app().caretMoved = true;
    Q_EMIT documentCreated(document);
    return document;
}

frmDocument *DocumentCommands::LoadDocument(const QString &path)
{
    frmDocument *document = nullptr;
    trapped([&] {
        document = NewDocument();
        document->setCaption(documents::loadingCaption(path));
        const bool cSource = documents::opensAsCSource(path);
        document->code()->LoadFile(path, 1);
        document->setCaption(path);
        document->ccode = cSource;
        AppState &state = app();
        if (state.pendingCaretPosition != 0) {
            document->code()->setSelStart(state.pendingCaretPosition);
            state.pendingCaretPosition = 0;
        }
    });
    return document;
}

void DocumentCommands::mnuFileNew_Click()
{
    trapped([this] { NewDocument(); });
}

void DocumentCommands::mnuFileOpen_Click()
{
    trapped([this] {
        FileDialogRequest request;
        request.kind = FileDialogRequest::Open;
        request.title = documents::openTitle();
        request.filter = documents::sourceFileFilter();
        request.cancelError = true;
        const QString name = showFileDialog(request);
        if (!name.isEmpty())
            LoadDocument(name);
    });
}

frmDocument *DocumentCommands::activeDocument() const
{
    QMdiSubWindow *child = m_frame.mdiArea()->currentSubWindow();
    return child ? qobject_cast<frmDocument *>(child->widget()) : nullptr;
}

void DocumentCommands::mnuFileSave_Click()
{
    frmDocument *document = activeDocument();
    if (!document)
        return;
    trapped([document] {
        if (!documents::isUntitled(document->caption()))
            document->saveUnderCaption();
        else
            document->saveAs(documents::saveTitle());
    });
}

void DocumentCommands::mnuFileSaveAs_Click()
{
    frmDocument *document = activeDocument();
    if (!document)
        return;
    trapped([document] { document->saveAs(documents::saveAsTitle()); });
}

void DocumentCommands::mnuFileClose_Click()
{
    if (QMdiSubWindow *child = m_frame.mdiArea()->currentSubWindow())
        child->close();
}

} // namespace tessaro
