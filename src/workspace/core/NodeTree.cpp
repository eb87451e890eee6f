#include "workspace/core/NodeTree.h"

#include "platform/core/RuntimeError.h"

namespace tessaro {

namespace {
constexpr qint64 ElementNotFound = 35601;
}

int NodeTree::add(const QString &parentKey, const QString &key, const QString &text, int image)
{
    int parent = -1;
    if (!parentKey.isEmpty()) {
        parent = indexOf(parentKey);
        if (parent < 0)
            throw RuntimeError(ElementNotFound, QStringLiteral("Element not found"),
                               QStringLiteral("Tessaro"));
    }
    if (!key.isEmpty() && m_byKey.contains(key))
        throw RuntimeError(KeyNotUnique, QStringLiteral("Key is not unique in collection"),
                           QStringLiteral("Tessaro"));

    const int index = int(m_nodes.size());
    m_nodes.append(Node{key, text, image, parent, {}});
    if (parent < 0)
        m_topLevel.append(index);
    else
        m_nodes[parent].children.append(index);
    if (!key.isEmpty())
        m_byKey.insert(key, index);
    return index;
}

void NodeTree::clear()
{
    m_nodes.clear();
    m_topLevel.clear();
    m_byKey.clear();
}

QVector<NodeTree::Row> NodeTree::rows() const
{
    QVector<Row> result;
    result.reserve(m_nodes.size());
    for (int index : m_topLevel)
        appendRows(result, index, 0);
    return result;
}

void NodeTree::appendRows(QVector<Row> &rows, int index, int depth) const
{
    rows.append(Row{index, depth});
    for (int child : m_nodes[index].children)
        appendRows(rows, child, depth + 1);
}

QString NodeTree::listing() const
{
    QString text;
    for (const Row &row : rows()) {
        const Node &n = m_nodes[row.index];
        text += QString(row.depth * 2, QLatin1Char(' '));
        text += n.key;
        text += QLatin1Char('\t');
        text += n.text;
        text += QLatin1Char('\n');
    }
    return text;
}

} // namespace tessaro
