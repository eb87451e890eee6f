#include "tools/ui/WizardPage.h"

#include "platform/core/ErrorTraps.h"
#include "tools/core/WizardPages.h"
#include "tools/ui/PublishingWizard.h"
#include "tools/ui/TwipsGeometry.h"

#include <QCloseEvent>
#include <QFont>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>

// The resource file is part of a static library: make sure it is linked in.
static void initToolsResources()
{
    static const bool done = [] {
        Q_INIT_RESOURCE(tools);
        return true;
    }();
    Q_UNUSED(done);
}

namespace tessaro {

namespace tg = twipsgeometry;

WizardPage::WizardPage(int number) : m_number(number)
{
    initToolsResources();
    setObjectName(QStringLiteral("frmMP%1").arg(number));
    setWindowTitle(wizard::caption);
    setAttribute(Qt::WA_DeleteOnClose);

    auto *picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("Picture1"));
    picture->setPixmap(QPixmap(QStringLiteral(":/tools/wizard.png")));
    picture->setScaledContents(true);
    picture->setFrameShape(QFrame::Panel);
    picture->setFrameShadow(QFrame::Sunken);
    tg::place(picture, 120, 120, 2460, 4680);

    const double perPixel = tg::twipsPerPixel(this);
    setFixedSize(int(7200 / perPixel), int(4920 / perPixel));
}

QLabel *WizardPage::addLabel(const char *name, const QString &text, double left, double top,
                             double width, double height)
{
    auto *label = new QLabel(text, this);
    label->setObjectName(QLatin1String(name));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    tg::place(label, left, top, width, height);
    return label;
}

QLabel *WizardPage::addTitle(const QString &text)
{
    QLabel *title = addLabel("Label1", text, textLeft, 120, textWidth, 375);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    return title;
}

QPushButton *WizardPage::addButton(const char *name, const QString &caption, double left,
                                   double top, double width, double height)
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    tg::place(button, left, top, width, height);
    return button;
}

void WizardPage::moveToPage(int target)
{
    if (target == 0)
        return;
    wizard::showPage(target);
    unload();
}

void WizardPage::unload()
{
    close();
}

void WizardPage::cmdNext_Click()
{
    untrapped([this] { moveToPage(wizard::nextPage(m_number)); });
}

void WizardPage::cmdBack_Click()
{
    untrapped([this] { moveToPage(wizard::backPage(m_number)); });
}

void WizardPage::cmdCancel_Click()
{
    untrapped([this] { unload(); });
}

void WizardPage::closeEvent(QCloseEvent *event)
{
    if (!m_unloaded) {
        m_unloaded = true;
        Form_Unload();
        wizard::forgetPage(this);
    }
    event->accept();
}

} // namespace tessaro
