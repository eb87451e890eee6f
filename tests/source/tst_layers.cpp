// The source tree's layering: src/<subsystem>/<core|ui>/. A core folder never
// includes a ui header, and the subsystems' includes never run in a circle, so each
// subsystem can be read and tested with only those below it.
#include "support/TestSupport.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <functional>

namespace {

struct IncludeGraph
{
    // subsystem -> subsystem it includes -> one include that shows it ("file: header")
    QMap<QString, QMap<QString, QString>> edges;
    QStringList coreIncludesUi;
};

IncludeGraph readIncludes(const QString &root)
{
    static const QRegularExpression include(QStringLiteral("^\\s*#\\s*include\\s+\"([^\"]+)\""),
                                            QRegularExpression::MultilineOption);
    const QDir rootDir(root);
    IncludeGraph graph;
    QDirIterator it(root, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString relative = rootDir.relativeFilePath(path);
        const QStringList parts = relative.split(QLatin1Char('/'));
        if (parts.size() < 2)
            continue; // the program's entry point sits above every subsystem
        const QString subsystem = parts.at(0);
        const bool inCore = parts.size() > 2 && parts.at(1) == QLatin1String("core");
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QString text = QString::fromLatin1(file.readAll());
        for (auto m = include.globalMatch(text); m.hasNext();) {
            const QString header = m.next().captured(1);
            const QStringList target = header.split(QLatin1Char('/'));
            if (target.size() < 2 || !rootDir.exists(target.at(0)))
                continue;
            const QString shown = relative + QStringLiteral(": ") + header;
            if (inCore && target.size() > 2 && target.at(1) == QLatin1String("ui"))
                graph.coreIncludesUi << shown;
            if (target.at(0) != subsystem && !graph.edges[subsystem].contains(target.at(0)))
                graph.edges[subsystem][target.at(0)] = shown;
        }
    }
    return graph;
}

// Every circle of includes between subsystems, each named by the subsystems on it
// and one include per step. Each circle is walked from its smallest member only, so
// it is reported once.
QStringList includeCircles(const IncludeGraph &graph)
{
    QStringList circles;
    for (const QString &start : graph.edges.keys()) {
        QStringList path{start};
        std::function<void(const QString &)> walk = [&](const QString &node) {
            const auto targets = graph.edges.value(node);
            for (auto t = targets.cbegin(); t != targets.cend(); ++t) {
                if (t.key() == start) {
                    QStringList steps;
                    for (int i = 0; i < path.size(); ++i)
                        steps << graph.edges.value(path.at(i)).value(path.value(i + 1, start));
                    circles << path.join(QStringLiteral(" -> ")) + QStringLiteral(" -> ") +
                                   start + QStringLiteral(" (") +
                                   steps.join(QStringLiteral("; ")) + QStringLiteral(")");
                } else if (t.key() > start && !path.contains(t.key())) {
                    path << t.key();
                    walk(t.key());
                    path.removeLast();
                }
            }
        };
        walk(start);
    }
    return circles;
}

QStringList layerViolations(const QString &root)
{
    const IncludeGraph graph = readIncludes(root);
    QStringList found;
    for (const QString &line : graph.coreIncludesUi)
        found << QStringLiteral("core includes ui: ") + line;
    for (const QString &circle : includeCircles(graph))
        found << QStringLiteral("subsystems include each other: ") + circle;
    return found;
}

void writeSource(const QTemporaryDir &dir, const QString &relative, const QByteArray &text)
{
    const QString path = dir.filePath(relative);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

} // namespace

class tst_layers : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theSourcesKeepTheirLayers()
    {
        const QString src = QStringLiteral(TESSARO_SOURCE_DIR "/src");
        QVERIFY(QFileInfo(src + QStringLiteral("/shell/ui/frmMain.h")).isFile());
        const QStringList found = layerViolations(src);
        QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
    }
    void twoSubsystemsIncludingEachOtherAreFound()
    {
        QTemporaryDir dir;
        writeSource(dir, "alpha/ui/A.cpp", "#include \"beta/core/B.h\"\n");
        writeSource(dir, "beta/core/B.h", "#pragma once\n");
        writeSource(dir, "beta/ui/C.cpp", "#include \"alpha/ui/A.h\"\n");
        writeSource(dir, "alpha/ui/A.h", "#pragma once\n");
        const QStringList found = layerViolations(dir.path());
        QCOMPARE(found.size(), 1);
        QVERIFY(found.first().startsWith("subsystems include each other: alpha -> beta -> alpha"));
        QVERIFY(found.first().contains("alpha/ui/A.cpp: beta/core/B.h"));
        QVERIFY(found.first().contains("beta/ui/C.cpp: alpha/ui/A.h"));
    }
    void aLongerCircleIsFound()
    {
        QTemporaryDir dir;
        writeSource(dir, "a/core/A.h", "#include \"b/core/B.h\"\n");
        writeSource(dir, "b/core/B.h", "#include \"c/core/C.h\"\n");
        writeSource(dir, "c/core/C.h", "  #  include \"a/core/A.h\"\n");
        const QStringList found = layerViolations(dir.path());
        QCOMPARE(found, QStringList{"subsystems include each other: a -> b -> c -> a "
                                    "(a/core/A.h: b/core/B.h; b/core/B.h: c/core/C.h; "
                                    "c/core/C.h: a/core/A.h)"});
    }
    void aCoreFolderIncludingAUiHeaderIsFound()
    {
        QTemporaryDir dir;
        writeSource(dir, "alpha/core/Model.cpp", "#include \"alpha/ui/View.h\"\n");
        writeSource(dir, "alpha/ui/View.h", "#pragma once\n");
        QCOMPARE(layerViolations(dir.path()),
                 QStringList{"core includes ui: alpha/core/Model.cpp: alpha/ui/View.h"});
    }
    void includesThatRunOneWayPass()
    {
        QTemporaryDir dir;
        writeSource(dir, "main.cpp", "#include \"top/ui/App.h\"\n");
        writeSource(dir, "top/ui/App.h", "#include \"low/core/L.h\"\n#include <QString>\n");
        writeSource(dir, "low/core/L.h", "#include \"low/core/M.h\"\n#include \"QtCore/qglobal.h\"\n");
        writeSource(dir, "low/ui/W.cpp", "#include \"low/core/L.h\"\n");
        QCOMPARE(layerViolations(dir.path()), QStringList{});
    }
};

TESSARO_CORE_TEST_MAIN(tst_layers)
#include "tst_layers.moc"
