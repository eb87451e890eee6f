#pragma once

#include "tools/ui/WizardPage.h"

namespace tessaro {

// The wizard's closing page.
class frmMP5 : public WizardPage
{
    Q_OBJECT
public:
    frmMP5();
};

} // namespace tessaro
