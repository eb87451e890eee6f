#pragma once

#include "state/core/Settings.h"

#include <QString>

namespace tessaro::wizard {

// The mod publishing wizard: five pages, each a window of its own, numbered 1 to 5.
// Only one is open at a time; moving on shows the target page and then unloads the
// current one.
constexpr int firstPage = 1;
constexpr int lastPage = 5;

inline const QString caption = QStringLiteral("Mod Publishing Wizard");

// The page that Next (or Execute) leads to, 0 when the page has no Next.
int nextPage(int page);
// The page that Back leads to, 0 when the page has no Back.
int backPage(int page);

// The names the texts point the user to.
inline const QString freeHostOne = QStringLiteral("neocities.org");
inline const QString freeHostTwo = QStringLiteral("pages.github.com");
inline const QString downloadSite = QStringLiteral("sourceforge.net");
inline const QString maintainersAddress = QStringLiteral("mods@tessaro.org");

// Page 1: the checklist, five lines joined by CR LF.
QString checklistText();

// The labels of pages 2 to 5.
struct PageTexts
{
    QString title;       // Label1
    QString explanation; // Label2
};
PageTexts pageTexts(int page);

// Pages 2 to 4 each edit the path of one outside program.
struct ToolPage
{
    int page = 0;
    QString boxName;     // the path box's name
    QString settingKey;  // the setting it edits
    QString toolLabel;   // Label3
    QString browseTitle; // the open-file dialog's title
    QString ToolSettings::*setting = nullptr;
};
// The tool page description of page 2, 3 or 4.
ToolPage toolPage(int page);
bool isToolPage(int page);

// Leaving a tool page keeps a non-empty box as the setting's new value; an empty box
// leaves the setting as it was.
void keepPathOnUnload(QString &setting, const QString &boxText);

} // namespace tessaro::wizard
