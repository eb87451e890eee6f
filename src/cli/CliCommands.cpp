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

const Command *findCommand(const QString &name)
{
    for (const Command &command : commands())
        if (name == QLatin1String(command.name))
            return &command;
    return nullptr;
}

bool isHelpSwitch(const QString &argument)
{
    return argument == QLatin1String("--help") || argument == QLatin1String("-h");
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
                           "  --version  show the version\n\n"
                           "tessaro-cli COMMAND --help shows the usage of one command.\n");
    return text;
}

} // namespace

Registration::Registration(const Command &command) { commands().push_back(command); }

int usageError(const char *command, const QString &problem)
{
    QTextStream err(stderr);
    if (!problem.isEmpty())
        err << QStringLiteral("tessaro-cli %1: %2\n").arg(QLatin1String(command), problem);
    if (const Command *known = findCommand(QLatin1String(command)))
        err << known->usage;
    return 2;
}

int run(const QStringList &arguments)
{
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QString first = arguments.value(1);
    if (first == QLatin1String("--version")) {
        out << versionText();
        return 0;
    }
    if (isHelpSwitch(first)) {
        out << helpText();
        return 0;
    }
    if (const Command *command = findCommand(first)) {
        if (isHelpSwitch(arguments.value(2))) {
            out << command->usage;
            return 0;
        }
        return command->run(arguments.mid(2));
    }
    err << (first.isEmpty() ? QStringLiteral("tessaro-cli: no command given\n")
                            : QStringLiteral("tessaro-cli: unknown command '%1'\n").arg(first));
    err << helpText();
    return 2;
}

} // namespace tessaro::cli
