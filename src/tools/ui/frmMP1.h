#pragma once

#include "tools/ui/WizardPage.h"

namespace tessaro {

// The wizard's first page: the checklist of what should be ready before publishing.
class frmMP1 : public WizardPage
{
    Q_OBJECT
public:
    frmMP1();

private:
    void Form_Load();

    QLabel *m_label1;
};

} // namespace tessaro
