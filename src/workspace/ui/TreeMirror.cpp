#include "workspace/ui/TreeMirror.h"

#include "workspace/core/NodeTree.h"

#include <QApplication>
#include <QSet>
#include <QSignalBlocker>
#include <QStyle>
#include <QTreeWidget>

namespace tessaro {

namespace {

constexpr int KeyRole = Qt::UserRole;
constexpr int ImageRole = Qt::UserRole + 1;

// The image list of the two trees: 1 a group (folder), 2 a structure, 5 a file.
// Looked up once (a style's icon lookup is far slower than a node) and kept for the
// life of the process.
QIcon iconFor(int image)
{
    struct Icons
    {
        QIcon group, structure, file;
    };
    static const Icons *icons =
        new Icons{QApplication::style()->standardIcon(QStyle::SP_DirIcon),
                  QApplication::style()->standardIcon(QStyle::SP_FileDialogDetailedView),
                  QApplication::style()->standardIcon(QStyle::SP_FileIcon)};
    switch (image) {
    case 1: return icons->group;
    case 2: return icons->structure;
    default: return icons->file;
    }
}

void collectExpanded(const QTreeWidgetItem *item, QSet<QString> &keys)
{
    if (item->isExpanded())
        keys.insert(nodeKey(item));
    for (int i = 0; i < item->childCount(); ++i)
        collectExpanded(item->child(i), keys);
}

} // namespace

QString nodeKey(const QTreeWidgetItem *item)
{
    return item ? item->data(0, KeyRole).toString() : QString();
}

int nodeImage(const QTreeWidgetItem *item)
{
    return item ? item->data(0, ImageRole).toInt() : 0;
}

void showNodeTree(QTreeWidget *widget, const NodeTree &tree)
{
    if (!widget)
        return;
    QSet<QString> expanded;
    for (int i = 0; i < widget->topLevelItemCount(); ++i)
        collectExpanded(widget->topLevelItem(i), expanded);

    const QSignalBlocker blocker(widget);
    widget->setUpdatesEnabled(false);
    widget->clear();
    widget->setHeaderHidden(true);
    QVector<QTreeWidgetItem *> items(tree.size(), nullptr);
    for (const NodeTree::Row &row : tree.rows()) {
        const NodeTree::Node &node = tree.node(row.index);
        auto *item =
            node.parent < 0 ? new QTreeWidgetItem(widget) : new QTreeWidgetItem(items[node.parent]);
        item->setText(0, node.text);
        item->setData(0, KeyRole, node.key);
        item->setData(0, ImageRole, node.image);
        item->setIcon(0, iconFor(node.image));
        items[row.index] = item;
    }
    for (QTreeWidgetItem *item : items)
        if (item && item->childCount() > 0 && expanded.contains(nodeKey(item)))
            item->setExpanded(true);
    widget->setUpdatesEnabled(true);
}

} // namespace tessaro
