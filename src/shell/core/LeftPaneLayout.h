#pragma once

namespace tessaro {

// A control's position and size in twips, as the window's design gives them.
struct TwipsRect
{
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

// The controls of the left pane that its layout rule sizes, in twips. `picOptions`
// are the three pages (FileView, StructView, File Browser); the others are the
// pages' contents.
struct LeftPaneGeometry
{
    TwipsRect Picture1;
    TwipsRect picVert;
    TwipsRect picOptions[3];
    TwipsRect tbsOptions;
    TwipsRect Text1;
    TwipsRect Code1;
    TwipsRect List1;
    TwipsRect Drive1;
    TwipsRect Dir1;
    TwipsRect File1;

    // The design geometry of the main window's left pane.
    static LeftPaneGeometry design();
};

// Lays out the left pane after its size changed or the splitter moved, in fourteen
// fixed steps. Every assignment runs on its own and a failing one is skipped: a
// control cannot take a negative width or height, so on a pane too small for its
// contents that control keeps its previous size and the later steps go on with it.
// Returns the number of assignments that were skipped.
int layOutLeftPane(LeftPaneGeometry &g);

// Page switching of the tab strip: the page of the selected tab (1-based) moves to
// left 120 and is enabled, every other page moves out of sight to left -20000 and is
// disabled. Pages are never hidden.
void switchLeftPanePage(LeftPaneGeometry &g, bool pageEnabled[3], int selectedTab);

constexpr double kPageShownLeft = 120;
constexpr double kPageHiddenLeft = -20000;

} // namespace tessaro
