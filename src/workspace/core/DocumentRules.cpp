#include "workspace/core/DocumentRules.h"

#include "platform/core/RuntimeError.h"

#include <limits>

namespace tessaro::documents {

QString untitledCaption(qint32 counter)
{
    return QStringLiteral("Source ") + QString::number(counter);
}

QString loadingCaption(const QString &path)
{
    return path + QStringLiteral(" - Colour Coding...");
}

bool opensAsCSource(const QString &caption)
{
    return caption.endsWith(QLatin1String(".cpp")) || caption.endsWith(QLatin1String(".h")) ||
           caption.endsWith(QLatin1String(".c"));
}

bool savesAsCSource(const QString &name)
{
    return name.endsWith(QLatin1String(".h")) || name.endsWith(QLatin1String(".c"));
}

bool isUntitled(const QString &caption)
{
    return caption.left(6) == QLatin1String("Source");
}

QString sourceFileFilter()
{
    return QStringLiteral("Source Files (*.c, *.h)|*.c;*.h|All Files (*.*)|*.*");
}
QString promptSaveFilter()
{
    return QStringLiteral("All Files (*.*)|*.*");
}
QString openTitle()
{
    return QStringLiteral("Open");
}
QString saveTitle()
{
    return QStringLiteral("Save");
}
QString saveAsTitle()
{
    return QStringLiteral("Save As");
}

QString saveChangesPrompt(const QString &caption)
{
    return QStringLiteral("Would you like to save changes made to ") + caption + QLatin1Char('?');
}

QString saveChangesTitle()
{
    return QStringLiteral("Save Changes?");
}

qint32 nextDocumentNumber(qint32 &counter)
{
    if (counter == std::numeric_limits<qint32>::max())
        raise(RuntimeError::Overflow);
    return ++counter;
}

} // namespace tessaro::documents
