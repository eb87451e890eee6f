#include "editor/core/ModeWordLists.h"
#include "platform/core/TextFile.h"
#include "support/CliRun.h"
#include "support/TestSupport.h"

#include <QHash>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace tessaro;

namespace {

const QString kDataDir = QStringLiteral(TESSARO_SOURCE_DIR "/data");

// The words of a list file, as the editor finds them: the text between neighbouring
// asterisks (a segment holding white space can never equal a word).
QStringList listWords(const QString &fileName)
{
    const QString text = textfile::read(kDataDir + u'/' + fileName);
    QStringList words;
    const QStringList segments = text.split(u'*');
    for (qsizetype i = 1; i + 1 < segments.size(); ++i) {
        const QString &word = segments.at(i);
        if (!word.isEmpty() && !word.contains(QRegularExpression(QStringLiteral("\\s"))))
            words << word;
    }
    return words;
}

// The names of a file of the game's names in data/game-api/: one a line, or (the
// case clash groups) several a line.
QStringList gameNames(const QString &fileName)
{
    return textfile::read(kDataDir + QStringLiteral("/game-api/") + fileName)
        .split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
}

// Names a user of the language writes as they are: keywords, the standard library's
// names and names common in programs (in the game's code, for C).
const QStringList kCWords = {
    // keywords, C89 to C11, and the usual spellings of the boolean macros
    "auto", "break", "case", "char", "const", "continue", "default", "do", "double", "else", "enum",
    "extern", "float", "for", "goto", "if", "inline", "int", "long", "register", "restrict",
    "return", "short", "signed", "sizeof", "static", "struct", "switch", "typedef", "union",
    "unsigned", "void", "volatile", "while", "_Bool", "_Complex", "_Imaginary", "_Alignas",
    "_Alignof", "_Atomic", "_Generic", "_Noreturn", "_Static_assert", "_Thread_local", "bool",
    "true", "false",
    // the standard library
    "FILE", "NULL", "EOF", "errno", "stdin", "stdout", "stderr", "size_t", "va_list", "printf",
    "sprintf", "strlen", "strcpy", "malloc", "free", "time", "clock", "abs", "assert", "offsetof",
    "ptrdiff_t", "wchar_t", "intptr_t", "uintptr_t", "int8_t", "uint8_t", "int16_t", "uint16_t",
    "int32_t", "uint32_t", "int64_t", "uint64_t", "INT_MAX", "INT_MIN", "UINT_MAX", "CHAR_BIT",
    "RAND_MAX", "BUFSIZ", "SEEK_SET", "SEEK_CUR", "SEEK_END", "EXIT_SUCCESS", "EXIT_FAILURE",
    "va_start", "va_arg", "va_end", "jmp_buf", "setjmp", "longjmp", "fopen", "fclose", "fread",
    "fwrite", "fgets", "fputs", "puts", "exit", "qsort", "bsearch", "memcpy", "memset", "strcmp",
    "strncpy", "atoi", "atof", "sqrt", "pow",
    // names common in programs and in the game's code
    "file", "eof", "null", "nil", "none", "max", "min", "pitch", "yaw", "roll", "frametime", "time",
    "health", "armor", "score", "team", "item", "items", "weapon", "weapons", "mask", "origin",
    "angles", "velocity", "ent", "client", "clients", "level", "game", "value", "count", "index",
    "name", "len", "buf", "buffer", "data", "result", "flags", "type", "main", "argc", "argv",
    "arg", "args", "cmd", "str", "ptr", "msg", "text", "line", "size", "length", "width", "height",
    "color", "pos", "dir", "path", "key", "state", "mode", "start", "end", "next", "prev", "node",
    "list", "entity", "entities", "player", "model", "sound", "shader", "trace", "tr", "cvar",
    "cvars", "print", "error", "info", "event", "contents", "mins", "maxs", "self", "other",
    "attacker", "inflictor", "targ", "activator", "cg", "cgs", "cent", "le", "ps", "es", "pm",
    "pml", "snap", "refdef", "ucmd", "usercmd", "gametype", "frameTime", "realTime", "frameCount",
    "contentmask", "powerups", "Pmove", "pmove"};

// The game's own names that differ only in letter case from another of its names
// (data/game-api/case-clashes.txt): a list holding one of them would rewrite the
// others wherever the game's code uses them.
const QStringList kGameClashNames =
    QString("CVAR_INIT Cvar_Init itemInfo_t iteminfo_t weaponInfo_t weaponinfo_t "
            "trap_GetConfigString trap_GetConfigstring trap_GetUserCmd trap_GetUsercmd "
            "FILE File file")
        .split(u' ');

const QStringList kJavaWords = {
    // keywords and literals
    "abstract", "assert", "boolean", "break", "byte", "case", "catch", "char", "class", "const",
    "continue", "default", "do", "double", "else", "enum", "extends", "final", "finally", "float",
    "for", "goto", "if", "implements", "import", "instanceof", "int", "interface", "long", "native",
    "new", "package", "private", "protected", "public", "return", "short", "static", "strictfp",
    "super", "switch", "synchronized", "this", "throw", "throws", "transient", "try", "void",
    "volatile", "while", "true", "false", "null", "var", "record",
    // the standard library's classes
    "Boolean", "Byte", "Short", "Integer", "Long", "Float", "Double", "Character", "Void", "Class",
    "Object", "String", "System", "Math", "Thread", "Error", "Exception", "List", "Map", "Set",
    "File", "Main",
    // names common in programs
    "file", "list", "map", "set", "object", "error", "exception", "thread", "string", "system",
    "math", "main", "integer", "character", "vector", "iterator", "reader", "writer", "arrays",
    "collections", "throwable", "value", "name", "length", "data"};

const QStringList kJavaScriptWords = {
    // keywords and literals
    "break", "case", "catch", "class", "const", "continue", "debugger", "default", "delete", "do",
    "else", "export", "extends", "false", "finally", "for", "function", "if", "import", "in",
    "instanceof", "let", "new", "null", "return", "super", "switch", "this", "throw", "true", "try",
    "typeof", "undefined", "var", "void", "while", "with", "yield", "async", "await",
    // the standard library and the browser
    "Array", "Boolean", "Date", "Error", "Function", "JSON", "Math", "Number", "Object", "RegExp",
    "String", "Symbol", "Promise", "Map", "Set", "Document", "Window", "Location", "History",
    "Navigator", "Prototype",
    // names common in programs
    "array", "date", "error", "json", "math", "number", "object", "string", "regexp", "boolean",
    "map", "set", "value", "name", "data", "result", "list"};

const QStringList kPerlWords = {
    // keywords and built-ins
    "my", "our", "local", "sub", "if", "elsif", "else", "unless", "while", "until", "for",
    "foreach", "do", "last", "next", "redo", "return", "use", "no", "require", "package", "and",
    "or", "not", "print", "open", "close", "BEGIN", "END", "STDIN", "STDOUT", "STDERR", "ARGV",
    "ENV",
    // names common in programs (sub names, barewords)
    "begin", "end", "new", "init", "run", "main", "value", "name", "data", "file"};

// Every list entry that a name of the table spells in other letter cases: the
// editor would rewrite that name to the entry's spelling as the user types it.
QStringList renames(const QStringList &files, const QStringList &names)
{
    QStringList found;
    for (const QString &file : files)
        for (const QString &entry : listWords(file))
            for (const QString &name : names)
                if (name != entry && name.compare(entry, Qt::CaseInsensitive) == 0)
                    found
                        << QStringLiteral("%1: \"%2\" would become \"%3\"").arg(file, name, entry);
    return found;
}

// What `tessaro-cli colour` makes of the names written in lower case, each followed by
// a blank, in the mode with the lists of data/: for each name, "keyword <spelling>" or
// "text <spelling>" when a list holds it, "" when none does.
QStringList colouredLowerCase(const QStringList &names, int mode)
{
    QByteArray source;
    QList<qsizetype> starts;
    for (const QString &name : names) {
        starts << source.size();
        source += name.toLower().toUtf8() + ' ';
    }
    QTemporaryDir dir;
    const QString path = test::writeFileIn(dir.path(), "names.txt", source);
    const test::CliRun run =
        test::runCli({"colour", path, "--mode", QString::number(mode), "--lists", kDataDir});
    if (run.status != 0)
        return {};
    QHash<qsizetype, QString> stretchAt;
    for (const QByteArray &line : run.out.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() == 4)
            stretchAt.insert(fields.at(0).toLongLong(), fields.at(2) + ' ' + fields.at(3));
    }
    QStringList coloured;
    for (const qsizetype start : starts)
        coloured << stretchAt.value(start);
    return coloured;
}

