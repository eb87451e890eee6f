#include "workspace/ui/frmRecover.h"

#include "platform/core/AppInfo.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace tessaro {

frmRecover::frmRecover(const QVector<RecoveryOffer> &offers, QWidget *parent)
    : QDialog(parent), m_list(new QListWidget(this))
{
    setObjectName(QStringLiteral("frmRecover"));
    setWindowTitle(appTitle() + QStringLiteral(" - Recover Unsaved Work"));
    auto *label =
        new QLabel(tr("%1 ended before these documents were saved. Tick the ones to open again:")
                       .arg(appTitle()),
                   this);
    label->setObjectName(QStringLiteral("lblExplain"));
    label->setWordWrap(true);

    m_list->setObjectName(QStringLiteral("lstDocuments"));
    // A path too long for the window loses its middle, never its file name; the
    // whole path is the item's tooltip.
    m_list->setTextElideMode(Qt::ElideMiddle);
    int widest = 0;
    for (const RecoveryOffer &offer : offers) {
        auto *item =
            new QListWidgetItem(tr("%1 (%2 bytes)").arg(offer.caption).arg(offer.bytes), m_list);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Checked);
        item->setToolTip(offer.path.isEmpty() ? tr("%1 (never saved)").arg(offer.caption)
                                              : offer.path);
        widest = std::max(widest, m_list->fontMetrics().horizontalAdvance(item->text()));
    }

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *recover =
        buttons->addButton(tr("&Recover Selected"), QDialogButtonBox::AcceptRole);
    recover->setObjectName(QStringLiteral("cmdRecover"));
    recover->setDefault(true);
    QPushButton *discard = buttons->addButton(tr("&Discard"), QDialogButtonBox::DestructiveRole);
    discard->setObjectName(QStringLiteral("cmdDiscard"));
    connect(recover, &QPushButton::clicked, this, &frmRecover::recoverSelected);
    connect(discard, &QPushButton::clicked, this, &frmRecover::discardAll);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
    // Wide enough for the usual path whole (the check box and the frames beside it),
    // within the screen.
    const int wanted = widest + 100;
    const QScreen *shown = parent ? parent->screen() : QGuiApplication::primaryScreen();
    const int room = shown ? shown->availableGeometry().width() * 9 / 10 : 1000;
    resize(std::clamp(wanted, 480, std::max(480, room)), 300);
}

void frmRecover::recoverSelected()
{
    m_choice.action = RecoveryChoice::Recover;
    m_choice.selected.clear();
    for (int i = 0; i < m_list->count(); ++i)
        if (m_list->item(i)->checkState() == Qt::Checked)
            m_choice.selected.append(i);
    accept();
}

void frmRecover::discardAll()
{
    m_choice.action = RecoveryChoice::Discard;
    m_choice.selected.clear();
    accept();
}

namespace {

class DialogRecoveryPrompt : public RecoveryPromptService
{
public:
    RecoveryChoice choose(const QVector<RecoveryOffer> &offers) override
    {
        frmRecover dialog(offers, QApplication::activeWindow());
        dialog.exec();
        return dialog.choice();
    }
};

} // namespace

void installRecoveryDialog()
{
    if (qEnvironmentVariableIsSet("TESSARO_HEADLESS_MSGBOX"))
        return;
    static DialogRecoveryPrompt prompt;
    setRecoveryPromptService(&prompt);
}

} // namespace tessaro
