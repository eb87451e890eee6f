#include "shell/ui/ReBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyleOption>
#include <QVBoxLayout>

namespace tessaro {

namespace {

// The band's grip: two raised lines the width of a finger.
class BandGrip : public QWidget
{
public:
    explicit BandGrip(QWidget *parent) : QWidget(parent) { setFixedWidth(8); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter p(this);
        for (int x : {2, 5}) {
            p.setPen(palette().color(QPalette::Light));
            p.drawLine(x, 3, x, height() - 4);
            p.setPen(palette().color(QPalette::Dark));
            p.drawLine(x + 1, 3, x + 1, height() - 4);
        }
    }
};

} // namespace

ReBar::ReBar(QWidget *parent) : QWidget(parent), m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins(1, 1, 1, 1);
    m_layout->setSpacing(1);
}

QWidget *ReBar::addBand(QWidget *child, const QString &caption, const QString &key)
{
    auto *band = new QFrame(this);
    band->setObjectName(objectName() + QLatin1Char('_') + key);
    band->setProperty("Key", key);
    band->setProperty("Caption", caption);
    band->setFrameShape(QFrame::StyledPanel);
    band->setFrameShadow(QFrame::Raised);
    auto *row = new QHBoxLayout(band);
    row->setContentsMargins(1, 1, 4, 1);
    row->setSpacing(4);
    row->addWidget(new BandGrip(band));
    if (!caption.isEmpty()) {
        auto *label = new QLabel(caption, band);
        label->setObjectName(band->objectName() + QStringLiteral("_caption"));
        row->addWidget(label);
    }
    child->setParent(band);
    row->addWidget(child);
    // The window keeps its natural width; the rest of the row stays empty.
    row->addStretch(1);
    m_layout->addWidget(band);
    ++m_bands;
    return band;
}

QWidget *ReBar::band(const QString &key) const
{
    return findChild<QWidget *>(objectName() + QLatin1Char('_') + key, Qt::FindDirectChildrenOnly);
}

} // namespace tessaro
