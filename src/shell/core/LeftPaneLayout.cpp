#include "shell/core/LeftPaneLayout.h"

namespace tessaro {

namespace {

// One size assignment: a negative size is refused and the control keeps its value.
class Assigner
{
public:
    void operator()(double &size, double value)
    {
        if (value < 0) {
            ++m_skipped;
            return;
        }
        size = value;
    }
    int skipped() const { return m_skipped; }

private:
    int m_skipped = 0;
};

} // namespace

LeftPaneGeometry LeftPaneGeometry::design()
{
    LeftPaneGeometry g;
    g.Picture1 = {0, 735, 2655, 4050};
    g.picVert = {2640, 0, 48, 4095};
    g.picOptions[0] = {kPageShownLeft, 120, 2415, 4815};
    g.picOptions[1] = {kPageHiddenLeft, 120, 2415, 4815};
    g.picOptions[2] = {kPageHiddenLeft, 120, 2415, 4815};
    g.tbsOptions = {0, 0, 2655, 4050};
    // The pages' contents, placed within their page.
    g.Text1 = {0, 0, 2415, 285};
    g.Code1 = {0, 0, 2415, 4815};
    g.List1 = {0, 0, 2295, 4815};
    g.Drive1 = {0, 0, 2295, 315};
    g.Dir1 = {0, 405, 2295, 1200};
    g.File1 = {0, 1655, 2295, 2400};
    return g;
}

int layOutLeftPane(LeftPaneGeometry &g)
{
    Assigner set;
    set(g.tbsOptions.height, g.Picture1.height);          // 1
    set(g.picOptions[0].height, g.Picture1.height - 800); // 2
    set(g.Dir1.height, g.picOptions[0].height / 4);       // 3
    g.File1.top = g.Dir1.height + g.Dir1.top + 50;        // 4: a position may be anything
    set(g.File1.height, g.picOptions[0].height * 0.67);   // 5
    set(g.picOptions[1].height, g.picOptions[0].height);  // 6
    set(g.List1.height, g.picOptions[1].height);
    set(g.picOptions[2].height, g.picOptions[1].height); // 7
    set(g.Code1.height, g.picOptions[1].height);
    set(g.picVert.height, g.Picture1.height);                // 8
    set(g.Picture1.width, g.picVert.left + g.picVert.width); // 9
    set(g.tbsOptions.width, g.Picture1.width);               // 10
    set(g.picOptions[0].width, g.Picture1.width - 120);      // 11
    set(g.Dir1.width, g.picOptions[0].width - 120);          // 12
    set(g.File1.width, g.picOptions[0].width - 120);
    set(g.Drive1.width, g.picOptions[0].width - 120);
    set(g.picOptions[1].width, g.picOptions[0].width - 120); // 13
    set(g.List1.width, g.picOptions[1].width);
    set(g.picOptions[2].width, g.picOptions[1].width); // 14
    set(g.Code1.width, g.picOptions[1].width);
    return set.skipped();
}

void switchLeftPanePage(LeftPaneGeometry &g, bool pageEnabled[3], int selectedTab)
{
    for (int i = 0; i < 3; ++i) {
        const bool selected = i == selectedTab - 1;
        g.picOptions[i].left = selected ? kPageShownLeft : kPageHiddenLeft;
        pageEnabled[i] = selected;
    }
}

} // namespace tessaro
