#pragma once

#include <QWidget>

#include <functional>

class QLabel;
class QTimer;

namespace tessaro {

// The splash window shown at start-up. One second after it loads, its timer shows
// the main window, once; the main window's start-up unloads the splash again.
class frmSplash : public QWidget
{
    Q_OBJECT
public:
    // showMain is what the timer's first tick does.
    explicit frmSplash(std::function<void()> showMain, QWidget *parent = nullptr);

    QTimer *timer() const { return m_timer; }

    // "Version <major>.<minor>.<revision>".
    static QString versionText();

private:
    void Form_Load();
    void Timer1_Timer();

    std::function<void()> m_showMain;
    QTimer *m_timer;
    QLabel *m_version;
    bool m_continue = false;
};

} // namespace tessaro
