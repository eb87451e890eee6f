#include "shell/ui/MainPanes.h"
#include "platform/ui/FixedPitchFont.h"

#include "shell/ui/FindPanel.h"
#include "shell/ui/LeftPane.h"
#include "shell/ui/ReBar.h"
#include "shell/ui/TwipsGeometry.h"

#include <QEvent>
#include <QFontDatabase>
#include <QFontInfo>
#include <QListWidget>
#include <QMdiArea>
#include <QToolBar>
#include <algorithm>

namespace tessaro {

namespace {

// "Courier" when the system has it, else the system's fixed-pitch font.
QFont courier()
{
    QFont font(QStringLiteral("Courier"));
    font.setStyleHint(QFont::TypeWriter);
    if (!QFontInfo(font).fixedPitch())
        font = fixedPitchFont();
    return font;
}

} // namespace

MainPanes::MainPanes(QMdiArea *mdiArea, QWidget *parent)
    : QWidget(parent), m_output(new QWidget(this)), m_lstOut(new QListWidget(m_output)),
      m_left(new LeftPane(this)), m_holder(new QWidget(this)), m_rebar(new ReBar(m_holder)),
      m_findPanel(new FindPanel), m_mdiArea(mdiArea)
{
    setObjectName(QStringLiteral("MainPanes"));

    m_output->setObjectName(QStringLiteral("Picture3"));
    m_lstOut->setObjectName(QStringLiteral("lstOut"));
    m_lstOut->setFont(courier());
    m_output->installEventFilter(this);

    m_holder->setObjectName(QStringLiteral("picHolder"));
    m_rebar->setObjectName(QStringLiteral("cReBar1"));

    mdiArea->setParent(this);
    connect(m_left, &LeftPane::widthChanged, this, &MainPanes::arrange);
}

QWidget *MainPanes::Picture2() const
{
    return m_findPanel;
}

QComboBox *MainPanes::fndText() const
{
    return m_findPanel->fndText();
}

QPushButton *MainPanes::cmdFind() const
{
    return m_findPanel->cmdFind();
}

void MainPanes::addBands(QToolBar *toolbar)
{
    m_rebar->addBand(toolbar, QString(), QStringLiteral("Toolbar1"));
    m_rebar->addBand(m_findPanel, QStringLiteral("Find"), QStringLiteral("Toolbar2"));
    arrange();
}

void MainPanes::picHolder_Resize()
{
    const int h = m_rebar->sizeHint().height();
    m_rebar->setGeometry(0, 0, m_holder->width(), h);
    m_holder->resize(m_holder->width(), h);
}

void MainPanes::Picture3_Resize()
{
    m_lstOut->setGeometry(0, 0, m_output->width(), m_output->height());
}

void MainPanes::arrange()
{
    const double tpp = twipsPerPixelOf(this);
    const int w = width();
    int top = 0;
    int bottom = height();
    if (!m_holder->isHidden()) {
        m_holder->setGeometry(0, 0, w, m_rebar->sizeHint().height());
        picHolder_Resize();
        top = m_holder->height();
    }
    if (!m_output->isHidden()) {
        const int h = twipsToPixels(m_outputHeightTwips, tpp);
        bottom = std::max(top, bottom - h);
        m_output->setGeometry(0, bottom, w, height() - bottom);
    }
    int left = 0;
    if (!m_left->isHidden()) {
        const int paneWidth = std::min(w, twipsToPixels(m_left->twips().Picture1.width, tpp));
        m_left->setGeometry(0, top, paneWidth, bottom - top);
        left = paneWidth;
    }
    m_mdiArea->setGeometry(left, top, w - left, bottom - top);
}

void MainPanes::resizeEvent(QResizeEvent *)
{
    arrange();
}

bool MainPanes::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_output) {
        if (event->type() == QEvent::Resize)
            Picture3_Resize();
        else if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
            arrange();
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace tessaro
