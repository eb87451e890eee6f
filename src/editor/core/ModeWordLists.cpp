#include "editor/core/ModeWordLists.h"

#include "editor/core/LineEnds.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/EventLog.h"
#include "platform/core/TextFile.h"

namespace tessaro {

ModeWordLists modeWordLists(int mode)
{
    const QString apostrophe = QStringLiteral("'");
    switch (mode) {
    case mode::VisualBasic:
        return {true, apostrophe, QStringLiteral("VB_Black.txt"), QStringLiteral("VB_Blue.txt")};
    case mode::Java:
        return {true, std::nullopt, QStringLiteral("Java_Black.txt"),
                QStringLiteral("Java_Blue.txt")};
    case mode::JavaScript:
        return {true, std::nullopt, QStringLiteral("JavaScript_Black.txt"),
                QStringLiteral("JavaScript_Blue.txt")};
    case mode::VBScript:
        return {true, apostrophe, QStringLiteral("VBScript_Black.txt"),
                QStringLiteral("VBScript_Blue.txt")};
    case mode::Perl: return {true, QStringLiteral("#"), QString(), QStringLiteral("Perl_Blue.txt")};
    case mode::C:
        return {true, std::nullopt, QStringLiteral("C_Black.txt"), QStringLiteral("tessaro.stx")};
    default: return {};
    }
}

int modeForFileName(const QString &fileName)
{
    for (const char *extension : {".cpp", ".h", ".c"})
        if (fileName.endsWith(QLatin1String(extension)))
            return mode::C;
    return mode::None;
}

QString readWordList(const QString &folder, const QString &fileName)
{
    QString list;
    const QString path = folder + QLatin1Char('/') + fileName;
    const bool found = trapped([&] { list = textfile::read(path); });
    // Lets a test see which program folder an installed program reads its lists from.
    logEvent((found ? QStringLiteral("word list ") : QStringLiteral("no word list ")) + path);
    return list;
}

void EditorWordLists::applyMode(int mode, const QString &folder)
{
    const ModeWordLists row = modeWordLists(mode);
    if (!row.loadsLists)
        return;
    if (row.commentMarker)
        commentMarker = *row.commentMarker;
    black =
        WordListIndex(row.blackFile.isEmpty() ? QString() : readWordList(folder, row.blackFile));
    blue = WordListIndex(readWordList(folder, row.blueFile));
}

QString editorText(const QString &fileText)
{
    return withCrLfBreaks(fileText);
}

} // namespace tessaro
