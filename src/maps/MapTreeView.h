#pragma once
// The map tree controls of the starting map page and the cycle editor: they
// draw a MapTree and read it back, so the widget is the only copy of the tree
// while it is shown. The node events both trees share live here too.
#include "maps/MapTree.h"

#include <QIcon>
#include <QString>

#include <functional>

class QTreeWidget;
class QWidget;

namespace torvik {

// The tree's image list.
enum MapTreeImage {
    CategoryImage = 2, // a category, closed
    MapImage = 3,      // a map
    ExpandedImage = 4, // any node while it is expanded
};
QIcon mapTreeImage(int image);

// Shows the tree: categories as top-level nodes in their order, collapsed,
// each with its key; maps below them.
void showMapTree(QTreeWidget* view, const MapTree& tree);
// The tree the control shows.
MapTree mapTreeOf(const QTreeWidget* view);

// The node events of a map tree:
// - a left click on a node puts its text into *selectedNodeText;
// - a double click hands that text to onDoubleClick, unless it is empty or a
//   category;
// - the right button, pressed anywhere on the tree, acts on that text too,
//   not on the node under the pointer: the map goes to InfoMapName and the
//   map information form is shown;
// - an expanded node shows image 4 until it is collapsed again.
// selectedNodeText must outlive the control.
void connectMapTree(QTreeWidget* view, QString* selectedNodeText, std::function<void(const QString&)> onDoubleClick);

// Runs handler when the right mouse button goes down on the viewport of an
// item view. The view itself never sees the right button, so its selection
// stays where the left button put it.
void onRightPress(QWidget* viewport, std::function<void()> handler);

// The right click of the trees: the map goes to
// InfoMapName and the map information form is shown over parent. Nothing
// happens for an empty text or a category name.
void showMapInfoFor(const QString& map, QWidget* parent);

} // namespace torvik
