#pragma once

#include <QHash>
#include <QString>
#include <QVector>

namespace tessaro {

// The contents of a tree view: nodes with a key, a text and an image index,
// each either at the top level or the child of another node. Keys are unique: adding
// a second node with a key already in the tree raises 35602 "Key is not unique in
// collection" and changes nothing. An empty key means the node has none, in the tree
// control, and is never refused. Keys compare case-sensitively (they are
// paths on a case-sensitive file system).
//
// The FileView tree and the structure view keep their nodes here; the widgets show
// a copy of it.
class NodeTree
{
public:
    struct Node
    {
        QString key;
        QString text;
        int image = 0;
        int parent = -1;       // index of the parent node, -1 at the top level
        QVector<int> children; // indexes, in the order added
    };

    static constexpr qint64 KeyNotUnique = 35602;

    // Adds a node under the node with parentKey, or at the top level when parentKey
    // is empty. A parent key that names no node raises 35601 "Element not found".
    // Returns the new node's index.
    int add(const QString &parentKey, const QString &key, const QString &text, int image);

    void clear();
    bool isEmpty() const { return m_nodes.isEmpty(); }
    int size() const { return int(m_nodes.size()); }
    const Node &node(int index) const { return m_nodes[index]; }
    const QVector<int> &topLevel() const { return m_topLevel; }
    // The node with the key, -1 when there is none.
    int indexOf(const QString &key) const { return m_byKey.value(key, -1); }
    bool contains(const QString &key) const { return m_byKey.contains(key); }

    // Every node in tree order (a node, then its children depth first), with its depth.
    struct Row
    {
        int index;
        int depth;
    };
    QVector<Row> rows() const;

    // One line per node in tree order: the key, a tab and the text, indented by two
    // blanks per level; each line ends with a line feed.
    QString listing() const;

private:
    void appendRows(QVector<Row> &rows, int index, int depth) const;

    QVector<Node> m_nodes;
    QVector<int> m_topLevel;
    QHash<QString, int> m_byKey;
};

} // namespace tessaro
