#include "search/ui/frmFind.h"

#include "search/ui/UnloadForm.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tessaro::search {

namespace {
QString g_dialogFindText;
qint16 g_dialogFindFlag = 0;
} // namespace

frmFind::frmFind(QWidget *parent)
    : QDialog(parent), m_label1(new QLabel(QStringLiteral("Find What:"), this)),
      m_txtFind(new QLineEdit(this)), m_chkMC(new QCheckBox(QStringLiteral("Match Case"), this)),
      m_chkMWW(new QCheckBox(QStringLiteral("Match Whole Word"), this)),
      m_cmdFind(new QPushButton(QStringLiteral("Find"), this)),
      m_cmdCancel(new QPushButton(QStringLiteral("Cancel"), this))
{
    setObjectName(QStringLiteral("frmFind"));
    setWindowTitle(QStringLiteral("Find"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_label1->setObjectName(QStringLiteral("Label1"));
    m_txtFind->setObjectName(QStringLiteral("txtFind"));
    m_chkMC->setObjectName(QStringLiteral("chkMC"));
    m_chkMWW->setObjectName(QStringLiteral("chkMWW"));
    m_cmdFind->setObjectName(QStringLiteral("cmdFind"));
    m_cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    m_label1->setBuddy(m_txtFind);

    auto *layout = new QGridLayout(this);
    layout->addWidget(m_label1, 0, 0);
    layout->addWidget(m_txtFind, 0, 1);
    layout->addWidget(m_cmdFind, 0, 2);
    layout->addWidget(m_chkMC, 1, 0, 1, 2);
    layout->addWidget(m_cmdCancel, 1, 2);
    layout->addWidget(m_chkMWW, 2, 0, 1, 2);
    layout->setColumnStretch(1, 1);

    connect(m_cmdFind, &QPushButton::clicked, this, &frmFind::cmdFind_Click);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmFind::cmdCancel_Click);
}

QString frmFind::dialogFindText()
{
    return g_dialogFindText;
}
qint16 frmFind::dialogFindFlag()
{
    return g_dialogFindFlag;
}

void frmFind::resetDialogFind()
{
    g_dialogFindText.clear();
    g_dialogFindFlag = 0;
}

void frmFind::cmdFind_Click()
{
    g_dialogFindText = m_txtFind->text();
    g_dialogFindFlag = 1;
    unloadForm(this);
}

void frmFind::cmdCancel_Click()
{
    unloadForm(this);
}

} // namespace tessaro::search
