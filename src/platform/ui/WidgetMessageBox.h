#pragma once

#include "platform/core/MsgBox.h"

#include <QMessageBox>

namespace tessaro {

// A message box window that answers keys as the boxes of its kind do: Esc and the
// title bar's close button give the style's escape answer (mb::escapeAnswer), and do
// nothing at all in a box that has none (Yes/No, Abort/Retry/Ignore), where Qt would
// take No.
class MessageBoxWindow : public QMessageBox
{
    Q_OBJECT
public:
    MessageBoxWindow(const QString &prompt, int style, const QString &title,
                     QWidget *parent = nullptr);

    // The answer of the button that closed the box.
    int answer() const;
    // The button of an answer (nullptr when the box has none).
    QAbstractButton *buttonOf(int answer) const;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    int m_style;
};

// The message box service of the running program: a MessageBoxWindow, shown modal.
class WidgetMessageBox : public MessageBoxService
{
public:
    int show(const QString &prompt, int style, const QString &title) override;
};

} // namespace tessaro
