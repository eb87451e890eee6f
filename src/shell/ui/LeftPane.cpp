#include "shell/ui/LeftPane.h"

#include "shell/ui/TabStrip.h"
#include "shell/ui/TwipsGeometry.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QTreeWidget>

namespace tessaro {

namespace {

template <typename W> W *named(W *widget, const char *name)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QTreeWidget *tree(QWidget *page, const char *name)
{
    auto *t = named(new QTreeWidget(page), name);
    t->setHeaderHidden(true);
    return t;
}

} // namespace

LeftPane::LeftPane(QWidget *parent)
    : QWidget(parent), m_geometry(LeftPaneGeometry::design()),
      m_tabs(new TabStrip({QStringLiteral("FileView"), QStringLiteral("StructView"),
                           QStringLiteral("File Browser")},
                          this)),
      m_picVert(new QFrame(this))
{
    setObjectName(QStringLiteral("Picture1"));
    setFocusPolicy(Qt::StrongFocus);
    m_tabs->setObjectName(QStringLiteral("tbsOptions"));

    for (int i = 0; i < 3; ++i) {
        auto *page = new QWidget(this);
        page->setObjectName(QStringLiteral("picOptions_%1").arg(i));
        page->setEnabled(m_pageEnabled[i]);
    }
    QWidget *fileView = picOptions(0);
    named(new QLineEdit(fileView), "Text1");
    tree(fileView, "Code1");
    tree(picOptions(1), "List1");
    QWidget *browser = picOptions(2);
    named(new QComboBox(browser), "Drive1");
    named(new QListWidget(browser), "Dir1");
    named(new QListWidget(browser), "File1");

    m_picVert->setObjectName(QStringLiteral("picVert"));
    m_picVert->setFrameShape(QFrame::Panel);
    m_picVert->installEventFilter(this);
    // Pages lie over the tab strip, the bar over everything.
    for (int i = 0; i < 3; ++i)
        picOptions(i)->raise();
    m_picVert->raise();

    connect(m_tabs, &TabStrip::Click, this, &LeftPane::tbsOptions_Click);
    placeControls();
}

QWidget *LeftPane::picOptions(int index) const
{
    return findChild<QWidget *>(QStringLiteral("picOptions_%1").arg(index),
                                Qt::FindDirectChildrenOnly);
}

double LeftPane::twipsPerPixel() const
{
    return twipsPerPixelOf(this);
}

QWidget *LeftPane::control(const char *name) const
{
    return findChild<QWidget *>(QString::fromLatin1(name));
}

QTreeWidget *LeftPane::Code1() const
{
    return findChild<QTreeWidget *>(QStringLiteral("Code1"));
}

QTreeWidget *LeftPane::List1() const
{
    return findChild<QTreeWidget *>(QStringLiteral("List1"));
}

QComboBox *LeftPane::Drive1() const
{
    return findChild<QComboBox *>(QStringLiteral("Drive1"));
}

QListWidget *LeftPane::Dir1() const
{
    return findChild<QListWidget *>(QStringLiteral("Dir1"));
}

QListWidget *LeftPane::File1() const
{
    return findChild<QListWidget *>(QStringLiteral("File1"));
}

void LeftPane::Picture1_Resize()
{
    const double oldWidth = m_geometry.Picture1.width;
    m_geometry.Picture1.height = height() * twipsPerPixel();
    layOutLeftPane(m_geometry);
    placeControls();
    if (m_geometry.Picture1.width != oldWidth)
        Q_EMIT widthChanged();
}

void LeftPane::placeControls()
{
    const double tpp = twipsPerPixel();
    const auto place = [&](QWidget *w, const TwipsRect &r) {
        if (w)
            placeInTwips(w, r, tpp);
    };
    place(m_tabs, m_geometry.tbsOptions);
    place(m_picVert, m_geometry.picVert);
    for (int i = 0; i < 3; ++i)
        place(picOptions(i), m_geometry.picOptions[i]);
    place(control("Text1"), m_geometry.Text1);
    place(control("Code1"), m_geometry.Code1);
    place(control("List1"), m_geometry.List1);
    place(control("Drive1"), m_geometry.Drive1);
    place(control("Dir1"), m_geometry.Dir1);
    place(control("File1"), m_geometry.File1);
}

void LeftPane::tbsOptions_Click()
{
    switchLeftPanePage(m_geometry, m_pageEnabled, m_tabs->selectedIndex());
    for (int i = 0; i < 3; ++i) {
        picOptions(i)->setEnabled(m_pageEnabled[i]);
        placeInTwips(picOptions(i), m_geometry.picOptions[i], twipsPerPixel());
    }
}

void LeftPane::resizeEvent(QResizeEvent *)
{
    Picture1_Resize();
}

void LeftPane::keyPressEvent(QKeyEvent *event)
{
    // Ctrl+Tab (Ctrl alone) selects the next tab, wrapping to the first.
    if (event->key() == Qt::Key_Tab && event->modifiers() == Qt::ControlModifier) {
        const int next = m_tabs->selectedIndex() % m_tabs->tabCount() + 1;
        m_tabs->setSelectedIndex(next);
        return;
    }
    QWidget::keyPressEvent(event);
}

bool LeftPane::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_picVert && event->type() == QEvent::MouseButtonPress) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        const QPoint at = mouse->position().toPoint();
        Q_EMIT picVertPressed(at.x(), at.y());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void LeftPane::setBarLeft(double twips)
{
    m_geometry.picVert.left = twips;
    placeInTwips(m_picVert, m_geometry.picVert, twipsPerPixel());
}

void LeftPane::setBarTop(double twips)
{
    m_geometry.picVert.top = twips;
    placeInTwips(m_picVert, m_geometry.picVert, twipsPerPixel());
}

void LeftPane::setBarBorderStyle(int style)
{
    m_picVert->setFrameShape(style == 0 ? QFrame::NoFrame : QFrame::Panel);
}

void LeftPane::setBarMousePointer(int pointer)
{
    m_picVert->setCursor(pointer == 7 ? Qt::SizeVerCursor : Qt::SizeHorCursor);
}

} // namespace tessaro
