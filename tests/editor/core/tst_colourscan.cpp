#include "editor/core/ColourScan.h"
#include "support/StretchDescription.h"
#include "support/TestSupport.h"

using namespace tessaro;

namespace {

ColourStretch comment(qsizetype start, qsizetype length)
{
    return ColourStretch{start, length, StretchKind::Comment, QString()};
}
ColourStretch keyword(qsizetype start, const QString &spelling)
{
    return ColourStretch{start, spelling.size(), StretchKind::Keyword, spelling};
}
ColourStretch plain(qsizetype start, const QString &spelling)
{
    return ColourStretch{start, spelling.size(), StretchKind::Text, spelling};
}

using Stretches = std::vector<ColourStretch>;

Stretches scan(int mode, const QString &text, const QString &blue = QString(),
               const QString &black = QString(), bool ignoreHeader = true)
{
    ScanRequest request;
    request.text = text;
    request.mode = mode;
    request.blue = WordListIndex(blue);
    request.black = WordListIndex(black);
    request.ignoreVBHeader = ignoreHeader;
    request.html = true;
    return scanText(request);
}

} // namespace

#define COMPARE_STRETCHES(actual, expected)                                                        \
    QCOMPARE(describeStretches(actual), describeStretches(expected))

class ColourScanTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // --- C, Java and JavaScript -------------------------------------------------
    void cWordsBetweenWhiteSpaceAreColoured()
    {
        COMPARE_STRETCHES(scan(mode::C, "int x;\r\n\tchar c\r\n", "*int*char*"),
                          (Stretches{keyword(0, "int"), keyword(9, "char")}));
    }
    void cWhileFollowedByABracketIsNotColouredButFollowedByABlankIs()
    {
        COMPARE_STRETCHES(scan(mode::C, "while(x) ", "*while*"), Stretches{});
        COMPARE_STRETCHES(scan(mode::C, "while (x) ", "*while*"), (Stretches{keyword(0, "while")}));
    }
    void cASlashIsSkippedSoABIsLookedUpAsAB()
    {
        // The word "ab" is found; its stretch spans the slash, which stays.
        COMPARE_STRETCHES(scan(mode::C, "a/b ", "*AB*"),
                          (Stretches{ColourStretch{0, 3, StretchKind::Keyword, "A/B"}}));
        COMPARE_STRETCHES(scan(mode::C, "a/b ", "*a/b*"), Stretches{});
    }
    void cAStringInsideAWordDoesNotEndIt()
    {
        COMPARE_STRETCHES(scan(mode::C, "x\"s t\"y ", "*XY*"),
                          (Stretches{ColourStretch{0, 7, StretchKind::Keyword, "X\"s t\"Y"}}));
        // A string before or after the word is not part of its stretch.
        COMPARE_STRETCHES(scan(mode::C, "\"s\"int\"q\" ", "*int*"), (Stretches{keyword(3, "int")}));
    }
    void cStringsAreNotColouredAndHaveNoEscapes()
    {
        COMPARE_STRETCHES(scan(mode::C, "\"if \\\" if \"", "*if*"), (Stretches{keyword(7, "if")}));
        COMPARE_STRETCHES(scan(mode::C, "\"// not a comment\" ", "*if*"), Stretches{});
    }
    void cUnterminatedStringSkipsToTheEnd()
    {
        COMPARE_STRETCHES(scan(mode::C, "if \"if if /* if\r\n", "*if*"),
                          (Stretches{keyword(0, "if")}));
    }
    void cLineCommentStopsBeforeTheLineBreak()
    {
        COMPARE_STRETCHES(scan(mode::C, "x // if\r\nif ", "*if*"),
                          (Stretches{comment(2, 5), keyword(9, "if")}));
    }
    void cLineCommentOnTheLastLineRunsToTheEnd()
    {
        COMPARE_STRETCHES(scan(mode::C, "if // last", "*if*"),
                          (Stretches{keyword(0, "if"), comment(3, 7)}));
        // A lone LF is not a line break to the comment.
        COMPARE_STRETCHES(scan(mode::C, "// a\nif ", "*if*"), (Stretches{comment(0, 8)}));
    }
    void cBlockCommentIncludesItsCloser()
    {
        COMPARE_STRETCHES(scan(mode::C, "/* if\r\n */ if ", "*if*"),
                          (Stretches{comment(0, 10), keyword(11, "if")}));
        COMPARE_STRETCHES(scan(mode::C, "/*/ if */", "*if*"), (Stretches{comment(0, 9)}));
    }
    void cUnterminatedBlockCommentRunsToTheEnd()
    {
        COMPARE_STRETCHES(scan(mode::C, "if /* if\r\nif ", "*if*"),
                          (Stretches{keyword(0, "if"), comment(3, 10)}));
    }
    void cACommentSwallowsTheWordBeingCollected()
    {
        COMPARE_STRETCHES(scan(mode::C, "if/* c */ ", "*if*"), (Stretches{comment(2, 7)}));
        COMPARE_STRETCHES(scan(mode::C, "/* c */if ", "*if*"),
                          (Stretches{comment(0, 7), keyword(7, "if")}));
    }
    void cPunctuationBelongsToTheWord()
    {
        COMPARE_STRETCHES(scan(mode::C, "if(x) return; return ", "*if*return*"),
                          (Stretches{keyword(14, "return")}));
    }
    void cTheLastWordNeedsADelimiter()
    {
        COMPARE_STRETCHES(scan(mode::C, "int", "*int*"), Stretches{});
        COMPARE_STRETCHES(scan(mode::C, "int\r\n", "*int*"), (Stretches{keyword(0, "int")}));
    }
    void aWordDifferingOnlyInCaseTakesTheListsSpelling()
    {
        COMPARE_STRETCHES(scan(mode::C, "QBOOLEAN x\r\n", "*qboolean*"),
                          (Stretches{keyword(0, "qboolean")}));
        COMPARE_STRETCHES(scan(mode::C, "null x\r\n", "", "*NULL*"), (Stretches{plain(0, "NULL")}));
    }
    void theBlackListIsSearchedFirst()
    {
        COMPARE_STRETCHES(scan(mode::C, "Main ", "*main*", "*MAIN*"),
                          (Stretches{plain(0, "MAIN")}));
    }
    void javaAndJavaScriptUseTheCScanner()
    {
        for (int m : {int(mode::Java), int(mode::JavaScript)})
            COMPARE_STRETCHES(scan(m, "/**/class x", "*class*"),
                              (Stretches{comment(0, 4), keyword(4, "class")}));
    }
    void positionsCountALineBreakAsTwoCharacters()
    {
        COMPARE_STRETCHES(scan(mode::C, "\r\n\r\nint \r\n// c", "*int*"),
                          (Stretches{keyword(4, "int"), comment(10, 4)}));
    }

    // --- Perl -------------------------------------------------------------------
    void perlHashStartsACommentToTheEndOfTheLine()
    {
        COMPARE_STRETCHES(scan(mode::Perl, "my $x; # my\r\nmy ", "*my*"),
                          (Stretches{keyword(0, "my"), comment(7, 4), keyword(13, "my")}));
        COMPARE_STRETCHES(scan(mode::Perl, "# last my", "*my*"), (Stretches{comment(0, 9)}));
    }
    void perlHereDocumentIsSkippedUpToEof()
    {
        // From "<<" the search for "eof" starts three characters on; the terminator is
        // scanned again as a word.
        const QString text = "print <<EOF;\r\nmy print\r\nEOF\r\nprint ";
        COMPARE_STRETCHES(
            scan(mode::Perl, text, "*print*my*eof*"),
            (Stretches{keyword(0, "print"), keyword(24, "eof"), keyword(29, "print")}));
        COMPARE_STRETCHES(scan(mode::Perl, "x <<END my print\r\n", "*print*my*"), Stretches{});
    }
    void perlStringEndsTheWordAndHonoursBackslashedQuotes()
    {
        COMPARE_STRETCHES(scan(mode::Perl, "print\"a \\\" my\"my ", "*print*my*"),
                          (Stretches{keyword(0, "print"), keyword(14, "my")}));
        COMPARE_STRETCHES(scan(mode::Perl, "print \"my", "*print*my*"),
                          (Stretches{keyword(0, "print")}));
    }
    void perlSlashesBelongToWords()
    {
        COMPARE_STRETCHES(scan(mode::Perl, "a/b // ", "*ab*a/b*"), (Stretches{keyword(0, "a/b")}));
    }

    // --- Visual Basic -------------------------------------------------------------
    void vbApostropheStartsAComment()
    {
        COMPARE_STRETCHES(scan(mode::VisualBasic, "Dim x ' Dim\r\nDim ", "*Dim*"),
                          (Stretches{keyword(0, "Dim"), comment(6, 5), keyword(13, "Dim")}));
        COMPARE_STRETCHES(scan(mode::VBScript, "x = \"it's\" ' c", "*x*"),
                          (Stretches{keyword(0, "x"), comment(11, 3)}));
    }
    void vbRemTurnsTheRestOfTheLineIntoAComment()
    {
        COMPARE_STRETCHES(scan(mode::VisualBasic, "rem Dim x\r\nDim ", "*Dim*"),
                          (Stretches{comment(0, 9), keyword(11, "Dim")}));
        COMPARE_STRETCHES(scan(mode::VisualBasic, "x = 1: REM\r\nDim ", "*Dim*"),
                          (Stretches{comment(7, 3), keyword(12, "Dim")}));
        // A remark word must stand alone; one in a list is a list word.
        COMPARE_STRETCHES(scan(mode::VisualBasic, "remark Dim ", "*Dim*"),
                          (Stretches{keyword(7, "Dim")}));
        COMPARE_STRETCHES(scan(mode::VisualBasic, "Rem Dim ", "*REM*Dim*"),
                          (Stretches{keyword(0, "REM"), keyword(4, "Dim")}));
    }
    void vbStringDoesNotEndTheWord()
    {
        COMPARE_STRETCHES(scan(mode::VisualBasic, "\"Dim\" Dim ", "*Dim*"),
                          (Stretches{keyword(6, "Dim")}));
    }
    void vbFormHeaderIsLeftOut()
    {
        const QString form = "Begin VB.\r\n  Dim\r\n  Begin Sub\r\n  End\r\nEnd Dim\r\nDim ";
        // The scan starts just after the "E" of the matching End: "nd" is a word.
        COMPARE_STRETCHES(scan(mode::VisualBasic, form, "*Dim*nd*"),
                          (Stretches{keyword(39, "nd"), keyword(42, "Dim"), keyword(47, "Dim")}));
        COMPARE_STRETCHES(scan(mode::VisualBasic, form, "*Dim*", QString(), false),
                          (Stretches{keyword(13, "Dim"), keyword(42, "Dim"), keyword(47, "Dim")}));
    }
    void vbHeaderNeedsBeginVbDotFollowedByALineBreak()
    {
        COMPARE_STRETCHES(scan(mode::VisualBasic, "Begin VB.Form f\r\nDim\r\nEnd\r\n", "*Dim*"),
                          (Stretches{keyword(17, "Dim")}));
    }
    void vbHeaderCountsAnyEndAsEnd()
    {
        // "Ended" closes the header.
        COMPARE_STRETCHES(scan(mode::VisualBasic, "Begin VB.\r\nDim Ended Dim ", "*Dim*"),
                          (Stretches{keyword(21, "Dim")}));
    }
    void vbHeaderThatNeverClosesLeavesEverythingPlain()
    {
        COMPARE_STRETCHES(scan(mode::VisualBasic, "Begin VB.\r\nDim Dim ' c\r\n", "*Dim*"),
                          Stretches{});
    }

    // --- HTML ---------------------------------------------------------------------
    void htmlCommentsTagsAndValues()
    {
        const QString text = "<!-- c --><a href='x y' id=z>t</a>";
        COMPARE_STRETCHES(scan(mode::Html, text),
                          (Stretches{comment(0, 10), keyword(10, "<a href="), plain(18, "'x y'"),
                                     keyword(23, " id="), plain(27, "z"), keyword(28, ">"),
                                     keyword(30, "</a>")}));
    }
    void htmlScriptBodyIsScannedAsScript()
    {
        const QString text = "<SCRIPT>var x; // c\r\n</script>";
        COMPARE_STRETCHES(scan(mode::Html, text, "*var*"),
                          (Stretches{keyword(0, "<SCRIPT>"), keyword(8, "var"), comment(15, 4),
                                     keyword(21, "</script>")}));
    }
    void htmlUnterminatedPiecesRunToTheEnd()
    {
        COMPARE_STRETCHES(scan(mode::Html, "<!-- x"), (Stretches{comment(0, 6)}));
        COMPARE_STRETCHES(scan(mode::Html, "<a b=\"x"),
                          (Stretches{keyword(0, "<a b="), plain(5, "\"x")}));
    }
    void htmlRunsOnlyWhenAskedFor()
    {
        ScanRequest request;
        request.text = "<!-- c -->";
        request.mode = mode::Html;
        QVERIFY(scanText(request).empty());
    }

    // --- Every scanner ------------------------------------------------------------
    void modesWithoutAScannerColourNothing()
    {
        for (int m : {int(mode::Typing), int(mode::None), 8, -1, 100})
            QVERIFY(scan(m, "// if\r\nif ", "*if*").empty());
    }
    void missingListsStillFindComments()
    {
        COMPARE_STRETCHES(scan(mode::C, "int /* c */ int "), (Stretches{comment(4, 7)}));
    }
    void everyCharacterFrom0To255IsScannedSafely()
    {
        QString text;
        for (int round = 0; round < 3; ++round)
            for (int c = 0; c < 256; ++c)
                text += QChar(c);
        QString list = "*";
        for (int c = 33; c < 256; ++c)
            list += QChar(c) + QStringLiteral("*");
        for (int m : {0, 1, 2, 3, 4, 5, 6}) {
            for (const QString &t : {text, QString(text).remove(QLatin1Char('"'))}) {
                const Stretches found = scan(m, t, list, "*\x01*");
                qsizetype previousEnd = 0;
                for (const ColourStretch &s : found) {
                    QVERIFY(s.start >= previousEnd);
                    QVERIFY(s.length > 0);
                    QVERIFY(s.start + s.length <= t.size());
                    if (s.kind != StretchKind::Comment)
                        QCOMPARE(s.spelling.size(), s.length);
                    previousEnd = s.start + s.length;
                }
            }
        }
    }
    void stretchesNeverOverlapOnPunctuationSoup()
    {
        const QString soup = "\"/*//\"*/'#<<eof<!--->\r\n<script><'=\" rem ' \\\"\"/";
        for (int m : {0, 1, 2, 5})
            for (int cut = 0; cut <= soup.size(); ++cut) {
                const Stretches found = scan(m, soup.left(cut) + " rem x ", "*x*rem*");
                qsizetype previousEnd = 0;
                for (const ColourStretch &s : found) {
                    QVERIFY(s.start >= previousEnd);
                    previousEnd = s.start + s.length;
                }
                QVERIFY(previousEnd <= cut + 7);
            }
    }

    // --- Time slices, progress and cancel -------------------------------------------
    void slicesGiveTheSameResultAsOneRun()
    {
        QString text;
        for (int i = 0; i < 20000; ++i)
            text += QStringLiteral("int x%1; /* c */ char \"s\" // d\r\n").arg(i);
        ScanRequest request;
        request.text = text;
        request.mode = mode::C;
        request.blue = WordListIndex("*int*char*");
        const Stretches whole = scanText(request, {}, nullptr, std::chrono::hours(1));
        QCOMPARE(whole.size(), size_t(20000 * 4));
        ColourScan sliced(request);
        int slices = 0;
        while (!sliced.runSlice(std::chrono::microseconds(0)))
            ++slices;
        QVERIFY(slices > 10);
        QVERIFY(sliced.stretches() == whole);
    }
    void progressIsReportedAfterEachSliceAndEndsAtOneHundred()
    {
        ScanRequest request;
        request.text = QString(200000, QLatin1Char('x')) + " ";
        request.mode = mode::C;
        QList<int> percentages;
        scanText(
            request, [&](int p) { percentages << p; }, nullptr, std::chrono::microseconds(0));
        QVERIFY(percentages.size() > 5);
        QCOMPARE(percentages.last(), 100);
        for (int i = 1; i < percentages.size(); ++i)
            QVERIFY(percentages[i] >= percentages[i - 1]);
        QVERIFY(percentages.first() < 100);
    }
    void cancelStopsTheScanAtTheNextSlice()
    {
        ScanRequest request;
        for (int i = 0; i < 50000; ++i)
            request.text += "int ";
        request.mode = mode::C;
        request.blue = WordListIndex("*int*");
        bool cancel = false;
        int calls = 0;
        const Stretches found = scanText(
            request,
            [&](int) {
                if (++calls == 2)
                    cancel = true;
            },
            &cancel, std::chrono::microseconds(0));
        QCOMPARE(calls, 3); // the slice after the request only reports the end
        QVERIFY(!found.empty());
        QVERIFY(found.size() < 50000);

        ColourScan scan(request);
        scan.runSlice(std::chrono::microseconds(0));
        scan.cancel();
        QVERIFY(scan.runSlice(std::chrono::hours(1)));
        QVERIFY(scan.cancelled());
        QVERIFY(scan.ended());
        QVERIFY(scan.percentComplete() < 100);
    }
    void positionStartsAtOneAndLengthCountsTheLeadingBlank()
    {
        ScanRequest request;
        request.text = "abc";
        request.mode = mode::C;
        ColourScan scan(request);
        QCOMPARE(scan.position(), qsizetype(1));
        QCOMPARE(scan.length(), qsizetype(4));
        QCOMPARE(scan.percentComplete(), 25);
        QVERIFY(scan.runSlice(std::chrono::milliseconds(16)));
        QCOMPARE(scan.percentComplete(), 100);
        QVERIFY(!scan.cancelled());
    }
    void anEmptyTextEndsAtOnce()
    {
        for (int m : {0, 1, 2, 5, 6, 9})
            QVERIFY(scan(m, QString(), "*x*").empty());
    }
};

TESSARO_CORE_TEST_MAIN(ColourScanTest)
#include "tst_colourscan.moc"
