#pragma once

#include <QWidget>

class QComboBox;
class QListWidget;
class QMdiArea;
class QPushButton;
class QToolBar;

namespace tessaro {

class FindPanel;
class LeftPane;
class ReBar;

// The main window's client area, with its panes aligned as the window's design has
// them: the holder `picHolder` with the band container `cReBar1` across the top, the
// output pane `Picture3` (list `lstOut`) across the bottom, the left pane `Picture1`
// between them, and the MDI area in the rest. A hidden pane gives its room to the
// MDI area.
class MainPanes : public QWidget
{
    Q_OBJECT
public:
    MainPanes(QMdiArea *mdiArea, QWidget *parent = nullptr);

    LeftPane *Picture1() const { return m_left; }
    QWidget *Picture3() const { return m_output; }
    QListWidget *lstOut() const { return m_lstOut; }
    QWidget *picHolder() const { return m_holder; }
    ReBar *cReBar1() const { return m_rebar; }
    QWidget *Picture2() const;
    QComboBox *fndText() const;
    QPushButton *cmdFind() const;
    QMdiArea *mdiArea() const { return m_mdiArea; }

    // Adds the two bands: the toolbar (no caption, key "Toolbar1") and the find box
    // panel (caption "Find", key "Toolbar2").
    void addBands(QToolBar *toolbar);

    // Places the aligned panes for the current size.
    void arrange();
    // The output list fills its pane.
    void Picture3_Resize();
    // The band container takes the holder's width; the holder takes its height.
    void picHolder_Resize();

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *m_output;
    QListWidget *m_lstOut;
    LeftPane *m_left;
    QWidget *m_holder;
    ReBar *m_rebar;
    FindPanel *m_findPanel;
    QMdiArea *m_mdiArea;
    double m_outputHeightTwips = 1455;
};

} // namespace tessaro
