#include "cli/CliCommands.h"

#include <QCoreApplication>
#include <QStringList>

// tessaro-cli runs without a QCoreApplication: nothing it does needs an event loop,
// and setting one up (with the process locale) is a measurable share of a short run.
int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("Tessaro"));
    QCoreApplication::setOrganizationName(QStringLiteral("Tessaro"));
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    return tessaro::cli::run(arguments);
}
