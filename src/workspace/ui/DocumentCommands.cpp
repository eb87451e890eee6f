#include "workspace/ui/DocumentCommands.h"

#include "editor/ui/srcText.h"
#include "platform/core/CommonDialog.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/EventLog.h"
#include "shell/ui/NewChildPlacement.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
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
    frame.connectCommand(MenuItem::mnuFileNew, this, &DocumentCommands::mnuFileNew_Click);
    frame.connectCommand(MenuItem::mnuFileOpen, this, &DocumentCommands::mnuFileOpen_Click);
    frame.connectCommand(MenuItem::mnuFileSave, this, &DocumentCommands::mnuFileSave_Click);
    frame.connectCommand(MenuItem::mnuFileSaveAs, this, &DocumentCommands::mnuFileSaveAs_Click);
    frame.connectCommand(MenuItem::mnuFileClose, this, &DocumentCommands::mnuFileClose_Click);
}

DocumentCommands *DocumentCommands::of(const frmMain &frame)
{
    return frame.findChild<DocumentCommands *>(QLatin1String(kObjectName),
                                               Qt::FindDirectChildrenOnly);
}

DocumentCommands *DocumentCommands::install(frmMain &frame)
{
    if (DocumentCommands *commands = of(frame))
        return commands;
    return new DocumentCommands(frame);
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
    // Lets a script that drives the program see every file that opens, however opened.
    logEvent(QStringLiteral("opening ") + path);
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
