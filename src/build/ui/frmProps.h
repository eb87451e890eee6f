#pragma once

#include <QDialog>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tessaro {

// The build properties window: the compiler, assembler, linker and resource compiler
// paths and parameters and the three build switches. It edits the process-wide tool
// settings only when Apply or OK is pressed; the store is written at exit. Shown
// without a modal wait; closing it destroys it, so each opening reloads the boxes.
class frmProps : public QDialog
{
    Q_OBJECT
public:
    explicit frmProps(QWidget *parent = nullptr);

private:
    void Form_Load();
    void cmdApply_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdDOS_Click();
    void cmdQ3_Click();
    void cmdWin_Click();
    // Fills the seven boxes that every preset sets.
    void applyPreset(const QString &compiler, const QString &assembler, const QString &linker,
                     const QString &linkerParams, const QString &resourceCompiler);
    // Asks for an executable with the given title and puts a chosen file into the box.
    void browseInto(QLineEdit *box, const QString &title);

    QLineEdit *addBox(const char *name);
    QPushButton *addButton(const char *name, const QString &caption);
    QRadioButton *addOption(const char *name, const QString &caption);
    QLabel *addLabel(const char *name, const QString &caption);
    QGroupBox *addFrame(const char *name, const QString &caption);
    // Clicking either button of a pair sets it on and its partner off.
    static void pairOptions(QRadioButton *first, QRadioButton *second);

    QRadioButton *optO;
    QRadioButton *optObj;
    QRadioButton *optOther;
    QRadioButton *optLCC;
    QRadioButton *optNo;
    QRadioButton *optYes;
    QLineEdit *txtftppath;
    QLineEdit *txtWeb;
    QLineEdit *txtEmail;
    QLineEdit *txtOpts;
    QLineEdit *txtlparam;
    QLineEdit *txtRC;
    QLineEdit *txtRCParams;
    QLineEdit *txtSuf;
};

} // namespace tessaro
