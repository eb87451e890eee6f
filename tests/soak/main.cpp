// tessaro-soak: plays the whole program at random for a while and checks after every
// action that nothing broke. Never run by the test suite; scripts/sanitize.sh runs it
// under the sanitizers.
//
// Usage: tessaro-soak --seconds N --seed S --workdir DIR
// Prints the seed first and "N actions, seed S" last; exits 0 when nothing broke. A
// failure replays with the same seed (the same actions in the same order, as far as
// the timing of the event loop allows).

#include "Soak.h"
#include "SoakMod.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

#include <cstdio>

using namespace tessaro;

int main(int argc, char **argv)
{
    // No display needed, and nothing of the user's touched: the program's home and
    // folders are the work folder's.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QString workdir;
    for (int i = 1; i + 1 < argc; ++i)
        if (QByteArray(argv[i]) == "--workdir")
            workdir = QString::fromLocal8Bit(argv[i + 1]);
    if (workdir.isEmpty()) {
        std::fprintf(stderr, "usage: tessaro-soak --seconds N --seed S --workdir DIR\n");
        return 2;
    }
    workdir = QDir(workdir).absolutePath();
    QDir().mkpath(workdir);
    const QByteArray home = QDir(workdir).filePath(QStringLiteral("home")).toLocal8Bit();
    qputenv("HOME", home);
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME",
                             "XDG_RUNTIME_DIR", "XDG_CONFIG_DIRS"}) {
        const QByteArray folder = home + '/' + QByteArray(name).toLower();
        QDir().mkpath(QString::fromLocal8Bit(folder));
        QFile::setPermissions(QString::fromLocal8Bit(folder), QFileDevice::ReadOwner |
                                                                  QFileDevice::WriteOwner |
                                                                  QFileDevice::ExeOwner);
        qputenv(name, folder);
    }

    QApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("seconds"), QStringLiteral("How long to play."),
                      QStringLiteral("N"), QStringLiteral("60")});
    parser.addOption({QStringLiteral("seed"), QStringLiteral("The seed of the actions."),
                      QStringLiteral("S"), QStringLiteral("1")});
    parser.addOption({QStringLiteral("workdir"), QStringLiteral("The folder to work in."),
                      QStringLiteral("DIR")});
    parser.addHelpOption();
    parser.process(app);
    bool ok = false;
    const int seconds = parser.value(QStringLiteral("seconds")).toInt(&ok);
    const quint64 seed = parser.value(QStringLiteral("seed")).toULongLong(&ok);
    if (!ok || seconds < 0) {
        std::fprintf(stderr, "usage: tessaro-soak --seconds N --seed S --workdir DIR\n");
        return 2;
    }
    std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
    std::fflush(stdout);

    const soak::SoakMod mod =
        soak::writeSoakMod(workdir, QStringLiteral(TESSARO_SOURCE_DIR "/examples/samplemod"));
    int actions = 0;
    bool passed = false;
    QString failure;
    int ends = 0;
    {
        soak::Soak player(mod, seed, workdir);
        passed = player.run(seconds);
        actions = player.actions();
        failure = player.failure();
        ends = player.programEnds();
    }
    if (!passed)
        std::printf("FAILED: %s (replay with --seed %llu)\n", qPrintable(failure),
                    static_cast<unsigned long long>(seed));
    std::printf("%d run-time errors that end the program, caught at the seam\n", ends);
    std::printf("%d actions, seed %llu\n", actions, static_cast<unsigned long long>(seed));
    return passed ? 0 : 1;
}
