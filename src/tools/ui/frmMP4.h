#pragma once

#include "tools/ui/ToolWizardPage.h"

namespace tessaro {

// The wizard's page for announcing the mod with the e-mail client.
class frmMP4 : public ToolWizardPage
{
    Q_OBJECT
public:
    frmMP4() : ToolWizardPage(4) {}
};

} // namespace tessaro
