#include "platform/ui/WidgetDialogs.h"

#include "platform/core/CommonDialog.h"
#include "platform/core/EventLog.h"
#include "platform/core/MsgBox.h"
#include "platform/ui/WidgetMessageBox.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileDialog>
#include <QPageSetupDialog>
#include <QPrinter>
#include <QTimer>

namespace tessaro {

namespace {

// A headless message box that stays "open" for a while before its default button is
// taken, serving events meanwhile as a modal box does (TESSARO_HEADLESS_MSGBOX_WAIT_MS):
// process-level tests use it to see what happens while a box is up.
class WaitingMessageBox : public MessageBoxService
{
public:
    WaitingMessageBox(MessageBoxService &answering, int waitMs)
        : m_answering(answering), m_waitMs(waitMs)
    {
    }
    int show(const QString &prompt, int style, const QString &title) override
    {
        const int answer = m_answering.show(prompt, style, title);
        QEventLoop loop;
        QTimer::singleShot(m_waitMs, &loop, &QEventLoop::quit);
        loop.exec();
        logEvent(QStringLiteral("message box answered"));
        return answer;
    }

private:
    MessageBoxService &m_answering;
    int m_waitMs;
};

class WidgetCommonDialog : public CommonDialogService
{
public:
    QString fileName(const FileDialogRequest &request) override
    {
        QFileDialog dialog(QApplication::activeWindow());
        setUpFileDialog(dialog, request);
        if (dialog.exec() != QDialog::Accepted)
            return QString();
        return multiSelectionText(dialog.selectedFiles());
    }

    bool printerSetup(const QString &title) override
    {
        QPrinter printer;
        QPageSetupDialog dialog(&printer, QApplication::activeWindow());
        dialog.setWindowTitle(title);
        return dialog.exec() == QDialog::Accepted;
    }
};

} // namespace

void setUpFileDialog(QFileDialog &dialog, const FileDialogRequest &request)
{
    dialog.setWindowTitle(request.title);
    if (!request.initialFolder.isEmpty())
        dialog.setDirectory(request.initialFolder);
    dialog.setNameFilters(qtNameFilters(request.filter));
    if (request.kind == FileDialogRequest::Save) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
    } else {
        dialog.setAcceptMode(QFileDialog::AcceptOpen);
        dialog.setFileMode(request.allowMultiSelect ? QFileDialog::ExistingFiles
                                                    : QFileDialog::ExistingFile);
    }
}

void installWidgetDialogs()
{
    if (qEnvironmentVariableIsSet("TESSARO_HEADLESS_MSGBOX")) {
        const int waitMs = qEnvironmentVariableIntValue("TESSARO_HEADLESS_MSGBOX_WAIT_MS");
        if (waitMs > 0) {
            static WaitingMessageBox waiting(messageBoxService(), waitMs);
            setMessageBoxService(&waiting);
        }
        return;
    }
    static WidgetMessageBox messageBox;
    static WidgetCommonDialog dialog;
    setMessageBoxService(&messageBox);
    setCommonDialogService(&dialog);
}

} // namespace tessaro
