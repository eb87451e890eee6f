#pragma once

#include <QStringList>
#include <QVariant>
#include <QVariantMap>

namespace tessaro {

// The store of a control's design-time properties. Reading a name that is not
// stored gives the default; writing a value equal to its default stores nothing,
// so a bag only ever holds what differs from the defaults. Every read and write is
// recorded by name, so the order in which a control uses the bag can be checked.
class PropertyBag
{
public:
    PropertyBag() = default;
    explicit PropertyBag(QVariantMap values) : m_values(std::move(values)) {}

    QVariant ReadProperty(const QString &name, const QVariant &defaultValue = {});
    void WriteProperty(const QString &name, const QVariant &value,
                       const QVariant &defaultValue = {});

    const QVariantMap &values() const { return m_values; }
    bool contains(const QString &name) const { return m_values.contains(name); }

    // The names read and written so far, in order.
    const QStringList &readOrder() const { return m_reads; }
    const QStringList &writeOrder() const { return m_writes; }

private:
    QVariantMap m_values;
    QStringList m_reads;
    QStringList m_writes;
};

} // namespace tessaro
