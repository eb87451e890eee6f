#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace tessaro {

// One page of the mod publishing wizard: a window of its own with the wizard's
// caption and picture. Moving to another page shows that page (creating it when it
// does not exist) and then unloads this one. Unloading runs Form_Unload and destroys
// the window; every way of leaving the page (the page's buttons, the window's close
// button) unloads it.
//
// The wizard's commands install no error trap: a run-time error in them ends the
// program with the run-time's message.
class WizardPage : public QWidget
{
    Q_OBJECT
public:
    int pageNumber() const { return m_number; }

    // Unloads the page (Unload Me).
    void unload();

    // The page buttons: Next and Back move to the neighbouring page (a page without
    // one has no such button), Cancel (on the last page "Finish") closes the wizard.
    void cmdNext_Click();
    void cmdBack_Click();
    void cmdCancel_Click();

protected:
    explicit WizardPage(int number);

    // Shows page `target`, then unloads this page.
    void moveToPage(int target);

    // Runs when the page is unloaded, before it is destroyed.
    virtual void Form_Unload() {}

    void closeEvent(QCloseEvent *event) override;

    // The page's heading, Label1, in bold.
    QLabel *addTitle(const QString &text);
    QLabel *addLabel(const char *name, const QString &text, double left, double top, double width,
                     double height);
    QPushButton *addButton(const char *name, const QString &caption, double left, double top,
                           double width, double height);

    // The common places of the page's parts, in twips.
    static constexpr double textLeft = 2760;
    static constexpr double textWidth = 4320;
    static constexpr double buttonTop = 4425;
    static constexpr double buttonWidth = 1035;
    static constexpr double buttonHeight = 375;
    static constexpr double backLeft = 3840;
    static constexpr double nextLeft = 4935;
    static constexpr double cancelLeft = 6045;

private:
    int m_number;
    bool m_unloaded = false;
};

} // namespace tessaro
