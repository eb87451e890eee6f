#include "tools/core/SourceAssociations.h"

#include "platform/core/AppInfo.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/RegistryStore.h"
#include "tools/core/DesktopAssociation.h"

#include <QCoreApplication>

namespace tessaro {

QString associationProgramPath(const QString &programFolder, const QString &programName)
{
    QString path = programFolder;
    if (!path.endsWith(QLatin1Char('/')))
        path += QLatin1Char('/');
    return path + programName;
}

bool registerSourceFileClasses(cRegistry &registry, const QString &programPath)
{
    struct SourceClass
    {
        const char *name;
        const char *description;
        const char *extension;
    };
    static const SourceClass classes[] = {
        {"C.Source", "C Source", "C"},
        {"C.Header", "C Header", "H"},
        {"CPP.Source", "C++ Source", "CPP"},
    };
    registry.setToleratesMachineWriteFailure(true);
    for (const SourceClass &c : classes)
        registry.CreateEXEAssociation(programPath, QLatin1String(c.name),
                                      QLatin1String(c.description), QLatin1String(c.extension),
                                      QStringLiteral("&Open"), false, QStringLiteral("&Print"),
                                      false, QStringLiteral("&New"), false, QString(), -1);
    return !registry.machineWriteFailed();
}

void registerFileAssociations()
{
    RegistryStore store;
    store.beginBatch(); // each root's file is written once, not once per value
    trapped([&] {
        cRegistry registry(store);
        registerSourceFileClasses(registry, associationProgramPath(programFolder()));
    });
    store.commitBatch();
    DesktopAssociation::forCurrentUser().apply(QCoreApplication::applicationFilePath());
}

} // namespace tessaro
