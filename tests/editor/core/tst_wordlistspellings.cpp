#include "platform/core/TextFile.h"
#include "support/TestSupport.h"

#include <QRegularExpression>

using namespace tessaro;

namespace {

// The words of a list file, as the editor finds them: the text between neighbouring
// asterisks (a segment holding white space can never equal a word).
QStringList listWords(const QString &fileName)
{
    const QString text = textfile::read(QStringLiteral(TESSARO_SOURCE_DIR "/data/") + fileName);
    QStringList words;
    const QStringList segments = text.split(u'*');
    for (qsizetype i = 1; i + 1 < segments.size(); ++i) {
        const QString &word = segments.at(i);
        if (!word.isEmpty() && !word.contains(QRegularExpression(QStringLiteral("\\s"))))
            words << word;
    }
    return words;
}

// Names a user of the language writes as they are: keywords, the standard library's
// names and names common in programs (in the game's code, for C).
const QStringList kCWords = {
    // keywords, C89 to C11, and the usual spellings of the boolean macros
    "auto", "break", "case", "char", "const", "continue", "default", "do", "double", "else",
    "enum", "extern", "float", "for", "goto", "if", "inline", "int", "long", "register",
    "restrict", "return", "short", "signed", "sizeof", "static", "struct", "switch", "typedef",
    "union", "unsigned", "void", "volatile", "while", "_Bool", "_Complex", "_Imaginary",
    "_Alignas", "_Alignof", "_Atomic", "_Generic", "_Noreturn", "_Static_assert",
    "_Thread_local", "bool", "true", "false",
    // the standard library
    "FILE", "NULL", "EOF", "errno", "stdin", "stdout", "stderr", "size_t", "va_list",
    "printf", "sprintf", "strlen", "strcpy", "malloc", "free", "time", "clock", "abs",
    // names common in programs and in the game's code
    "file", "eof", "null", "nil", "none", "max", "min", "pitch", "yaw", "roll", "frametime",
    "time", "health", "armor", "score", "team", "item", "items", "weapon", "weapons", "mask",
    "origin", "angles", "velocity", "ent", "client", "clients", "level", "game", "value",
    "count", "index", "name", "len", "buf", "buffer", "data", "result", "flags", "type"};

const QStringList kJavaWords = {
    // keywords and literals
    "abstract", "assert", "boolean", "break", "byte", "case", "catch", "char", "class",
    "const", "continue", "default", "do", "double", "else", "enum", "extends", "final",
    "finally", "float", "for", "goto", "if", "implements", "import", "instanceof", "int",
    "interface", "long", "native", "new", "package", "private", "protected", "public",
    "return", "short", "static", "strictfp", "super", "switch", "synchronized", "this",
    "throw", "throws", "transient", "try", "void", "volatile", "while", "true", "false",
    "null", "var", "record",
    // the standard library's classes
    "Boolean", "Byte", "Short", "Integer", "Long", "Float", "Double", "Character", "Void",
    "Class", "Object", "String", "System", "Math", "Thread", "Error", "Exception", "List",
    "Map", "Set", "File", "Main",
    // names common in programs
    "file", "list", "map", "set", "object", "error", "exception", "thread", "string",
    "system", "math", "main", "integer", "character", "vector", "iterator", "reader",
    "writer", "arrays", "collections", "throwable", "value", "name", "length", "data"};

const QStringList kJavaScriptWords = {
    // keywords and literals
    "break", "case", "catch", "class", "const", "continue", "debugger", "default", "delete",
    "do", "else", "export", "extends", "false", "finally", "for", "function", "if", "import",
    "in", "instanceof", "let", "new", "null", "return", "super", "switch", "this", "throw",
    "true", "try", "typeof", "undefined", "var", "void", "while", "with", "yield", "async",
    "await",
    // the standard library and the browser
    "Array", "Boolean", "Date", "Error", "Function", "JSON", "Math", "Number", "Object",
    "RegExp", "String", "Symbol", "Promise", "Map", "Set", "Document", "Window",
    "Location", "History", "Navigator", "Prototype",
    // names common in programs
    "array", "date", "error", "json", "math", "number", "object", "string", "regexp",
    "boolean", "map", "set", "value", "name", "data", "result", "list"};

const QStringList kPerlWords = {
    // keywords and built-ins
    "my", "our", "local", "sub", "if", "elsif", "else", "unless", "while", "until", "for",
    "foreach", "do", "last", "next", "redo", "return", "use", "no", "require", "package",
    "and", "or", "not", "print", "open", "close", "BEGIN", "END", "STDIN", "STDOUT",
    "STDERR", "ARGV", "ENV",
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
                    found << QStringLiteral("%1: \"%2\" would become \"%3\"").arg(file, name, entry);
    return found;
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