// The words of a mode's lists, each with how the editor shows it: "text <word>" for the
// black list, "keyword <word>" for the blue one.
QStringList listedWords(int mode)
{
    const ModeWordLists row = modeWordLists(mode);
    QStringList words;
    if (!row.blackFile.isEmpty())
        for (const QString &word : listWords(row.blackFile))
            words << "text " + word;
    for (const QString &word : listWords(row.blueFile))
        words << "keyword " + word;
    return words;
}

} // namespace

// The editor gives a word of its lists the list's spelling. In a language where
// letter case tells names apart, no list may hold an entry whose other spellings are
// names a user writes: typing them would change the user's code. Visual Basic and
// VBScript ignore letter case, so there the list's spelling is only a tidier form of
// the same name.
class WordListSpellingsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theListsAreRead()
    {
        QVERIFY(listWords("C_Black.txt").contains("qtrue"));
        QVERIFY(listWords("tessaro.stx").contains("while"));
        QVERIFY(listWords("tessaro.stx").contains("gentity_t"));
        QVERIFY(!listWords("tessaro.stx").contains("[keywords]"));
    }
    void theCListsRenameNoCName()
    {
        const QStringList found = renames({"C_Black.txt", "tessaro.stx"}, kCWords);
        QVERIFY2(found.isEmpty(), qPrintable(found.join('\n')));
    }
    void theCListsRenameNoNameOfTheGame()
    {
        const QStringList found = renames({"C_Black.txt", "tessaro.stx"}, kGameClashNames);
        QVERIFY2(found.isEmpty(), qPrintable(found.join('\n')));
    }
    void theCListsHoldNoNameOfAClashGroup()
    {
        QStringList clashes;
        for (const QString &name : gameNames("case-clashes.txt"))
            clashes << name.toLower();
        QVERIFY(clashes.contains("weaponinfo_t"));
        QStringList found;
        for (const char *file : {"C_Black.txt", "tessaro.stx"})
            for (const QString &word : listWords(file))
                if (clashes.contains(word.toLower()))
                    found << QStringLiteral("%1: %2").arg(QLatin1String(file), word);
        QVERIFY2(found.isEmpty(), qPrintable(found.join('\n')));
    }
    // Every word of every list, typed in lower case, becomes the word as the list spells
    // it, in the list's colour: a list holding two spellings of one word, or a word the
    // other list takes first, would show one of them in another spelling or colour.
    void everyListedWordComesBackInItsListedSpelling_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("C") << int(mode::C);
        QTest::newRow("Java") << int(mode::Java);
        QTest::newRow("JavaScript") << int(mode::JavaScript);
        QTest::newRow("Perl") << int(mode::Perl);
        QTest::newRow("Visual Basic") << int(mode::VisualBasic);
        QTest::newRow("VBScript") << int(mode::VBScript);
    }
    void everyListedWordComesBackInItsListedSpelling()
    {
        QFETCH(int, mode);
        const QStringList listed = listedWords(mode);
        QStringList names;
        for (const QString &entry : listed)
            names << entry.section(u' ', 1);
        QVERIFY(names.size() > 20);
        const QStringList coloured = colouredLowerCase(names, mode);
        QCOMPARE(coloured.size(), listed.size());
        QStringList wrong;
        for (qsizetype i = 0; i < listed.size(); ++i)
            if (coloured.at(i) != listed.at(i))
                wrong << QStringLiteral("%1 came back as \"%2\"").arg(listed.at(i), coloured.at(i));
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join('\n')));
    }
    // Every type name and engine call of the game is a list word in the game's own
    // spelling (types blue, calls black), except the names of a case clash group.
    void theGamesNamesComeBackInTheGamesSpelling()
    {
        QStringList clashes;
        for (const QString &name : gameNames("case-clashes.txt"))
            clashes << name.toLower();
        QStringList names, expected;
        for (const QString &type : gameNames("types.txt")) {
            names << type;
            expected << (clashes.contains(type.toLower()) ? QString() : "keyword " + type);
        }
        for (const QString &call : gameNames("syscalls.txt")) {
            names << call;
            expected << (clashes.contains(call.toLower()) ? QString() : "text " + call);
        }
        QVERIFY(names.size() > 400);
        QCOMPARE(colouredLowerCase(names, mode::C), expected);
    }
    void theJavaListsRenameNoJavaName()
    {
        const QStringList found = renames({"Java_Black.txt", "Java_Blue.txt"}, kJavaWords);
        QVERIFY2(found.isEmpty(), qPrintable(found.join('\n')));
    }
    void theJavaScriptListsRenameNoJavaScriptName()
    {
        const QStringList found =
            renames({"JavaScript_Black.txt", "JavaScript_Blue.txt"}, kJavaScriptWords);
        QVERIFY2(found.isEmpty(), qPrintable(found.join('\n')));
    }
    void thePerlListRenamesNoPerlName()
    {
        const QStringList found = renames({"Perl_Blue.txt"}, kPerlWords);
        QVERIFY2(found.isEmpty(), qPrintable(found.join('\n')));
    }
};

TESSARO_CORE_TEST_MAIN(WordListSpellingsTest)
#include "tst_wordlistspellings.moc"
