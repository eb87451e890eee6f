#include "tools/ui/frmMP1.h"

#include "tools/core/WizardPages.h"

#include <QLabel>
#include <QPushButton>

namespace tessaro {

frmMP1::frmMP1() : WizardPage(1)
{
    m_label1 = addLabel("Label1", QString(), textLeft, 120, textWidth, 4170);
    auto *next = addButton("cmdNext", QStringLiteral("Next >"), nextLeft, buttonTop, buttonWidth,
                           buttonHeight);
    auto *cancel = addButton("cmdCancel", QStringLiteral("Cancel"), cancelLeft, buttonTop,
                             buttonWidth, buttonHeight);
    next->setDefault(true);
    connect(next, &QPushButton::clicked, this, &WizardPage::cmdNext_Click);
    connect(cancel, &QPushButton::clicked, this, &WizardPage::cmdCancel_Click);
    Form_Load();
}

void frmMP1::Form_Load()
{
    m_label1->setText(wizard::checklistText());
}

} // namespace tessaro
