#pragma once

#include "platform/core/RuntimeError.h"

#include <QVector>

#include <limits>

namespace tessaro {

// Raises a 16-bit count by one: past 32767 the run-time's overflow error.
inline void incrementCount(qint16 &count)
{
    if (count == std::numeric_limits<qint16>::max())
        throw RuntimeError(RuntimeError::Overflow);
    ++count;
}

// A fixed-capacity array of entries 0 .. capacity - 1 with a 16-bit count of those
// in use. Entries at and above the count exist (empty unless older text was left
// there). Indexing outside 0 .. capacity - 1 raises 9 "Subscript out of range".
template <typename T>
class FixedList
{
public:
    explicit FixedList(int capacity) : m_entries(capacity) {}

    int capacity() const { return int(m_entries.size()); }
    qint16 count() const { return m_count; }
    void setCount(qint16 count) { m_count = count; }

    const T &at(int index) const
    {
        check(index);
        return m_entries[index];
    }
    void set(int index, const T &value)
    {
        check(index);
        m_entries[index] = value;
    }

    // Stores the value at position count and raises the count.
    void append(const T &value)
    {
        set(m_count, value);
        incrementCount(m_count);
    }

    // The entries in use, 0 .. count - 1.
    QVector<T> used() const { return m_entries.mid(0, qMin<int>(m_count, capacity())); }

private:
    void check(int index) const
    {
        if (index < 0 || index >= capacity())
            throw RuntimeError(RuntimeError::SubscriptOutOfRange);
    }

    QVector<T> m_entries;
    qint16 m_count = 0;
};

} // namespace tessaro
