#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;

namespace tessaro::search {

// The Find in Files dialog, an MDI child of the main window shown without blocking.
// "Find in Files" hands the text on (findRequested) and closes the dialog; "Cancel"
// only closes it.
class frmFnF : public QWidget
{
    Q_OBJECT
public:
    explicit frmFnF(QWidget *parent = nullptr);

    QLineEdit *txtFind() const { return m_txtFind; }

    void cmdFind_Click();
    void cmdCancel_Click();

Q_SIGNALS:
    // The search text was chosen; the dialog closes after the receivers have run.
    void findRequested(const QString &text);

private:
    QPushButton *m_cmdFind;
    QPushButton *m_cmdCancel;
    QLineEdit *m_txtFind;
    QLabel *m_label1;
};

} // namespace tessaro::search
