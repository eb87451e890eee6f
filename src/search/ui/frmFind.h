#pragma once

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tessaro::search {

// A find dialog that no command opens: "Find" stores its text and raises the flag,
// which nothing reads, and closes; "Cancel" closes. Its check boxes are never read.
class frmFind : public QDialog
{
    Q_OBJECT
public:
    explicit frmFind(QWidget *parent = nullptr);

    // The values the dialog leaves behind ("" and 0 until its Find is pressed).
    static QString dialogFindText();
    static qint16 dialogFindFlag();
    static void resetDialogFind();

    void cmdFind_Click();
    void cmdCancel_Click();

private:
    QLabel *m_label1;
    QLineEdit *m_txtFind;
    QCheckBox *m_chkMC;
    QCheckBox *m_chkMWW;
    QPushButton *m_cmdFind;
    QPushButton *m_cmdCancel;
};

} // namespace tessaro::search
