#include "maps/MapTreeView.h"

#include "maps/MapInfo.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QTreeWidget>

namespace torvik {
namespace {

constexpr int kKeyRole = Qt::UserRole;
constexpr int kImageRole = Qt::UserRole + 1;
constexpr int kSize = 16;

QPixmap folderPicture(bool open)
{
    QPixmap pm(kSize, kSize);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor edge(120, 84, 20);
    p.setPen(QPen(edge, 1));
    // Back of the folder with its tab.
    QPainterPath back;
    back.moveTo(1.5, 3.5);
    back.lineTo(6.5, 3.5);
    back.lineTo(8.0, 5.0);
    back.lineTo(14.5, 5.0);
    back.lineTo(14.5, 13.5);
    back.lineTo(1.5, 13.5);
    back.closeSubpath();
    p.setBrush(QColor(214, 166, 60));
    p.drawPath(back);
    // The front: flat when closed, tilted open.
    QPainterPath front;
    if (open) {
        front.moveTo(3.5, 7.5);
        front.lineTo(15.5, 7.5);
        front.lineTo(13.0, 13.5);
        front.lineTo(1.5, 13.5);
    } else {
        front.moveTo(1.5, 6.5);
        front.lineTo(14.5, 6.5);
        front.lineTo(14.5, 13.5);
        front.lineTo(1.5, 13.5);
    }
    front.closeSubpath();
    p.setBrush(QColor(246, 204, 96));
    p.drawPath(front);
    return pm;
}

QPixmap mapPicture()
{
    QPixmap pm(kSize, kSize);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    // A small arena seen from above: floor, walls and a path between rooms.
    p.setPen(QPen(QColor(50, 60, 70), 1));
    p.setBrush(QColor(150, 160, 150));
    p.drawRect(QRectF(1.5, 1.5, 13, 13));
    p.setBrush(QColor(90, 110, 90));
    p.drawRect(QRectF(3.5, 3.5, 4, 4));
    p.drawRect(QRectF(8.5, 8.5, 4, 4));
    p.setPen(QPen(QColor(200, 60, 40), 1.5));
    p.drawLine(QPointF(7.5, 5.5), QPointF(10.5, 5.5));
    p.drawLine(QPointF(10.5, 5.5), QPointF(10.5, 8.5));
    return pm;
}

// Right button presses on a list's viewport. They are taken here, so the
// control doesn't move its selection to the row under the pointer.
class RightPress : public QObject {
public:
    RightPress(QWidget* viewport, std::function<void()> onPress)
        : QObject(viewport), onPress_(std::move(onPress))
    {
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
            if (static_cast<QMouseEvent*>(event)->button() != Qt::RightButton)
                break;
            if (event->type() == QEvent::MouseButtonPress)
                onPress_();
            return true;
        default:
            break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> onPress_;
};

} // namespace

QIcon mapTreeImage(int image)
{
    static const QIcon category(folderPicture(false));
    static const QIcon expanded(folderPicture(true));
    static const QIcon map(mapPicture());
    switch (image) {
    case CategoryImage: return category;
    case ExpandedImage: return expanded;
    case MapImage: return map;
    default: return QIcon();
    }
}

void showMapTree(QTreeWidget* view, const MapTree& tree)
{
    view->clear();
    QList<QTreeWidgetItem*> roots;
    roots.reserve(tree.categories.size());
    for (const MapTreeCategory& c : tree.categories) {
        auto* root = new QTreeWidgetItem(QStringList{c.text});
        root->setData(0, kKeyRole, c.key);
        root->setData(0, kImageRole, int(CategoryImage));
        root->setIcon(0, mapTreeImage(CategoryImage));
        for (const QString& name : c.maps) {
            auto* node = new QTreeWidgetItem(root, QStringList{name});
            node->setData(0, kImageRole, int(MapImage));
            node->setIcon(0, mapTreeImage(MapImage));
        }
        roots << root;
    }
    view->addTopLevelItems(roots);
}

MapTree mapTreeOf(const QTreeWidget* view)
{
    MapTree tree;
    for (int i = 0; i < view->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* root = view->topLevelItem(i);
        MapTreeCategory c{root->text(0), root->data(0, kKeyRole).toString(), {}};
        c.maps.reserve(root->childCount());
        for (int j = 0; j < root->childCount(); ++j)
            c.maps << root->child(j)->text(0);
        tree.categories << c;
    }
    return tree;
}

void showMapInfoFor(const QString& map, QWidget* parent)
{
    if (map.isEmpty() || isCategoryName(map))
        return;
    InfoMapName = map;
    ShowMapInfoForm(parent);
}

void connectMapTree(QTreeWidget* view, QString* selectedNodeText, std::function<void(const QString&)> onDoubleClick)
{
    QObject::connect(view, &QTreeWidget::itemClicked, view, [selectedNodeText](QTreeWidgetItem* item, int) {
        *selectedNodeText = item->text(0);
    });
    QObject::connect(view, &QTreeWidget::itemDoubleClicked, view,
                     [selectedNodeText, onDoubleClick = std::move(onDoubleClick)](QTreeWidgetItem*, int) {
                         const QString text = *selectedNodeText;
                         if (!text.isEmpty() && !isCategoryName(text))
                             onDoubleClick(text);
                     });
    QObject::connect(view, &QTreeWidget::itemExpanded, view,
                     [](QTreeWidgetItem* item) { item->setIcon(0, mapTreeImage(ExpandedImage)); });
    QObject::connect(view, &QTreeWidget::itemCollapsed, view, [](QTreeWidgetItem* item) {
        item->setIcon(0, mapTreeImage(item->data(0, kImageRole).toInt()));
    });
    onRightPress(view->viewport(), [view, selectedNodeText] { showMapInfoFor(*selectedNodeText, view->window()); });
}

void onRightPress(QWidget* viewport, std::function<void()> handler)
{
    viewport->installEventFilter(new RightPress(viewport, std::move(handler)));
}

} // namespace torvik
