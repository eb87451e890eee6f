#include "cli/CliCommands.h"

#include "platform/core/AppInfo.h"

#include <QTextStream>

#include <vector>

namespace tessaro::cli {

namespace {

// The commands, in the order their files registered them.
std::vector<Command> &commands()
{
    static std::vector<Command> list;
    return list;
}

QString versionText()
{
    return QStringLiteral("tessaro-cli %1.%2.%3\n")
        .arg(versionMajor())
        .arg(versionMinor())
        .arg(versionRevision());
}

QString helpText()
{
    QString text = QStringLiteral(
        "Usage: tessaro-cli COMMAND [ARGUMENTS...]\n"
        "Does from a terminal what the Tessaro IDE does for one file or one workspace.\n\n"
        "Commands:\n");
    for (const Command &command : commands())
        text += QStringLiteral("  %1\n").arg(QLatin1String(command.synopsis));
    text += QStringLiteral("  --help     show this text\n"
                           "  --version  show the version\n");
    return text;
}

} // namespace

Registration::Registration(const Command &command) { commands().push_back(command); }

int run(const QStringList &arguments)
{
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QString first = arguments.value(1);
    if (first == QLatin1String("--version")) {
        out << versionText();
        return 0;
    }
    if (first == QLatin1String("--help") || first == QLatin1String("-h")) {
        out << helpText();
        return 0;
    }
    for (const Command &command : commands())
        if (first == QLatin1String(command.name))
            return command.run(arguments.mid(2));
    err << (first.isEmpty() ? QStringLiteral("tessaro-cli: no command given\n")
                            : QStringLiteral("tessaro-cli: unknown command '%1'\n").arg(first));
    err << helpText();
    return 2;
}

} // namespace tessaro::cli
