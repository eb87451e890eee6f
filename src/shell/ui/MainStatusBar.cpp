#include "shell/ui/MainStatusBar.h"

#include <QDateTime>
#include <QLabel>
#include <QLocale>
#include <QTimer>

namespace tessaro {

MainStatusBar::MainStatusBar(QWidget *parent) : QStatusBar(parent), m_clock(new QTimer(this))
{
    setObjectName(QStringLiteral("sbStatusBar"));
    setSizeGripEnabled(true);
    for (int number = 1; number <= 3; ++number) {
        auto *label = new QLabel(this);
        label->setObjectName(QStringLiteral("sbStatusBar_%1").arg(number));
        label->setFrameShape(QFrame::StyledPanel);
        label->setFrameShadow(QFrame::Sunken);
        label->setContentsMargins(4, 0, 4, 0);
        addPermanentWidget(label, number == 1 ? 1 : 0);
    }
    panel(1)->setText(QStringLiteral("Status"));
    m_clock->setObjectName(QStringLiteral("sbStatusBarClock"));
    m_clock->setInterval(1000);
    connect(m_clock, &QTimer::timeout, this, &MainStatusBar::updateClock);
    m_clock->start();
    updateClock();
}

QLabel *MainStatusBar::panel(int number) const
{
    return findChild<QLabel *>(QStringLiteral("sbStatusBar_%1").arg(number));
}

QString MainStatusBar::panelText(int number) const
{
    QLabel *label = panel(number);
    return label ? label->text() : QString();
}

void MainStatusBar::setPanelText(int number, const QString &text)
{
    if (QLabel *label = panel(number))
        label->setText(text);
}

void MainStatusBar::updateClock()
{
    const QDateTime now = QDateTime::currentDateTime();
    const QLocale locale;
    panel(2)->setText(locale.toString(now.date(), QLocale::ShortFormat));
    panel(3)->setText(locale.toString(now.time(), QLocale::ShortFormat));
}

} // namespace tessaro
