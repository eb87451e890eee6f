#include "build/ui/frmProps.h"

#include "platform/core/CommonDialog.h"
#include "platform/core/ErrorTraps.h"
#include "state/core/AppState.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tessaro {

namespace {

// Executables on Linux carry no extension, so the filter shows every file.
const char *const kExecutableFilter = "Executables (*)|*";

} // namespace

frmProps::frmProps(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmProps"));
    setWindowTitle(QStringLiteral("Properties"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);

    // The switches.
    QGroupBox *frame2 = addFrame("Frame2", QStringLiteral("Object Type"));
    optO = addOption("optO", QStringLiteral(".o"));
    optObj = addOption("optObj", QStringLiteral(".obj"));
    QGroupBox *frame1 = addFrame("Frame1", QStringLiteral("Compiler Type"));
    optOther = addOption("optOther", QStringLiteral("Other"));
    optLCC = addOption("optLCC", QStringLiteral("LCC"));
    QGroupBox *frame3 = addFrame("Frame3", QStringLiteral("Use Linker?"));
    optNo = addOption("optNo", QStringLiteral("No"));
    optYes = addOption("optYes", QStringLiteral("Yes"));
    const std::pair<QGroupBox *, std::pair<QRadioButton *, QRadioButton *>> pairs[] = {
        {frame2, {optO, optObj}}, {frame1, {optOther, optLCC}}, {frame3, {optNo, optYes}}};
    auto *switches = new QHBoxLayout;
    for (const auto &[frame, options] : pairs) {
        auto *layout = new QVBoxLayout(frame);
        layout->addWidget(options.first);
        layout->addWidget(options.second);
        pairOptions(options.first, options.second);
        switches->addWidget(frame);
    }

    // The presets.
    QPushButton *cmdDOS = addButton("cmdDOS", QStringLiteral("DOS EXE Default"));
    QPushButton *cmdQ3 = addButton("cmdQ3", QStringLiteral("Q3 Default"));
    QPushButton *cmdWin = addButton("cmdWin", QStringLiteral("Win EXE Default"));
    auto *presets = new QHBoxLayout;
    presets->addWidget(cmdDOS);
    presets->addWidget(cmdQ3);
    presets->addWidget(cmdWin);

    // The paths and parameters, each with its label and, for a program, its Browse button.
    QGroupBox *frmPath = addFrame("frmPath", QStringLiteral("Paths"));
    txtftppath = addBox("txtftppath");
    txtWeb = addBox("txtWeb");
    txtEmail = addBox("txtEmail");
    txtOpts = addBox("txtOpts");
    txtlparam = addBox("txtlparam");
    txtRC = addBox("txtRC");
    txtRCParams = addBox("txtRCParams");
    txtSuf = addBox("txtSuf");
    QPushButton *cmdBrowse = addButton("cmdBrowse", QStringLiteral("Browse..."));
    QPushButton *cmdWBro = addButton("cmdWBro", QStringLiteral("Browse..."));
    QPushButton *cmdEBro = addButton("cmdEBro", QStringLiteral("Browse..."));
    QPushButton *cmdRBro = addButton("cmdRBro", QStringLiteral("Browse..."));
    struct Row
    {
        QLabel *label;
        QLineEdit *box;
        QPushButton *browse;
    };
    const Row rows[] = {
        {addLabel("Label1", QStringLiteral("Compiler")), txtftppath, cmdBrowse},
        {addLabel("Label2", QStringLiteral("Q3ASM")), txtWeb, cmdWBro},
        {addLabel("Label3", QStringLiteral("Linker (Optional)")), txtEmail, cmdEBro},
        {addLabel("Label4", QStringLiteral("Compiler Params (Optional)")), txtOpts, nullptr},
        {addLabel("Label8", QStringLiteral("Suffixive Compiler Params (Optional)")), txtSuf,
         nullptr},
        {addLabel("Label5", QStringLiteral("Linker Params (Optional)")), txtlparam, nullptr},
        {addLabel("Label7", QStringLiteral("RC (Optional)")), txtRC, cmdRBro},
        {addLabel("Label6", QStringLiteral("RC Params (Optional)")), txtRCParams, nullptr},
    };
    auto *grid = new QGridLayout(frmPath);
    int line = 0;
    for (const Row &row : rows) {
        row.label->setBuddy(row.box);
        grid->addWidget(row.label, line, 0);
        grid->addWidget(row.box, line, 1);
        if (row.browse)
            grid->addWidget(row.browse, line, 2);
        ++line;
    }
    grid->setColumnMinimumWidth(1, 280);

    QPushButton *cmdApply = addButton("cmdApply", QStringLiteral("&Apply"));
    QPushButton *cmdCancel = addButton("cmdCancel", QStringLiteral("Cancel"));
    QPushButton *cmdOK = addButton("cmdOK", QStringLiteral("OK"));
    cmdOK->setDefault(true);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    buttons->addWidget(cmdApply);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(switches);
    layout->addLayout(presets);
    layout->addWidget(frmPath);
    layout->addLayout(buttons);

    connect(cmdApply, &QPushButton::clicked, this, &frmProps::cmdApply_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmProps::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmProps::cmdCancel_Click);
    connect(cmdDOS, &QPushButton::clicked, this, &frmProps::cmdDOS_Click);
    connect(cmdQ3, &QPushButton::clicked, this, &frmProps::cmdQ3_Click);
    connect(cmdWin, &QPushButton::clicked, this, &frmProps::cmdWin_Click);
    connect(cmdBrowse, &QPushButton::clicked, this,
            [this] { browseInto(txtftppath, QStringLiteral("Browse for Compiler")); });
    connect(cmdWBro, &QPushButton::clicked, this,
            [this] { browseInto(txtWeb, QStringLiteral("Browse for Q3ASM")); });
    connect(cmdEBro, &QPushButton::clicked, this,
            [this] { browseInto(txtEmail, QStringLiteral("Browse for Linker")); });
    connect(cmdRBro, &QPushButton::clicked, this,
            [this] { browseInto(txtRC, QStringLiteral("Browse for LRC")); });

    Form_Load();
}

void frmProps::Form_Load()
{
    const ToolSettings &tools = app().tools;
    txtftppath->setText(tools.comPath);
    txtWeb->setText(tools.asmPath);
    txtEmail->setText(tools.lnkPath);
    txtOpts->setText(tools.params);
    txtlparam->setText(tools.lnkparams);
    txtRC->setText(tools.lrcPath);
    txtRCParams->setText(tools.lrcparams);
    txtSuf->setText(tools.sufparam);
    optLCC->setChecked(tools.comLCC);
    optOther->setChecked(!tools.comLCC);
    optObj->setChecked(tools.objOBJ);
    optO->setChecked(!tools.objOBJ);
    optYes->setChecked(tools.useLnk);
    optNo->setChecked(!tools.useLnk);
}

void frmProps::cmdApply_Click()
{
    ToolSettings &tools = app().tools;
    tools.comPath = txtftppath->text();
    tools.params = txtOpts->text();
    tools.asmPath = txtWeb->text();
    tools.lnkPath = txtEmail->text();
    tools.lnkparams = txtlparam->text();
    tools.lrcparams = txtRCParams->text();
    tools.lrcPath = txtRC->text();
    tools.sufparam = txtSuf->text();
    tools.comLCC = optLCC->isChecked();
    tools.objOBJ = optObj->isChecked();
    tools.useLnk = optYes->isChecked();
}

void frmProps::cmdOK_Click()
{
    cmdApply_Click();
    close();
}

void frmProps::cmdCancel_Click()
{
    close();
}

void frmProps::cmdDOS_Click()
{
    applyPreset(QStringLiteral("lcc.exe"), QString(), QStringLiteral("lcclnk.exe"), QString(),
                QString());
}

void frmProps::cmdQ3_Click()
{
    applyPreset(QStringLiteral("lcc.exe"), QStringLiteral("q3asm.exe"), QString(), QString(),
                QString());
}

void frmProps::cmdWin_Click()
{
    applyPreset(QStringLiteral("lcc.exe"), QString(), QStringLiteral("lcclnk.exe"),
                QStringLiteral("-subsystem windows"), QStringLiteral("lrc.exe"));
}

void frmProps::applyPreset(const QString &compiler, const QString &assembler, const QString &linker,
                           const QString &linkerParams, const QString &resourceCompiler)
{
    txtftppath->setText(compiler);
    txtOpts->clear();
    txtWeb->setText(assembler);
    txtEmail->setText(linker);
    txtlparam->setText(linkerParams);
    txtRC->setText(resourceCompiler);
    txtRCParams->clear();
}

void frmProps::browseInto(QLineEdit *box, const QString &title)
{
    trapped([&] {
        FileDialogRequest request;
        request.kind = FileDialogRequest::Open;
        request.title = title;
        request.cancelError = false;
        request.filter = QString::fromLatin1(kExecutableFilter);
        const QString chosen = showFileDialog(request);
        if (!chosen.isEmpty())
            box->setText(chosen);
    });
}

QLineEdit *frmProps::addBox(const char *name)
{
    auto *box = new QLineEdit(this);
    box->setObjectName(QLatin1String(name));
    return box;
}

QPushButton *frmProps::addButton(const char *name, const QString &caption)
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

QRadioButton *frmProps::addOption(const char *name, const QString &caption)
{
    auto *option = new QRadioButton(caption, this);
    option->setObjectName(QLatin1String(name));
    // Each pair is kept by its own click handlers, not by the frame's grouping.
    option->setAutoExclusive(false);
    return option;
}

QLabel *frmProps::addLabel(const char *name, const QString &caption)
{
    auto *label = new QLabel(caption, this);
    label->setObjectName(QLatin1String(name));
    return label;
}

QGroupBox *frmProps::addFrame(const char *name, const QString &caption)
{
    auto *frame = new QGroupBox(caption, this);
    frame->setObjectName(QLatin1String(name));
    return frame;
}

void frmProps::pairOptions(QRadioButton *first, QRadioButton *second)
{
    connect(first, &QRadioButton::clicked, first, [first, second] {
        first->setChecked(true);
        second->setChecked(false);
    });
    connect(second, &QRadioButton::clicked, second, [first, second] {
        second->setChecked(true);
        first->setChecked(false);
    });
}

} // namespace tessaro
