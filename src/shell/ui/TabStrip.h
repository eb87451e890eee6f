#pragma once

#include <QStringList>
#include <QWidget>

class QTabBar;

namespace tessaro {

// A tab strip that covers its whole rectangle with a panel and draws its tabs along
// the bottom edge; the pages are separate controls laid over it by their owner,
// which shows the selected one. Tab indices are 1-based as the owner's code counts
// them.
class TabStrip : public QWidget
{
    Q_OBJECT
public:
    TabStrip(const QStringList &captions, QWidget *parent = nullptr);

    int tabCount() const;
    // The selected tab, 1-based.
    int selectedIndex() const;
    // Selects a tab; selecting a different tab raises Click as a user's click does.
    void setSelectedIndex(int index);
    QTabBar *tabBar() const { return m_bar; }

Q_SIGNALS:
    void Click();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QTabBar *m_bar;
};

} // namespace tessaro
