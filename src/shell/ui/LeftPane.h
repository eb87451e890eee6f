#pragma once

#include "shell/core/LeftPaneLayout.h"
#include "shell/core/cSplitDDC.h"

#include <QFrame>
#include <QWidget>

class QComboBox;
class QListWidget;
class QTreeWidget;

namespace tessaro {

class TabStrip;

// The left pane `Picture1`: the tab strip `tbsOptions` with its three pages
// `picOptions_0` .. `picOptions_2` (FileView, StructView, File Browser) and the
// splitter bar `picVert` at its right edge.
//
// The pages' contents are created here with their names, since the layout rule sizes
// them: `Text1` (line edit) and `Code1` (tree) on page 0, `List1` (tree) on page 1,
// `Drive1` (combo box), `Dir1` and `File1` (lists) on page 2. They stay empty until the
// workspace code fills them. That code may also replace one: delete it and create the
// replacement with the same objectName on the same page; the layout finds the controls
// by name every time it runs.
//
// Geometry lives in twips in a LeftPaneGeometry, the design values converted to
// pixels only when a control is placed.
class LeftPane : public QWidget, private SplitBar
{
    Q_OBJECT
public:
    explicit LeftPane(QWidget *parent = nullptr);

    LeftPaneGeometry &twips() { return m_geometry; }
    TabStrip *tbsOptions() const { return m_tabs; }
    QWidget *picOptions(int index) const;
    QFrame *picVert() const { return m_picVert; }
    // The pages' controls (found by name, so a replacement is found too).
    QTreeWidget *Code1() const;
    QTreeWidget *List1() const;
    QComboBox *Drive1() const;
    QListWidget *Dir1() const;
    QListWidget *File1() const;
    // The bar as the splitter sees it.
    SplitBar *splitBar() { return this; }
    double twipsPerPixel() const;

    // The layout rule: sizes the pages and their contents from the pane's height and
    // the splitter bar's position (its failing steps skipped), then places them.
    void Picture1_Resize();
    // Shows the page of the selected tab by moving it in and the others out.
    void tbsOptions_Click();

Q_SIGNALS:
    // The pane's width in twips changed (it follows the splitter bar).
    void widthChanged();
    // A mouse press on the splitter bar, in the bar's pixels.
    void picVertPressed(int x, int y);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    TwipsRect barGeometry() const override { return m_geometry.picVert; }
    void setBarLeft(double twips) override;
    void setBarTop(double twips) override;
    void setBarBorderStyle(int style) override;
    void setBarMousePointer(int pointer) override;

    void placeControls();
    QWidget *control(const char *name) const;

    LeftPaneGeometry m_geometry;
    bool m_pageEnabled[3] = {true, false, false};
    TabStrip *m_tabs;
    QFrame *m_picVert;
};

} // namespace tessaro
