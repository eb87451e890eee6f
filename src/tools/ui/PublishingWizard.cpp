#include "tools/ui/PublishingWizard.h"

#include "tools/core/WizardPages.h"
#include "tools/ui/frmMP1.h"
#include "tools/ui/frmMP2.h"
#include "tools/ui/frmMP3.h"
#include "tools/ui/frmMP4.h"
#include "tools/ui/frmMP5.h"

#include <QPointer>

namespace tessaro::wizard {

namespace {

QPointer<WizardPage> &slot(int number)
{
    static QPointer<WizardPage> pages[lastPage + 1];
    return pages[number];
}

WizardPage *createPage(int number)
{
    switch (number) {
    case 1: return new frmMP1;
    case 2: return new frmMP2;
    case 3: return new frmMP3;
    case 4: return new frmMP4;
    case 5: return new frmMP5;
    default: return nullptr;
    }
}

} // namespace

WizardPage *showPage(int number)
{
    if (number < firstPage || number > lastPage)
        return nullptr;
    QPointer<WizardPage> &page = slot(number);
    if (!page)
        page = createPage(number);
    page->show();
    page->raise();
    page->activateWindow();
    return page;
}

WizardPage *loadedPage(int number)
{
    return number >= firstPage && number <= lastPage ? slot(number).data() : nullptr;
}

void forgetPage(WizardPage *page)
{
    for (int number = firstPage; number <= lastPage; ++number) {
        if (slot(number) == page)
            slot(number) = nullptr;
    }
}

void open()
{
    showPage(firstPage);
}

} // namespace tessaro::wizard
