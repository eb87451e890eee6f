#pragma once

#include <QStatusBar>

class QLabel;
class QTimer;

namespace tessaro {

// The status bar `sbStatusBar` with three panels, numbered from 1 and named
// "sbStatusBar_1" .. "sbStatusBar_3": panel 1 (design text "Status") takes the
// free room and shows the caret line; panel 2 shows the date and panel 3 the time,
// both kept current by a clock.
class MainStatusBar : public QStatusBar
{
    Q_OBJECT
public:
    explicit MainStatusBar(QWidget *parent = nullptr);

    QString panelText(int number) const;
    void setPanelText(int number, const QString &text);
    // Shows the current date and time in panels 2 and 3.
    void updateClock();

private:
    QLabel *panel(int number) const;
    QTimer *m_clock;
};

} // namespace tessaro
