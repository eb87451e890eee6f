#include "shell/ui/FindPanel.h"

#include "shell/ui/TwipsGeometry.h"

#include <QComboBox>
#include <QPushButton>

#include <algorithm>

namespace tessaro {

namespace {
// Design geometry in twips: the panel, the button's width and the gap before it.
constexpr double kPanelWidth = 6975;
constexpr double kPanelHeight = 315;
constexpr double kButtonWidth = 1095;
constexpr double kGap = 105;
// The narrowest text box that still shows a word or two.
constexpr double kLeastTextWidth = 1500;
} // namespace

FindPanel::FindPanel(QWidget *parent)
    : QWidget(parent), m_fndText(new QComboBox(this)),
      m_cmdFind(new QPushButton(QStringLiteral("Find"), this))
{
    setObjectName(QStringLiteral("Picture2"));
    m_fndText->setObjectName(QStringLiteral("fndText"));
    m_fndText->setEditable(true);
    // Enter in the box neither searches nor adds the text to the list.
    m_fndText->setInsertPolicy(QComboBox::NoInsert);
    m_cmdFind->setObjectName(QStringLiteral("cmdFind"));
    m_cmdFind->setAutoDefault(false);
    setMaximumSize(sizeHint());
    resize(sizeHint());
    placeControls();
}

QSize FindPanel::sizeHint() const
{
    const double tpp = twipsPerPixelOf(this);
    return QSize(twipsToPixels(kPanelWidth, tpp), twipsToPixels(kPanelHeight, tpp));
}

QSize FindPanel::minimumSizeHint() const
{
    const double tpp = twipsPerPixelOf(this);
    return QSize(twipsToPixels(kLeastTextWidth + kGap + kButtonWidth, tpp),
                 twipsToPixels(kPanelHeight, tpp));
}

void FindPanel::resizeEvent(QResizeEvent *)
{
    placeControls();
}

void FindPanel::placeControls()
{
    // At the design width this is the design: the text box 0-5775, the button at 5880.
    const double tpp = twipsPerPixelOf(this);
    const int buttonWidth = twipsToPixels(kButtonWidth, tpp);
    const int buttonLeft = width() - buttonWidth;
    m_cmdFind->setGeometry(buttonLeft, 0, buttonWidth, height());
    m_fndText->setGeometry(0, 0, std::max(0, buttonLeft - twipsToPixels(kGap, tpp)), height());
}

} // namespace tessaro
