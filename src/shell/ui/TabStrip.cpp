#include "shell/ui/TabStrip.h"

#include <QPainter>
#include <QStyleOptionFrame>
#include <QTabBar>

namespace tessaro {

TabStrip::TabStrip(const QStringList &captions, QWidget *parent)
    : QWidget(parent), m_bar(new QTabBar(this))
{
    m_bar->setObjectName(QStringLiteral("tabBar"));
    m_bar->setShape(QTabBar::RoundedSouth);
    m_bar->setDrawBase(false);
    m_bar->setExpanding(false);
    // Captions are always shown whole; when the pane is too narrow for every tab the
    // strip scrolls.
    m_bar->setUsesScrollButtons(true);
    m_bar->setElideMode(Qt::ElideNone);
    QFont small = m_bar->font();
    small.setPointSizeF(small.pointSizeF() * 0.9);
    m_bar->setFont(small);
    for (const QString &caption : captions)
        m_bar->setTabToolTip(m_bar->addTab(caption), caption);
    connect(m_bar, &QTabBar::currentChanged, this, [this] { Q_EMIT Click(); });
}

int TabStrip::tabCount() const
{
    return m_bar->count();
}

int TabStrip::selectedIndex() const
{
    return m_bar->currentIndex() + 1;
}

void TabStrip::setSelectedIndex(int index)
{
    m_bar->setCurrentIndex(index - 1);
}

void TabStrip::resizeEvent(QResizeEvent *)
{
    const int h = m_bar->sizeHint().height();
    m_bar->setGeometry(0, height() - h, width(), h);
}

void TabStrip::paintEvent(QPaintEvent *)
{
    // The panel the pages sit on, above the tabs.
    QPainter painter(this);
    QStyleOptionFrame panel;
    panel.initFrom(this);
    panel.rect = QRect(0, 0, width(), height() - m_bar->height() + 1);
    panel.frameShape = QFrame::StyledPanel;
    panel.lineWidth = 1;
    style()->drawPrimitive(QStyle::PE_FrameTabWidget, &panel, &painter, this);
}

} // namespace tessaro
