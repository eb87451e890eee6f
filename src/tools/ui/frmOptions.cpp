#include "tools/ui/frmOptions.h"

#include "state/core/AppState.h"
#include "tools/core/OptionsTabs.h"
#include "tools/core/ProgramBrowse.h"
#include "tools/ui/TwipsGeometry.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>

namespace tessaro {

namespace {

namespace tg = twipsgeometry;

template <typename W> W *named(W *widget, const char *name)
{
    widget->setObjectName(QLatin1String(name));
    return widget;
}

QPushButton *button(QWidget *parent, const char *name, const QString &caption)
{
    return named(new QPushButton(caption, parent), name);
}

} // namespace

frmOptions::frmOptions(QWidget *owner) : QDialog(owner)
{
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Options"));

    m_tbsOptions = named(new QTabBar(this), "tbsOptions");
    m_tbsOptions->setExpanding(false);
    for (const char *caption : {"Paths", "Sample 2", "Sample 3", "Sample 4"})
        m_tbsOptions->addTab(QString::fromLatin1(caption));
    tg::place(m_tbsOptions, 120, 120, 6090, 360);

    // The body of the tab strip, behind the pages.
    auto *body = named(new QFrame(this), "tbsOptionsBody");
    body->setFrameShape(QFrame::StyledPanel);
    tg::place(body, 120, 465, 6090, 3660);

    for (int i = 0; i < pageCount; ++i) {
        auto *page = new QWidget(this);
        page->setObjectName(pageName(i));
        tg::place(page, optionstabs::shownLeftTwips, 540, 5910, 3495);
        m_picOptions[i] = page;
    }
    buildPathsPage(m_picOptions[0]);
    const char *sampleNames[] = {"fraSample2", "fraSample3", "fraSample4"};
    for (int i = 1; i < pageCount; ++i) {
        auto *frame = named(new QGroupBox(QStringLiteral("Sample %1").arg(i + 1), m_picOptions[i]),
                            sampleNames[i - 1]);
        tg::place(frame, 0, 0, 5910, 3375);
    }

    auto *ok = button(this, "cmdOK", QStringLiteral("OK"));
    auto *cancel = button(this, "cmdCancel", QStringLiteral("Cancel"));
    auto *apply = button(this, "cmdApply", QStringLiteral("&Apply"));
    tg::place(ok, 2490, 4260, 1095, 375);
    tg::place(cancel, 3705, 4260, 1095, 375);
    tg::place(apply, 4920, 4260, 1095, 375);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &frmOptions::cmdOK_Click);
    connect(cancel, &QPushButton::clicked, this, &frmOptions::cmdCancel_Click);
    connect(apply, &QPushButton::clicked, this, &frmOptions::cmdApply_Click);
    connect(m_tbsOptions, &QTabBar::currentChanged, this, &frmOptions::tbsOptions_Click);

    const double perPixel = tg::twipsPerPixel(this);
    setFixedSize(int(6330 / perPixel), int(4770 / perPixel));

    installEventFilter(this);
    for (QWidget *child : findChildren<QWidget *>())
        child->installEventFilter(this);

    Form_Load();
    tbsOptions_Click();
}

void frmOptions::buildPathsPage(QWidget *page)
{
    auto *frame = named(new QGroupBox(QStringLiteral("Paths"), page), "frmPath");
    tg::place(frame, 0, 0, 5910, 3375);

    struct Row
    {
        const char *label, *caption, *box, *browse;
        QLineEdit **target;
        void (frmOptions::*click)();
    };
    const Row rows[] = {
        {"Label1", "FTP Client Path", "txtftppath", "cmdBrowse", &m_txtftppath,
         &frmOptions::cmdBrowse_Click},
        {"Label2", "Web Browser Path", "txtWeb", "cmdWBro", &m_txtWeb, &frmOptions::cmdWBro_Click},
        {"Label3", "Email Client Path", "txtEmail", "cmdEBro", &m_txtEmail,
         &frmOptions::cmdEBro_Click},
    };
    double top = 360;
    for (const Row &row : rows) {
        auto *label = named(new QLabel(QString::fromLatin1(row.caption), frame), row.label);
        tg::place(label, 240, top, 4200, 255);
        auto *box = named(new QLineEdit(frame), row.box);
        tg::place(box, 240, top + 270, 4200, 345);
        auto *browse = button(frame, row.browse, QStringLiteral("Browse..."));
        tg::place(browse, 4560, top + 270, 1140, 345);
        connect(browse, &QPushButton::clicked, this, row.click);
        *row.target = box;
        top += 900;
    }
}

void frmOptions::showModal(QWidget *owner)
{
    frmOptions dialog(owner);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.exec();
}

QString frmOptions::pageName(int index)
{
    return QStringLiteral("picOptions_%1").arg(index);
}

QWidget *frmOptions::picOptions(int index) const
{
    return index >= 0 && index < pageCount ? m_picOptions[index] : nullptr;
}

void frmOptions::Form_Load()
{
    const ToolSettings &tools = app().tools;
    m_txtftppath->setText(tools.ftpPath);
    m_txtWeb->setText(tools.webPath);
    m_txtEmail->setText(tools.emaPath);
}

void frmOptions::copyBoxesToSettings()
{
    ToolSettings &tools = app().tools;
    tools.ftpPath = m_txtftppath->text();
    tools.webPath = m_txtWeb->text();
    tools.emaPath = m_txtEmail->text();
}

void frmOptions::cmdApply_Click()
{
    copyBoxesToSettings();
}

void frmOptions::cmdOK_Click()
{
    copyBoxesToSettings();
    accept();
}

void frmOptions::cmdCancel_Click()
{
    reject();
}

void frmOptions::browseInto(QLineEdit *box, const QString &title)
{
    const QString chosen = programbrowse::choose(title);
    if (!chosen.isEmpty())
        box->setText(chosen);
}

void frmOptions::cmdBrowse_Click()
{
    browseInto(m_txtftppath, programbrowse::ftpTitle);
}
void frmOptions::cmdWBro_Click()
{
    browseInto(m_txtWeb, programbrowse::webTitle);
}
void frmOptions::cmdEBro_Click()
{
    browseInto(m_txtEmail, programbrowse::emailTitle);
}

void frmOptions::tbsOptions_Click()
{
    const QVector<double> lefts =
        optionstabs::pageLefts(m_tbsOptions->currentIndex() + 1, m_tbsOptions->count());
    for (int i = 0; i < lefts.size() && i < pageCount; ++i)
        tg::setLeft(m_picOptions[i], lefts[i]);
}

bool frmOptions::Form_KeyDown(int key, Qt::KeyboardModifiers modifiers)
{
    // With Shift held, Tab arrives as Backtab.
    const bool tabKey = key == Qt::Key_Tab || key == Qt::Key_Backtab;
    const bool shift = key == Qt::Key_Backtab || modifiers.testFlag(Qt::ShiftModifier);
    const auto step = optionstabs::stepForKey(tabKey, modifiers.testFlag(Qt::ControlModifier),
                                              shift, modifiers.testFlag(Qt::AltModifier));
    if (step == optionstabs::TabStep::None)
        return false;
    const int selected =
        optionstabs::steppedTab(m_tbsOptions->currentIndex() + 1, m_tbsOptions->count(), step);
    m_tbsOptions->setCurrentIndex(selected - 1);
    return true;
}

bool frmOptions::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (Form_KeyDown(key->key(), key->modifiers()))
            return true;
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace tessaro
