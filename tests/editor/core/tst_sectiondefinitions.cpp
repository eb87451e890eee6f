#include "editor/core/BasicText.h"
#include "editor/core/ModeWordLists.h"
#include "editor/core/SectionDefinitions.h"
#include "platform/core/TextFile.h"
#include "support/TestSupport.h"

#include <QRandomGenerator>
#include <QTemporaryDir>

using namespace tessaro;

class SectionDefinitionsTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString file(const QString &name, const QString &content)
    {
        const QString path = m_dir.filePath(name);
        textfile::write(path, content);
        return path;
    }
    SectionDefinitions loaded(const QString &content)
    {
        SectionDefinitions definitions;
        [&] { QVERIFY(definitions.load(file("defs.stx", content))); }();
        return definitions;
    }

private Q_SLOTS:
    void headersAreLowerCasedButNotTrimmed()
    {
        const SectionDefinitions d =
            loaded("[KeyWords]\r\nINT\r\n [operators]\r\n+\r\n[operators] \r\nfor\r\n");
        QCOMPARE(d.keywords(), (QVector<QString>{"int", "[operators]", "+", "[operators]", "for"}));
        QCOMPARE(d.operatorCount(), qint16(0));
    }
    void commentLinesAndEmptyLinesAreSkippedButBlankLinesAreNot()
    {
        const SectionDefinitions d = loaded("[keywords]\r\n;int\r\n ;int\r\n\r\n   \r\nchar\r\n");
        QCOMPARE(d.keywords(), (QVector<QString>{";int", "", "char"}));
        QCOMPARE(d.keywordCount(), qint16(3));
    }
    void aRepeatedHeaderLineIsSkipped()
    {
        const SectionDefinitions d = loaded("[scope]\r\n{\r\n[scope]\r\n}\r\n");
        QCOMPARE(d.scopeWords(), (QVector<QString>{"{", "}"}));
    }
    void linesOutsideKnownSectionsAreIgnored()
    {
        const SectionDefinitions d = loaded("int\r\n[colours]\r\nred\r\n[func subs]\r\nPrintf\r\n");
        QCOMPARE(d.keywordCount(), qint16(0));
        QCOMPARE(d.functions(), (QVector<QString>{"printf"}));
    }
    void listsAreFilledFromTheirSections()
    {
        const SectionDefinitions d = loaded("[keywords]\r\n  int  \r\n[operators]\r\n==\r\n"
                                            "[scope]\r\npublic\r\n[func subs]\r\nmain\r\n");
        QCOMPARE(d.keywords(), (QVector<QString>{"int"}));
        QCOMPARE(d.operators(), (QVector<QString>{"=="}));
        QCOMPARE(d.scopeWords(), (QVector<QString>{"public"}));
        QCOMPARE(d.functions(), (QVector<QString>{"main"}));
    }
    void commentSectionKeysAreNotTrimmed()
    {
        const SectionDefinitions d = loaded("[comments]\r\nsingleline=//\r\nsingleline = #\r\n"
                                            "SingleLine=REM \r\nmultilinestart=/*\r\n"
                                            "multilineend=*/\r\nnothing here\r\nother=x\r\n");
        QCOMPARE(d.commentCount(), qint16(2));
        QCOMPARE(d.commentMarkers().at(0).marker, QString("//"));
        QCOMPARE(d.commentMarkers().at(1).marker, QString("rem "));
        QVERIFY(d.commentMarkers().at(1).singleLine);
        QCOMPARE(d.multiLineStart(), QString("/*"));
        QCOMPARE(d.multiLineEnd(), QString("*/"));
    }
    void multilineKeyStoresNothing()
    {
        const SectionDefinitions d = loaded("[comments]\r\nmultiline=/*\r\n");
        QCOMPARE(d.multiLineStart(), QString());
        QCOMPARE(d.multiLineEnd(), QString());
        QCOMPARE(d.commentCount(), qint16(0));
    }
    void theLastStringDelimiterWinsUntrimmed()
    {
        const SectionDefinitions d = loaded("[string delim]\r\n'\r\n \" \r\n   \r\n");
        QCOMPARE(d.stringDelimiter(), QString(" \" "));
        const SectionDefinitions two = loaded("[string delim]\r\n'\r\n\"\r\n");
        QCOMPARE(two.stringDelimiter(), QString("\""));
    }
    void theLastBlockSuffixWinsTrimmed()
    {
        const SectionDefinitions d = loaded("[block]\r\n {\r\n ; \r\n  \r\n");
        QCOMPARE(d.blockSuffix(), QString(";"));
    }
    void capitalisedMarkersAreStoredInLowerCase()
    {
        const SectionDefinitions d =
            loaded("[string delim]\r\nQ\r\n[comments]\r\nsingleline=REM\r\n");
        QCOMPARE(d.stringDelimiter(), QString("q"));
        QCOMPARE(d.commentMarkers().at(0).marker, QString("rem"));
    }
    void lineEndsMayBeCrLfLfOrCr()
    {
        const SectionDefinitions d = loaded("[keywords]\nint\rchar\r\nlong");
        QCOMPARE(d.keywords(), (QVector<QString>{"int", "char", "long"}));
    }
    void aSecondLoadWithoutClearKeepsCountingAndBlanksEarlierEntries()
    {
        SectionDefinitions d;
        QVERIFY(d.load(file("a.stx", "[keywords]\r\nint\r\nchar\r\n[scope]\r\nstatic\r\n")));
        QVERIFY(d.load(file("b.stx", "[keywords]\r\nlong\r\n[scope]\r\nextern\r\n")));
        QCOMPARE(d.keywords(), (QVector<QString>{"", "", "long"}));
        QCOMPARE(d.keywordCount(), qint16(3));
        // The scope list is not erased by a load.
        QCOMPARE(d.scopeWords(), (QVector<QString>{"static", "extern"}));
        d.clear();
        QVERIFY(d.load(file("b.stx", "[keywords]\r\nlong\r\n")));
        QCOMPARE(d.keywords(), (QVector<QString>{"long"}));
    }
    void clearEmptiesEverything()
    {
        SectionDefinitions d = loaded("[keywords]\r\nint\r\n[operators]\r\n+\r\n[scope]\r\ns\r\n"
                                      "[func subs]\r\nf\r\n[comments]\r\nsingleline=//\r\n"
                                      "multilinestart=/*\r\nmultilineend=*/\r\n"
                                      "[string delim]\r\n\"\r\n[block]\r\n;\r\n");
        QVERIFY(d.buildJoinedLists());
        d.clear();
        QCOMPARE(d.keywordCount() + d.operatorCount() + d.scopeCount() + d.functionCount() +
                     d.commentCount(),
                 0);
        QVERIFY(d.keywords().isEmpty() && d.operators().isEmpty() && d.scopeWords().isEmpty() &&
                d.functions().isEmpty() && d.commentMarkers().isEmpty());
        QVERIFY(d.joinedKeywords().isEmpty() && d.joinedOperators().isEmpty() &&
                d.joinedScope().isEmpty() && d.joinedFunctions().isEmpty() &&
                d.joinedComments().isEmpty());
        QVERIFY(d.stringDelimiter().isEmpty() && d.blockSuffix().isEmpty() &&
                d.multiLineStart().isEmpty() && d.multiLineEnd().isEmpty());
        QVERIFY(d.separator().isEmpty());
    }
    void overflowPast32767EntriesEndsTheLoad()
    {
        QString content = "[keywords]\r\n";
        for (int i = 0; i < 32768; ++i)
            content += QStringLiteral("k%1\r\n").arg(i);
        content += "[operators]\r\n+\r\n";
        SectionDefinitions d;
        QVERIFY(!d.load(file("big.stx", content)));
        QCOMPARE(d.keywordCount(), qint16(32767));
        QCOMPARE(d.keywords().last(), QString("k32766"));
        QCOMPARE(d.operatorCount(), qint16(0));
    }
    void missingEmptyBinaryAndUnreadableFiles()
    {
        SectionDefinitions d;
        QVERIFY(!d.load(m_dir.filePath("missing.stx")));
        QVERIFY(!d.load(m_dir.path())); // a folder cannot be read
        QVERIFY(d.load(file("empty.stx", QString())));
        QCOMPARE(d.keywordCount(), qint16(0));
        QVERIFY(d.buildJoinedLists());

        QByteArray binary;
        QRandomGenerator random(7);
        for (int i = 0; i < 20000; ++i)
            binary += char(random.bounded(256));
        binary += "\r\n[keywords]\r\n\x01\x02\x00\xff\r\n";
        textfile::writeBytes(m_dir.filePath("binary.stx"), binary);
        d.clear();
        QVERIFY(d.load(m_dir.filePath("binary.stx")));
        QVERIFY(d.keywordCount() >= 1);
        QVERIFY(d.buildJoinedLists());
    }
    void joinedListsAreThePlainConcatenation()
    {
        SectionDefinitions d = loaded("[keywords]\r\nwhile\r\nint\r\n[func subs]\r\nf\r\ng\r\n"
                                      "[comments]\r\nsingleline=//\r\nsingleline=#\r\n"
                                      "[operators]\r\n+\r\n-\r\n[scope]\r\na\r\nb\r\n");
        QVERIFY(d.buildJoinedLists());
        QCOMPARE(d.joinedKeywords(), QString("whileint"));
        QCOMPARE(d.joinedFunctions(), QString("fg"));
        QCOMPARE(d.joinedComments(), QString("//#"));
        QCOMPARE(d.joinedOperators(), QString("+-"));
        QCOMPARE(d.joinedScope(), QString("ab"));
    }
    void membershipIsASubstringTest()
    {
        SectionDefinitions d = loaded("[keywords]\r\nwhile\r\nint\r\n");
        QVERIFY(d.buildJoinedLists());
        for (const char *word : {"while", "int", "hi", "ile", "ein", "w"})
            QVERIFY2(d.isKeyword(word), word);
        QVERIFY(!d.isKeyword("intw"));
        QVERIFY(!d.isKeyword("for"));
        SectionDefinitions f = loaded("[keywords]\r\nint\r\nfor\r\n");
        QVERIFY(f.buildJoinedLists());
        QVERIFY(f.isKeyword("tf"));
        // An empty joined list holds nothing, not even the empty word.
        QVERIFY(!f.isFunction(QString()));
    }
    void joiningFailsWhenAFailedLoadLeftCountsWithoutEntries()
    {
        SectionDefinitions d;
        QVERIFY(d.load(file("a.stx", "[keywords]\r\nint\r\n")));
        QVERIFY(!d.load(m_dir.filePath("missing.stx")));
        QVERIFY(!d.buildJoinedLists());
        d.clear();
        QVERIFY(d.buildJoinedLists());
    }
    void theSectionFileNameFollowsTheFolderWithoutASeparator()
    {
        QCOMPARE(sectionFilePath("/opt/tools"), QString("/opt/toolstessaro.stx"));
        QCOMPARE(sectionFilePath("/"), QString("/tessaro.stx"));
    }

    // --- BASIC-style text helpers ----------------------------------------------------
    void splitAtDelimiterGivesTheTextBeforeOrAfterTheFirstOccurrence()
    {
        QCOMPARE(basictext::splitAtDelimiter("a=b=c", "=", true), QString("a"));
        QCOMPARE(basictext::splitAtDelimiter("a=b=c", "=", false), QString("b=c"));
        QCOMPARE(basictext::splitAtDelimiter("abc", "=", true), QString());
        QCOMPARE(basictext::splitAtDelimiter("abc", "=", false), QString());
        QCOMPARE(basictext::splitAtDelimiter("a::b", "::", false), QString("b"));
        QCOMPARE(basictext::splitAtDelimiter("=x", "=", true), QString());
    }
    void countingOccurrencesCountsOverlappingOnes()
    {
        QCOMPARE(basictext::countOccurrences("aaaa", "aa"), 3);
        QCOMPARE(basictext::countOccurrences("", "aa"), 0);
        QCOMPARE(basictext::countOccurrences("a\r\nb\r\n", "\r\n"), 2);
        QCOMPARE(basictext::countOccurrences("abc", "x"), 0);
        QCOMPARE(basictext::countOccurrences("abc", ""), 3);
    }
    void inStrFollowsBasicRules()
    {
        QCOMPARE(basictext::inStr(u"abc", u"b"), qsizetype(2));
        QCOMPARE(basictext::inStr(u"abc", u""), qsizetype(1));
        QCOMPARE(basictext::inStr(u"", u""), qsizetype(0));
        QCOMPARE(basictext::inStr(3, u"abc", u""), qsizetype(3));
        QCOMPARE(basictext::inStr(4, u"abc", u""), qsizetype(0));
        QCOMPARE(basictext::inStr(2, u"abab", u"a"), qsizetype(3));
    }
    void trimmingRemovesBlanksOnly()
    {
        QCOMPARE(basictext::trim(u"  a b  "), QString("a b"));
        QCOMPARE(basictext::trim(u"\ta\t"), QString("\ta\t"));
        QCOMPARE(basictext::trim(u"   "), QString());
    }

    // --- the Mode table and the word-list files -----------------------------------------
    void theModeTableNamesTheListsAndMarkers()
    {
        const ModeWordLists vb = modeWordLists(0);
        QVERIFY(vb.loadsLists);
        QCOMPARE(vb.commentMarker, std::optional<QString>("'"));
        QCOMPARE(vb.blackFile, QString("VB_Black.txt"));
        QCOMPARE(vb.blueFile, QString("VB_Blue.txt"));
        QVERIFY(!modeWordLists(1).loadsLists);
        QCOMPARE(modeWordLists(2).blackFile, QString("Java_Black.txt"));
        QCOMPARE(modeWordLists(2).blueFile, QString("Java_Blue.txt"));
        QVERIFY(!modeWordLists(2).commentMarker);
        QCOMPARE(modeWordLists(3).blackFile, QString("JavaScript_Black.txt"));
        QCOMPARE(modeWordLists(3).blueFile, QString("JavaScript_Blue.txt"));
        QCOMPARE(modeWordLists(4).commentMarker, std::optional<QString>("'"));
        QCOMPARE(modeWordLists(4).blackFile, QString("VBScript_Black.txt"));
        QCOMPARE(modeWordLists(4).blueFile, QString("VBScript_Blue.txt"));
        QCOMPARE(modeWordLists(5).commentMarker, std::optional<QString>("#"));
        QCOMPARE(modeWordLists(5).blackFile, QString());
        QCOMPARE(modeWordLists(5).blueFile, QString("Perl_Blue.txt"));
        QVERIFY(!modeWordLists(6).commentMarker);
        QCOMPARE(modeWordLists(6).blackFile, QString("C_Black.txt"));
        QCOMPARE(modeWordLists(6).blueFile, QString("tessaro.stx"));
        for (int m : {7, 8, 9, -1, 100})
            QVERIFY(!modeWordLists(m).loadsLists);
    }
    void applyingAModeReadsItsListsAndLeavesOthersAlone()
    {
        file("VB_Black.txt", "*Len*");
        file("VB_Blue.txt", "*Dim*");
        file("Perl_Blue.txt", "*my*");
        EditorWordLists lists;
        lists.commentMarker = "//";
        lists.applyMode(0, m_dir.path());
        QCOMPARE(lists.commentMarker, QString("'"));
        QVERIFY(lists.black.find(QString("LEN")));
        QVERIFY(lists.blue.find(QString("dim")));
        lists.applyMode(1, m_dir.path());
        lists.applyMode(9, m_dir.path());
        QVERIFY(lists.blue.find(QString("dim")));
        lists.applyMode(5, m_dir.path());
        QCOMPARE(lists.commentMarker, QString("#"));
        QVERIFY(lists.black.isEmpty());
        QVERIFY(lists.blue.find(QString("my")));
        lists.applyMode(2, m_dir.path()); // no Java lists here: both empty
        QCOMPARE(lists.commentMarker, QString("#"));
        QVERIFY(lists.black.isEmpty() && lists.blue.isEmpty());
    }
    void aMissingWordListIsEmpty()
    {
        QCOMPARE(readWordList(m_dir.path(), "nothing.txt"), QString());
        QCOMPARE(readWordList(m_dir.path(), QString()), QString());
        QCOMPARE(readWordList(file("w.txt", "*a*\r\n*b*"), QString()), QString());
        QCOMPARE(readWordList(m_dir.path(), "w.txt"), QString("*a*\r\n*b*"));
    }
    void theShippedListsLieBesideTheExecutable()
    {
        const QString bin = QStringLiteral(TESSARO_BIN_DIR);
        EditorWordLists c;
        c.applyMode(6, bin);
        for (const char *word : {"int", "while", "vec3_t", "qboolean", "gentity_t", "typedef"})
            QVERIFY2(c.blue.find(QString(word)), word);
        QVERIFY(c.black.find(QString("qtrue")));
        for (int m : {0, 2, 3, 4, 5}) {
            EditorWordLists lists;
            lists.applyMode(m, bin);
            QVERIFY2(!lists.blue.isEmpty(), qPrintable(QString::number(m)));
            QVERIFY(m == 5 || !lists.black.isEmpty());
        }
        // Remarks must stay remarks: no Visual Basic list holds "Rem".
        for (int m : {0, 4}) {
            EditorWordLists lists;
            lists.applyMode(m, bin);
            QVERIFY(!lists.blue.find(QString("rem")) && !lists.black.find(QString("rem")));
        }
        // The shipped definition file loads as a section file, all seven sections.
        SectionDefinitions d;
        QVERIFY(d.load(bin + "/tessaro.stx"));
        QVERIFY(d.keywordCount() > 20 && d.operatorCount() > 5 && d.scopeCount() > 0 &&
                d.functionCount() > 10 && d.commentCount() > 0);
        QCOMPARE(d.multiLineStart(), QString("/*"));
        QCOMPARE(d.multiLineEnd(), QString("*/"));
        QCOMPARE(d.stringDelimiter(), QString("\""));
        QVERIFY(!d.blockSuffix().isEmpty());
    }
    void editorTextTurnsEveryLineBreakIntoCrLf()
    {
        QCOMPARE(editorText("a\nb\r\nc\rd\n"), QString("a\r\nb\r\nc\r\nd\r\n"));
        QCOMPARE(editorText("\r\r\n\n"), QString("\r\n\r\n\r\n"));
        QCOMPARE(editorText(QString()), QString());
    }
};

TESSARO_CORE_TEST_MAIN(SectionDefinitionsTest)
#include "tst_sectiondefinitions.moc"
