#include "shell/core/ToolbarTable.h"

namespace tessaro {

const QVector<ToolbarButton> &mainToolbarButtons()
{
    static const QVector<ToolbarButton> buttons = {
        {QStringLiteral("New"), 6},         {QStringLiteral("Open"), 7},
        {QStringLiteral("Save"), 8},        {QString(), -1},
        {QStringLiteral("Cut"), 0},         {QStringLiteral("Copy"), 1},
        {QStringLiteral("Paste"), 2},       {QString(), -1},
        {QStringLiteral("Print"), 14},      {QString(), -1},
        {QStringLiteral("Find"), 12},       {QString(), -1},
        {QStringLiteral("Properties"), 10},
    };
    return buttons;
}

QString toolbarCommandForKey(const QString &key)
{
    static const struct
    {
        const char *key;
        const char *command;
    } commands[] = {
        {"New", "mnuFileNew"},     {"Open", "mnuFileOpen"}, {"Save", "mnuFileSave"},
        {"Cut", "mnuEditCut"},     {"Copy", "mnuEditCopy"}, {"Paste", "mnuEditPaste"},
        {"Print", "mnuFilePrint"}, {"Find", "cmdFind"},     {"Properties", "mnuFileProperties"},
    };
    for (const auto &c : commands)
        if (key == QLatin1String(c.key))
            return QString::fromLatin1(c.command);
    return QString();
}

QString toolbarButtonCommandForKey(const QString &key)
{
    if (key == QLatin1String("FindnF"))
        return QStringLiteral("mnuEditFindnF");
    return toolbarCommandForKey(key);
}

} // namespace tessaro
