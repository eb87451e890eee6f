#pragma once

class QTreeWidget;
class QTreeWidgetItem;
class QString;

namespace tessaro {

class NodeTree;

// Shows a NodeTree in a tree widget: one item per node, in the model's order, with
// the node's text, its key (item data Qt::UserRole) and image index (Qt::UserRole + 1).
// Nodes start collapsed; a node the user had expanded
// stays expanded when the tree is shown again. No selection signal is raised while
// the items are rebuilt.
void showNodeTree(QTreeWidget *widget, const NodeTree &tree);

// The key of an item shown by showNodeTree ("" for nullptr).
QString nodeKey(const QTreeWidgetItem *item);
int nodeImage(const QTreeWidgetItem *item);

} // namespace tessaro
