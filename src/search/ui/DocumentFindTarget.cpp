#include "search/ui/DocumentFindTarget.h"

#include "platform/core/RuntimeError.h"
#include "shell/ui/ActiveDocument.h"

#include <QVariant>

namespace tessaro::search {

namespace {

[[noreturn]] void notSupported()
{
    throw RuntimeError(438, QStringLiteral("Object doesn't support this property or method"),
                       QStringLiteral("Tessaro"));
}

} // namespace

QVariant DocumentFindTarget::property(const char *name) const
{
    const QVariant value = readByName(m_code.data(), name);
    if (!value.isValid())
        notSupported();
    return value;
}

qint32 DocumentFindTarget::selStart() const
{
    return property("SelStart").toInt();
}

qint32 DocumentFindTarget::textLength() const
{
    return qint32(property("Text").toString().size());
}

void DocumentFindTarget::find(const QString &text, qint32 start, qint32 end)
{
    if (!callByName(m_code.data(), "Find", {text, start, end}))
        notSupported();
}

} // namespace tessaro::search
