#include "workspace/ui/frmDocument.h"
#include "platform/ui/FixedPitchFont.h"

#include "editor/core/DynHighlight.h"
#include "editor/ui/srcText.h"
#include "platform/core/AppInfo.h"
#include "platform/core/CommonDialog.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/MsgBox.h"
#include "state/core/AppState.h"
#include "workspace/core/DocumentRules.h"

#include <QCloseEvent>
#include <QFontDatabase>

namespace tessaro {

namespace {

// The document window's own font, which its editor takes as its ambient font when it
// is created: the system's fixed-pitch font, so source text lines up in columns.
QWidget *withDocumentFont(QWidget *window)
{
    window->setFont(fixedPitchFont());
    return window;
}

} // namespace

frmDocument::frmDocument(QWidget *parent)
    : QWidget(parent), m_code(new srcText(withDocumentFont(this)))
{
    setObjectName(QStringLiteral("frmDocument"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_code->setObjectName(QStringLiteral("code"));
    setFocusProxy(m_code);

    connect(m_code, &srcText::Change, this, [this] {
        if (!m_changed)
            m_changed = true;
    });
    connect(m_code, &srcText::SelChange, this, [] { app().caretMoved = true; });
    connect(m_code, &srcText::KeyDown, this, [this](int &KeyCode, int) {
        if (!ccode)
            return;
        app().pendingKey = qint16(KeyCode);
        app().pendingKeyFlag = -1;
    });
    Form_Load();
}

void frmDocument::Form_Load()
{
    m_changed = false;
    Form_Resize();
}

void frmDocument::Form_Resize()
{
    m_code->setGeometry(0, 0, qMax(0, width()), qMax(0, height()));
}

void frmDocument::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Form_Resize();
}

void frmDocument::saveUnderCaption()
{
    m_code->SaveFile(caption(), 1);
}

void frmDocument::saveAs(const QString &dialogTitle)
{
    FileDialogRequest request;
    request.kind = FileDialogRequest::Save;
    request.title = dialogTitle;
    request.filter = documents::sourceFileFilter();
    request.cancelError = true;
    const QString name = showFileDialog(request);
    if (name.isEmpty())
        return;
    setCaption(name);
    m_code->SaveFile(name, 1);
    if (documents::savesAsCSource(name))
        switchToCColouring(sectionFilePath(programFolder()));
}

namespace {

// The document colouring shows its progress in the window's caption.
class WindowCaption : public DocumentCaption
{
public:
    explicit WindowCaption(frmDocument &document) : m_document(document) {}
    QString caption() const override { return m_document.caption(); }
    void setCaption(const QString &caption) override { m_document.setCaption(caption); }

private:
    frmDocument &m_document;
};

} // namespace

void frmDocument::switchToCColouring(const QString &sectionFile)
{
    WindowCaption window(*this);
    m_code->ColourFromRTF(
        dynHighlight().colourWithSectionFile(window, sectionFile, m_code->TextRTF()));
    ccode = true;
}

void frmDocument::closeEvent(QCloseEvent *event)
{
    Form_Unload();
    event->accept();
}

void frmDocument::Form_Unload()
{
    // The prompt runs once, however the window is closed.
    if (m_unloaded)
        return;
    m_unloaded = true;
    if (!m_changed) {
        Q_EMIT unloaded(false);
        return;
    }
    const int answer =
        MsgBox(documents::saveChangesPrompt(caption()), mb::YesNo, documents::saveChangesTitle());
    if (answer != mb::Yes) {
        Q_EMIT unloaded(false);
        return;
    }
    // A cancelled save dialog ends the saving; the window closes all the same.
    const bool saveTried = trapped([this] {
        if (documents::isUntitled(caption())) {
            FileDialogRequest request;
            request.kind = FileDialogRequest::Save;
            request.title = documents::saveTitle();
            request.filter = documents::promptSaveFilter();
            request.cancelError = true;
            m_code->SaveFile(showFileDialog(request), 1);
        } else {
            saveUnderCaption();
        }
    });
    Q_EMIT unloaded(saveTried && m_code->Modified());
}

} // namespace tessaro
