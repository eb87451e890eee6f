#include "cli/CliCommands.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Tessaro"));
    QCoreApplication::setOrganizationName(QStringLiteral("Tessaro"));
    return tessaro::cli::run(QCoreApplication::arguments());
}
