// Where a program finds its manual: installed beside it below the prefix, else in the
// build tree's manual folder; nothing when neither is there.
#include "shell/core/ManualLocation.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace tessaro;

namespace {

bool writeFile(const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write("<html></html>\n") > 0;
}

} // namespace

class ManualLocationTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void anInstalledProgramFindsTheManualBelowItsPrefix()
    {
        QTemporaryDir prefix;
        const QString index = prefix.path() + "/share/doc/tessaro/manual/index.html";
        QVERIFY(writeFile(index));
        QDir().mkpath(prefix.path() + "/lib/tessaro");
        QCOMPARE(manualBeside(prefix.path() + "/lib/tessaro"), index);
    }
    void aProgramInABuildTreeFindsTheManualBesideIt()
    {
        QTemporaryDir build;
        const QString index = build.path() + "/bin/manual/index.html";
        QVERIFY(writeFile(index));
        QCOMPARE(manualBeside(build.path() + "/bin"), index);
    }
    void theInstalledManualComesFirst()
    {
        QTemporaryDir prefix;
        const QString installed = prefix.path() + "/share/doc/tessaro/manual/index.html";
        QVERIFY(writeFile(installed));
        QVERIFY(writeFile(prefix.path() + "/lib/tessaro/manual/index.html"));
        QCOMPARE(manualBeside(prefix.path() + "/lib/tessaro"), installed);
    }
    void noManualGivesNoHelpFile()
    {
        QTemporaryDir prefix;
        QDir().mkpath(prefix.path() + "/lib/tessaro");
        // A manual folder without its index page is no manual, nor is a folder named so.
        QDir().mkpath(prefix.path() + "/share/doc/tessaro/manual/index.html");
        QVERIFY(writeFile(prefix.path() + "/lib/tessaro/manual/search.html"));
        QCOMPARE(manualBeside(prefix.path() + "/lib/tessaro"), QString());
        QCOMPARE(manualBeside(QString()), QString());
        QCOMPARE(manualBeside(prefix.path() + "/no/such/folder"), QString());
    }
    void theHelpFileIsAnAbsoluteCleanPath()
    {
        QTemporaryDir prefix;
        QVERIFY(writeFile(prefix.path() + "/share/doc/tessaro/manual/index.html"));
        QDir().mkpath(prefix.path() + "/lib/tessaro");
        const QString found = manualBeside(prefix.path() + "//lib/./tessaro/");
        QCOMPARE(found, QDir::cleanPath(prefix.path()) + "/share/doc/tessaro/manual/index.html");
        QVERIFY(!found.contains(".."));
    }
    void theSearchPageLiesBesideTheIndex()
    {
        QCOMPARE(manualSearchPage("/usr/share/doc/tessaro/manual/index.html"),
                 QString("/usr/share/doc/tessaro/manual/search.html"));
        QCOMPARE(manualSearchPage(QString()), QString());
    }
};

TESSARO_CORE_TEST_MAIN(ManualLocationTest)
#include "tst_manuallocation.moc"
