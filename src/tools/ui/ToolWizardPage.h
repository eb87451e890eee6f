#pragma once

#include "tools/core/WizardPages.h"
#include "tools/ui/WizardPage.h"

class QLineEdit;

namespace tessaro {

// A middle page of the wizard (pages 2 to 4): it keeps the path of one outside
// program, lets the user browse for it and starts it.
class ToolWizardPage : public WizardPage
{
    Q_OBJECT
public:
    QLineEdit *pathBox() const { return m_pathBox; }

    void cmdBrowse_Click();
    // Nothing with an empty box; otherwise shows the next page, starts the program
    // without arguments and unloads this page.
    void cmdExec_Click();

protected:
    explicit ToolWizardPage(int number);

    void Form_Unload() override;

private:
    void Form_Load();

    wizard::ToolPage m_tool;
    QLineEdit *m_pathBox;
};

} // namespace tessaro
