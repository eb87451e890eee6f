#include "tools/ui/frmMP5.h"

#include "platform/core/ErrorTraps.h"
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
    connect(back, &QPushButton::clicked, this, &frmMP5::cmdBack_Click);
    connect(finish, &QPushButton::clicked, this, &frmMP5::cmdCancel_Click);
}

void frmMP5::cmdBack_Click()
{
    untrapped([this] { moveToPage(wizard::backPage(pageNumber())); });
}

void frmMP5::cmdCancel_Click()
{
    untrapped([this] { unload(); });
}

} // namespace tessaro
