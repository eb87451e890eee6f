#pragma once

#include <QDialog>

class QLineEdit;
class QTabBar;

namespace tessaro {

// The options dialog: edits the paths of the FTP client, the web browser and the
// e-mail client in the process-wide settings. A tab strip selects one of four pages;
// the first holds the paths, the others are empty sample frames.
//
// The pages form a control array: page i is named "picOptions_<i>".
class frmOptions : public QDialog
{
    Q_OBJECT
public:
    static constexpr int pageCount = 4;

    explicit frmOptions(QWidget *owner = nullptr);

    // Shows the dialog modally, owned by the given window, and unloads it afterwards.
    static void showModal(QWidget *owner);

    // The name of page i of the control array.
    static QString pageName(int index);
    QWidget *picOptions(int index) const;

    void cmdApply_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdBrowse_Click();
    void cmdWBro_Click();
    void cmdEBro_Click();
    void tbsOptions_Click();
    // Ctrl+Tab and Ctrl+Shift+Tab; true when the key was used.
    bool Form_KeyDown(int key, Qt::KeyboardModifiers modifiers);

protected:
    // Key preview: the form sees every key before the control that has the focus.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Form_Load();
    void copyBoxesToSettings();
    void browseInto(QLineEdit *box, const QString &title);
    void buildPathsPage(QWidget *page);

    QTabBar *m_tbsOptions = nullptr;
    QWidget *m_picOptions[pageCount] = {};
    QLineEdit *m_txtftppath = nullptr;
    QLineEdit *m_txtWeb = nullptr;
    QLineEdit *m_txtEmail = nullptr;
};

} // namespace tessaro
