#include "platform/ui/WidgetMessageBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>

namespace tessaro {

namespace {

QMessageBox::StandardButton qtButton(int answer)
{
    switch (answer) {
    case mb::Cancel: return QMessageBox::Cancel;
    case mb::Abort: return QMessageBox::Abort;
    case mb::Retry: return QMessageBox::Retry;
    case mb::Ignore: return QMessageBox::Ignore;
    case mb::Yes: return QMessageBox::Yes;
    case mb::No: return QMessageBox::No;
    default: return QMessageBox::Ok;
    }
}

} // namespace

MessageBoxWindow::MessageBoxWindow(const QString &prompt, int style, const QString &title,
                                   QWidget *parent)
    : QMessageBox(parent), m_style(style)
{
    setWindowTitle(title);
    setText(prompt);
    switch (style & 0x70) {
    case mb::Critical: setIcon(QMessageBox::Critical); break;
    case mb::Question: setIcon(QMessageBox::Question); break;
    case mb::Exclamation: setIcon(QMessageBox::Warning); break;
    case mb::Information: setIcon(QMessageBox::Information); break;
    default: setIcon(QMessageBox::NoIcon); break;
    }
    QMessageBox::StandardButtons buttons;
    for (int answer : mb::buttonsOf(style))
        buttons |= qtButton(answer);
    setStandardButtons(buttons);
    setDefaultButton(qtButton(defaultAnswer(style)));
    if (const int escape = mb::escapeAnswer(style))
        setEscapeButton(qtButton(escape));
}

QAbstractButton *MessageBoxWindow::buttonOf(int answer) const
{
    return mb::buttonsOf(m_style).contains(answer) ? button(qtButton(answer)) : nullptr;
}

int MessageBoxWindow::answer() const
{
    for (int answer : mb::buttonsOf(m_style))
        if (clickedButton() && clickedButton() == button(qtButton(answer)))
            return answer;
    // Closed without a button (the program going away): the escape answer, or the
    // default button's for a box that has none.
    const int escape = mb::escapeAnswer(m_style);
    return escape ? escape : defaultAnswer(m_style);
}

void MessageBoxWindow::keyPressEvent(QKeyEvent *event)
{
    // A box without an escape answer takes no Esc (Qt would press No).
    if (mb::escapeAnswer(m_style) == 0 && event->matches(QKeySequence::Cancel)) {
        event->accept();
        return;
    }
    QMessageBox::keyPressEvent(event);
}

void MessageBoxWindow::closeEvent(QCloseEvent *event)
{
    // Nor can it be closed from its title bar.
    if (mb::escapeAnswer(m_style) == 0) {
        event->ignore();
        return;
    }
    QMessageBox::closeEvent(event);
}

int WidgetMessageBox::show(const QString &prompt, int style, const QString &title)
{
    MessageBoxWindow box(prompt, style, title, QApplication::activeWindow());
    box.exec();
    return box.answer();
}

} // namespace tessaro
