#include "search/ui/SearchCommands.h"

#include "editor/ui/srcText.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/MsgBox.h"
#include "search/ui/ComboFindBox.h"
#include "search/ui/DocumentFindTarget.h"
#include "search/ui/frmFnF.h"
#include "search/ui/frmOut.h"
#include "shell/ui/ActiveDocument.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "workspace/ui/FileBrowser.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>

namespace tessaro::search {

namespace {

// The file browser's current folder, Dir1.Path.
QString browserFolderOf(const frmMain &main)
{
    const FileBrowser *browser = FileBrowser::of(main);
    return browser ? browser->dirPath() : QString();
}

} // namespace

SearchCommands *SearchCommands::install(frmMain &main)
{
    auto *commands = new SearchCommands(main);
    connect(main.cmdFind(), &QAbstractButton::clicked, commands, &SearchCommands::cmdFind_Click);
    main.connectCommand(MenuItem::mnuEditFA, commands, &SearchCommands::mnuEditFA_Click);
    main.connectCommand(MenuItem::mnuEditFindnF, commands, &SearchCommands::mnuEditFindnF_Click);
    // The find box has no key handling of its own: Enter neither searches nor adds
    // the text to the list.
    main.fndText()->setInsertPolicy(QComboBox::NoInsert);
    return commands;
}

SearchCommands::SearchCommands(frmMain &main)
    : QObject(&main), m_main(main), m_browserFolder([&main] { return browserFolderOf(main); })
{
    setObjectName(QStringLiteral("SearchCommands"));
}

void SearchCommands::setBrowserFolderSource(std::function<QString()> source)
{
    m_browserFolder = std::move(source);
}

frmFnF *SearchCommands::findInFilesDialog() const
{
    return m_findInFiles;
}

frmOut *SearchCommands::outputWindow() const
{
    return m_output;
}

QComboBox *SearchCommands::findBox() const
{
    return m_main.fndText();
}

std::unique_ptr<FindTarget> SearchCommands::activeDocument() const
{
    QMdiSubWindow *child = activeChild(m_main.mdiArea());
    if (!child || isOutputOrFindInFiles(child))
        return nullptr;
    // A child without an editor control cannot be searched: the command ends quietly
    // with 438 "Object doesn't support this property or method".
    auto *code = qobject_cast<srcText *>(codeOf(child));
    if (!code)
        throw RuntimeError(438, QStringLiteral("Object doesn't support this property or method"),
                           QStringLiteral("Tessaro"));
    return std::make_unique<DocumentFindTarget>(*code);
}

void SearchCommands::cmdFind_Click()
{
    trapped([this] {
        QComboBox *combo = findBox();
        if (!combo)
            return;
        ComboFindBox box(*combo);
        m_controller.find(box, activeDocument().get());
    });
}

void SearchCommands::mnuEditFA_Click()
{
    trapped([this] {
        QComboBox *combo = findBox();
        if (!combo || m_controller.lastFindText().isEmpty())
            return;
        ComboFindBox box(*combo);
        m_controller.findAgain(box, activeDocument().get());
    });
}

void SearchCommands::mnuEditFindnF_Click()
{
    untrapped([this] {
        if (!app().workspace.open) {
            MsgBox(QStringLiteral("You'll need to open a workspace"), mb::OKOnly);
            return;
        }
        m_query.folder = m_browserFolder() + QLatin1Char('/');
        if (!m_findInFiles) {
            m_findInFiles = new frmFnF;
            connect(m_findInFiles, &frmFnF::findRequested, this, [this](const QString &text) {
                m_query.text = text;
                showOutputWindow();
            });
            addChild(m_findInFiles);
        }
        showChild(m_findInFiles);
    });
}

void SearchCommands::showChild(QWidget *form)
{
    auto *child = qobject_cast<QMdiSubWindow *>(form->parentWidget());
    child->show();
    m_main.mdiArea()->setActiveSubWindow(child);
}

void SearchCommands::showOutputWindow()
{
    if (!m_output) {
        m_output = new frmOut(m_query);
        addChild(m_output);
    }
    showChild(m_output);
}

QMdiSubWindow *SearchCommands::addChild(QWidget *form)
{
    QMdiSubWindow *child = m_main.mdiArea()->addSubWindow(form);
    child->setAttribute(Qt::WA_DeleteOnClose);
    return child;
}

} // namespace tessaro::search
