#include "editor/core/PropertyBag.h"

namespace tessaro {

QVariant PropertyBag::ReadProperty(const QString &name, const QVariant &defaultValue)
{
    m_reads.append(name);
    const auto it = m_values.constFind(name);
    return it == m_values.constEnd() ? defaultValue : it.value();
}

void PropertyBag::WriteProperty(const QString &name, const QVariant &value,
                                const QVariant &defaultValue)
{
    m_writes.append(name);
    if (defaultValue.isValid() && value == defaultValue)
        m_values.remove(name);
    else
        m_values.insert(name, value);
}

} // namespace tessaro
