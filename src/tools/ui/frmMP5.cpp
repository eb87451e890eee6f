#include "tools/ui/frmMP5.h"

#include "tools/core/WizardPages.h"

#include <QLabel>
#include <QPushButton>

namespace tessaro {

frmMP5::frmMP5() : WizardPage(5)
{
    const wizard::PageTexts texts = wizard::pageTexts(pageNumber());
    addTitle(texts.title);
    addLabel("Label2", texts.explanation, textLeft, 600, textWidth, 3600);
    auto *back = addButton("cmdBack", QStringLiteral("< Back"), nextLeft, buttonTop, buttonWidth,
                           buttonHeight);
    auto *finish = addButton("cmdCancel", QStringLiteral("Finish"), cancelLeft, buttonTop,
                             buttonWidth, buttonHeight);
    finish->setDefault(true);
    connect(back, &QPushButton::clicked, this, &WizardPage::cmdBack_Click);
    connect(finish, &QPushButton::clicked, this, &WizardPage::cmdCancel_Click);
}

} // namespace tessaro
