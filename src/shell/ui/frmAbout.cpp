#include "shell/ui/frmAbout.h"

#include "platform/core/AppInfo.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/MsgBox.h"
#include "platform/core/Shell.h"
#include "shell/core/SystemInfo.h"
#include "shell/ui/frmSplash.h"

#include <QApplication>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

namespace tessaro {

frmAbout::frmAbout(QWidget *parent, RegistryStore registry)
    : QDialog(parent), m_registry(std::move(registry))
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("About Tessaro"));
    setModal(true);

    auto *icon = new QLabel(this);
    icon->setObjectName(QStringLiteral("picIcon"));
    icon->setPixmap(QApplication::windowIcon().isNull()
                        ? style()->standardIcon(QStyle::SP_ComputerIcon).pixmap(32, 32)
                        : QApplication::windowIcon().pixmap(32, 32));
    auto *ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    auto *sysInfo = new QPushButton(QStringLiteral("&System Info..."), this);
    sysInfo->setObjectName(QStringLiteral("cmdSysInfo"));
    auto *description = new QLabel(QStringLiteral("An Intergrated Development Environment designed "
                                                  "especially for game/software coding"),
                                   this);
    description->setObjectName(QStringLiteral("lblDescription"));
    description->setWordWrap(true);
    auto *title = new QLabel(QStringLiteral("Tessaro"), this);
    title->setObjectName(QStringLiteral("lblTitle"));
    QFont titleFont = title->font();
    titleFont.setPointSize(titleFont.pointSize() + 6);
    titleFont.setBold(true);
    title->setFont(titleFont);
    auto separator = [this] {
        auto *line = new QFrame(this);
        line->setObjectName(QStringLiteral("Line1"));
        line->setFrameShape(QFrame::HLine);
        line->setFrameShadow(QFrame::Sunken);
        return line;
    };
    auto *version = new QLabel(QStringLiteral("Version"), this);
    version->setObjectName(QStringLiteral("lblVersion"));

    auto *grid = new QGridLayout(this);
    grid->addWidget(icon, 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(title, 0, 1);
    grid->addWidget(version, 1, 1);
    grid->addWidget(description, 2, 1);
    grid->addWidget(separator(), 3, 0, 1, 3);
    grid->addWidget(separator(), 4, 0, 1, 3);
    grid->addWidget(ok, 5, 2);
    grid->addWidget(sysInfo, 6, 2);
    grid->setColumnStretch(1, 1);

    connect(ok, &QPushButton::clicked, this, [this] { untrapped([this] { cmdOK_Click(); }); });
    connect(sysInfo, &QPushButton::clicked, this,
            [this] { untrapped([this] { cmdSysInfo_Click(); }); });
    Form_Load();
}

void frmAbout::showModal(QWidget *parent)
{
    frmAbout about(parent);
    about.exec();
}

void frmAbout::Form_Load()
{
    findChild<QLabel *>(QStringLiteral("lblVersion"))->setText(frmSplash::versionText());
    findChild<QLabel *>(QStringLiteral("lblTitle"))->setText(appTitle());
}

void frmAbout::cmdOK_Click()
{
    done(QDialog::Accepted);
}

void frmAbout::cmdSysInfo_Click()
{
    const std::optional<QString> tool = systemInfoToolPath(m_registry);
    if (!tool) {
        MsgBox(systemInfoUnavailableText(), mb::OKOnly);
        return;
    }
    trapped([&] { Shell(*tool, 1); });
}

} // namespace tessaro
