#include "search/ui/frmFnF.h"

#include "search/ui/UnloadForm.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tessaro::search {

frmFnF::frmFnF(QWidget *parent)
    : QWidget(parent), m_cmdFind(new QPushButton(QStringLiteral("Find in Files"), this)),
      m_cmdCancel(new QPushButton(QStringLiteral("Cancel"), this)), m_txtFind(new QLineEdit(this)),
      m_label1(new QLabel(QStringLiteral("Find What:"), this))
{
    setObjectName(QStringLiteral("frmFnF"));
    setWindowTitle(QStringLiteral("Find in Files"));
    m_cmdFind->setObjectName(QStringLiteral("cmdFind"));
    m_cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    m_txtFind->setObjectName(QStringLiteral("txtFind"));
    m_label1->setObjectName(QStringLiteral("Label1"));
    m_label1->setBuddy(m_txtFind);

    auto *layout = new QGridLayout(this);
    layout->addWidget(m_label1, 0, 0);
    layout->addWidget(m_txtFind, 0, 1);
    layout->addWidget(m_cmdFind, 0, 2);
    layout->addWidget(m_cmdCancel, 1, 2);
    layout->setColumnStretch(1, 1);
    setTabOrder(m_txtFind, m_cmdFind);
    setTabOrder(m_cmdFind, m_cmdCancel);

    connect(m_cmdFind, &QPushButton::clicked, this, &frmFnF::cmdFind_Click);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmFnF::cmdCancel_Click);
}

void frmFnF::cmdFind_Click()
{
    Q_EMIT findRequested(m_txtFind->text());
    unloadForm(this);
}

void frmFnF::cmdCancel_Click()
{
    unloadForm(this);
}

} // namespace tessaro::search
