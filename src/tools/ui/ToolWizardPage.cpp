#include "tools/ui/ToolWizardPage.h"

#include "platform/core/ErrorTraps.h"
#include "platform/core/Shell.h"
#include "state/core/AppState.h"
#include "tools/core/ProgramBrowse.h"
#include "tools/ui/PublishingWizard.h"
#include "tools/ui/TwipsGeometry.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tessaro {

ToolWizardPage::ToolWizardPage(int number)
    : WizardPage(number), m_tool(wizard::toolPage(number)), m_pathBox(new QLineEdit(this))
{
    const wizard::PageTexts texts = wizard::pageTexts(number);
    addTitle(texts.title);
    addLabel("Label2", texts.explanation, textLeft, 600, textWidth, 2055);
    addLabel("Label3", m_tool.toolLabel, textLeft, 2760, textWidth, 255);

    m_pathBox->setObjectName(m_tool.boxName);
    twipsgeometry::place(m_pathBox, textLeft, 3030, 3120, 345);
    auto *browse = addButton("cmdBrowse", QStringLiteral("Browse..."), 5985, 3030, 1095, 345);
    auto *exec = addButton("cmdExec", QStringLiteral("Execute"), 5985, 3480, 1095, 345);
    auto *back = addButton("cmdBack", QStringLiteral("< Back"), backLeft, buttonTop, buttonWidth,
                           buttonHeight);
    auto *next = addButton("cmdNext", QStringLiteral("Next >"), nextLeft, buttonTop, buttonWidth,
                           buttonHeight);
    auto *cancel = addButton("cmdCancel", QStringLiteral("Cancel"), cancelLeft, buttonTop,
                             buttonWidth, buttonHeight);
    next->setDefault(true);
    connect(browse, &QPushButton::clicked, this, &ToolWizardPage::cmdBrowse_Click);
    connect(exec, &QPushButton::clicked, this, &ToolWizardPage::cmdExec_Click);
    connect(back, &QPushButton::clicked, this, &WizardPage::cmdBack_Click);
    connect(next, &QPushButton::clicked, this, &WizardPage::cmdNext_Click);
    connect(cancel, &QPushButton::clicked, this, &WizardPage::cmdCancel_Click);
    Form_Load();
}

void ToolWizardPage::Form_Load()
{
    m_pathBox->setText(app().tools.*m_tool.setting);
}

void ToolWizardPage::Form_Unload()
{
    wizard::keepPathOnUnload(app().tools.*m_tool.setting, m_pathBox->text());
}

void ToolWizardPage::cmdBrowse_Click()
{
    // The chosen name goes into the box as it is: cancelling the dialog empties it.
    untrapped([this] { m_pathBox->setText(programbrowse::choose(m_tool.browseTitle)); });
}

void ToolWizardPage::cmdExec_Click()
{
    untrapped([this] {
        if (m_pathBox->text().isEmpty())
            return;
        wizard::showPage(wizard::nextPage(pageNumber()));
        Shell(m_pathBox->text(), 1);
        unload();
    });
}

} // namespace tessaro
