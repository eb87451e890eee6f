#include "shell/ui/frmSplash.h"

#include "platform/core/AppInfo.h"
#include "platform/core/ErrorTraps.h"

#include <QFont>
#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace tessaro {

namespace {
QLabel *label(QWidget *parent, const char *name, const QString &text, int pointSize,
              bool bold = false)
{
    auto *l = new QLabel(text, parent);
    l->setObjectName(QLatin1String(name));
    QFont font(QStringLiteral("Verdana"), pointSize);
    font.setBold(bold);
    l->setFont(font);
    l->setAlignment(Qt::AlignCenter);
    return l;
}
} // namespace

QString frmSplash::versionText()
{
    return QStringLiteral("Version %1.%2.%3")
        .arg(versionMajor())
        .arg(versionMinor())
        .arg(versionRevision());
}

frmSplash::frmSplash(std::function<void()> showMain, QWidget *parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint), m_showMain(std::move(showMain)),
      m_timer(new QTimer(this))
{
    setObjectName(QStringLiteral("frmSplash"));
    setAttribute(Qt::WA_DeleteOnClose);

    auto *frame = new QFrame(this);
    frame->setObjectName(QStringLiteral("fraMainFrame"));
    frame->setFrameShape(QFrame::Box);
    auto *layout = new QVBoxLayout(frame);
    layout->addWidget(label(frame, "Label1", QString(), 10));
    layout->addWidget(label(frame, "lblProductName", appTitle(), 28, true));
    m_version = label(frame, "lblVersion", QStringLiteral("0.0"), 10);
    layout->addWidget(m_version);
    layout->addWidget(label(frame, "lblPlatform", QStringLiteral("Win 98/NT/2000"), 10));
    layout->addWidget(label(frame, "Label2", QString(), 10));
    layout->addStretch();
    layout->addWidget(label(frame, "lblDescription",
                            QStringLiteral("A development environment for Quake III Arena mods"),
                            8));
    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(frame);
    resize(420, 260);
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());

    m_timer->setObjectName(QStringLiteral("Timer1"));
    m_timer->setInterval(1000);
    m_timer->setTimerType(Qt::PreciseTimer); // a coarse timer may fire 5% early
    connect(m_timer, &QTimer::timeout, this, [this] { untrapped([this] { Timer1_Timer(); }); });
    m_timer->start();
    Form_Load();
}

void frmSplash::Form_Load()
{
    m_version->setText(versionText());
    m_continue = true;
}

void frmSplash::Timer1_Timer()
{
    if (!m_continue)
        return;
    m_continue = false;
    // Start-up closes this splash, and a request to end during start-up can have it
    // deleted before the call returns: the call runs from its own copy.
    const std::function<void()> showMain = std::move(m_showMain);
    if (showMain)
        showMain();
}

} // namespace tessaro
