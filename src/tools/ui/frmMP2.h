#pragma once

#include "tools/ui/ToolWizardPage.h"

namespace tessaro {

// The wizard's page for finding a host with the web browser.
class frmMP2 : public ToolWizardPage
{
    Q_OBJECT
public:
    frmMP2() : ToolWizardPage(2) {}
};

} // namespace tessaro
