#pragma once

#include "tools/ui/ToolWizardPage.h"

namespace tessaro {

// The wizard's page for uploading the mod with the FTP client.
class frmMP3 : public ToolWizardPage
{
    Q_OBJECT
public:
    frmMP3() : ToolWizardPage(3) {}
};

} // namespace tessaro
