#include "platform/core/CommonDialog.h"

#include "platform/core/Paths.h"
#include "platform/core/RuntimeError.h"

#include <QStringList>

namespace tessaro {

namespace {

// Until a window system is up nobody can choose a file: every dialog is cancelled.
class NoDialog : public CommonDialogService
{
public:
    QString fileName(const FileDialogRequest &) override { return QString(); }
    bool printerSetup(const QString &) override { return false; }
};

NoDialog g_noDialog;
CommonDialogService *g_service = &g_noDialog;

} // namespace

CommonDialogService &commonDialog()
{
    return *g_service;
}

CommonDialogService *setCommonDialogService(CommonDialogService *service)
{
    CommonDialogService *previous = g_service;
    g_service = service ? service : &g_noDialog;
    return previous;
}

QString showFileDialog(const FileDialogRequest &request)
{
    QString name = g_service->fileName(request);
    if (name.isEmpty() && request.cancelError)
        throw RuntimeError(RuntimeError::CancelSelected);
    return name;
}

QStringList qtNameFilters(const QString &filterText)
{
    QStringList filters;
    const QStringList parts = filterText.split(QLatin1Char('|'));
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        // "*.*" means every file: on Linux many names (Makefile, README) have no dot.
        QStringList patterns = parts[i + 1].split(QLatin1Char(';'));
        for (QString &pattern : patterns)
            if (pattern.trimmed() == QLatin1String("*.*"))
                pattern = QStringLiteral("*");
        QString description = parts[i];
        // Qt reads the patterns from the parentheses: keep the description's own
        // words and give the patterns in the form Qt understands.
        const int open = description.indexOf(QLatin1Char('('));
        if (open >= 0)
            description = description.left(open).trimmed();
        filters << QStringLiteral("%1 (%2)").arg(description, patterns.join(QLatin1Char(' ')));
    }
    return filters;
}

QString multiSelectionText(const QStringList &paths)
{
    if (paths.isEmpty())
        return QString();
    if (paths.size() == 1)
        return paths.first();
    QStringList parts{paths::directoryPart(paths.first())};
    for (const QString &path : paths)
        parts << paths::filePart(path);
    return parts.join(QLatin1Char(' '));
}

} // namespace tessaro
