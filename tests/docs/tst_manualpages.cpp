// Walks the manual the build writes beside the programs, as a reader with a browser
// would: every page of the contents is there, every link and picture leads somewhere,
// every page can be reached from the index, the search page lists every heading, and
// the messages the program shows are the ones the manual explains.
#include "build/core/BuildCommand.h"
#include "platform/core/RuntimeError.h"
#include "shell/core/SystemInfo.h"
#include "support/TestSupport.h"
#include "workspace/core/DocumentRules.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QUrl>

using namespace tessaro;

namespace {

const QString kManual = QStringLiteral(TESSARO_BIN_DIR "/manual");
const QString kSources = QStringLiteral(TESSARO_SOURCE_DIR "/docs/manual");

QString readText(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList pages()
{
    return QDir(kManual).entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
}

// The targets of every href and src attribute of a page, entities decoded.
QStringList targets(const QString &html)
{
    static const QRegularExpression attribute(QStringLiteral("(?:href|src)=\"([^\"]*)\""));
    QStringList found;
    for (auto it = attribute.globalMatch(html); it.hasNext();)
        found << it.next().captured(1).replace(QLatin1String("&amp;"), QLatin1String("&"));
    return found;
}

QSet<QString> ids(const QString &html)
{
    static const QRegularExpression id(QStringLiteral("\\bid=\"([^\"]+)\""));
    QSet<QString> found;
    for (auto it = id.globalMatch(html); it.hasNext();)
        found.insert(it.next().captured(1));
    return found;
}

bool isExternal(const QString &target)
{
    return target.startsWith(QLatin1String("https://")) ||
           target.startsWith(QLatin1String("http://")) ||
           target.startsWith(QLatin1String("mailto:"));
}

// The page a link leads to (relative to the manual's folder) and its fragment.
struct Link
{
    QString page;
    QString fragment;
};
Link resolve(const QString &fromPage, const QString &target)
{
    const int hash = int(target.indexOf(QLatin1Char('#')));
    Link link{hash < 0 ? target : target.left(hash), hash < 0 ? QString() : target.mid(hash + 1)};
    if (link.page.isEmpty())
        link.page = fromPage;
    link.page = QDir::cleanPath(QUrl::fromPercentEncoding(link.page.toUtf8()));
    return link;
}

} // namespace

class ManualPagesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(QFileInfo(kManual + "/index.html").isFile(),
                 "the build writes the manual into bin/manual");
    }
    void everyPageOfTheContentsIsWritten()
    {
        const QStringList lines = readText(kSources + "/contents.txt").split('\n');
        QStringList expected{"search.html"};
        for (const QString &line : lines)
            if (line.endsWith(".md") && !line.startsWith('#'))
                expected << QString(line).replace(".md", ".html");
        QVERIFY(expected.size() > 10);
        expected.sort();
        QCOMPARE(pages(), expected);
        QVERIFY(QFileInfo(kManual + "/manual.css").isFile());
    }
    void everyLinkAndPictureResolves()
    {
        int links = 0;
        for (const QString &page : pages()) {
            const QString html = readText(kManual + "/" + page);
            for (const QString &target : targets(html)) {
                if (isExternal(target))
                    continue;
                ++links;
                const Link link = resolve(page, target);
                const QString where = page + ": " + target;
                QVERIFY2(!link.page.startsWith("..") && !link.page.startsWith('/'),
                         qPrintable(where + " leaves the manual's folder"));
                QVERIFY2(QFileInfo(kManual + "/" + link.page).isFile(),
                         qPrintable(where + " leads to no file"));
                if (!link.fragment.isEmpty())
                    QVERIFY2(ids(readText(kManual + "/" + link.page)).contains(link.fragment),
                             qPrintable(where + " leads to no heading"));
            }
        }
        QVERIFY(links > 100);
    }
    void everyPageCanBeReachedFromTheIndex()
    {
        QSet<QString> reached{"index.html"};
        QStringList queue{"index.html"};
        while (!queue.isEmpty()) {
            const QString page = queue.takeFirst();
            for (const QString &target : targets(readText(kManual + "/" + page))) {
                const Link link = resolve(page, target);
                if (!isExternal(target) && link.page.endsWith(".html") &&
                    !reached.contains(link.page)) {
                    reached.insert(link.page);
                    queue << link.page;
                }
            }
        }
        for (const QString &page : pages())
            QVERIFY2(reached.contains(page), qPrintable(page));
    }
    void everyPictureIsShownDescribedAndAPng()
    {
        static const QRegularExpression image(QStringLiteral("<img\\b[^>]*>"));
        static const QRegularExpression alt(QStringLiteral("\\balt=\"([^\"]+)\""));
        QSet<QString> shown;
        for (const QString &page : pages()) {
            const QString html = readText(kManual + "/" + page);
            for (auto it = image.globalMatch(html); it.hasNext();) {
                const QString tag = it.next().captured(0);
                QVERIFY2(alt.match(tag).hasMatch(), qPrintable(page + ": " + tag));
                for (const QString &target : targets(tag))
                    shown.insert(resolve(page, target).page);
            }
        }
        const QStringList pictures = QDir(kManual + "/images").entryList(QDir::Files);
        QVERIFY(pictures.size() >= 5);
        for (const QString &picture : pictures) {
            QVERIFY2(shown.contains("images/" + picture),
                     qPrintable(picture + " is shown nowhere"));
            QFile file(kManual + "/images/" + picture);
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(file.read(8), QByteArray("\x89PNG\r\n\x1a\n"));
        }
    }
    void theSearchPageLeadsToEveryHeading()
    {
        static const QRegularExpression heading(QStringLiteral("<h([2-6])[^>]*\\bid=\"([^\"]+)\""));
        const QStringList searchTargets = targets(readText(kManual + "/search.html"));
        for (const QString &page : pages()) {
            if (page == "search.html")
                continue;
            QVERIFY2(searchTargets.contains(page), qPrintable(page));
            const QString html = readText(kManual + "/" + page);
            for (auto it = heading.globalMatch(html); it.hasNext();) {
                const QString target = page + "#" + it.next().captured(2);
                QVERIFY2(searchTargets.contains(target), qPrintable(target));
            }
        }
    }
    void theMessagesOfTheProgramAreExplained()
    {
        QString troubleshooting = readText(kManual + "/troubleshooting.html");
        troubleshooting.replace("&quot;", "\"").replace("&#x27;", "'").replace("&amp;", "&");
        QStringList messages{
            build::noWorkspaceMessage(),
            systemInfoUnavailableText(),
            documents::saveChangesPrompt(QStringLiteral("...")),
            QStringLiteral("You'll need to open a workspace"),
            QStringLiteral("Error highlighting file"),
            QStringLiteral("Unable to display Help Contents. There is no Help associated with "
                           "this project."),
        };
        for (RuntimeError::Number number :
             {RuntimeError::Overflow, RuntimeError::SubscriptOutOfRange, RuntimeError::TypeMismatch,
              RuntimeError::FileNotFound, RuntimeError::PathFileAccessError,
              RuntimeError::PathNotFound}) {
            const RuntimeError error(number);
            messages << QStringLiteral("Run-time error '%1': %2")
                            .arg(error.number())
                            .arg(error.description());
        }
        for (const QString &message : messages)
            QVERIFY2(troubleshooting.contains("\"" + message + "\""), qPrintable(message));
    }
};

TESSARO_CORE_TEST_MAIN(ManualPagesTest)
#include "tst_manualpages.moc"
