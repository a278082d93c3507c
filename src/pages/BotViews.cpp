#include "pages/BotViews.h"

#include "bots/BotAttributes.h"

#include <QEvent>
#include <QIcon>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QTreeWidget>

namespace pages {
namespace {

// Where a row keeps the key of its icon; the picture is only what the user
// sees of it.
constexpr int kIconKeyRole = Qt::UserRole + 1;

QIcon checkIcon()
{
    static const QIcon icon = [] {
        QPixmap pm(16, 16);
        pm.fill(Qt::transparent);
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(QColor(0, 128, 0), 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF tick[] = {{3.0, 8.5}, {6.5, 12.0}, {13.0, 4.0}};
        p.drawPolyline(tick, 3);
        return QIcon(pm);
    }();
    return icon;
}

class ViewMouse : public QObject {
public:
    ViewMouse(QAbstractItemView* view, std::function<void()> doubleClick, std::function<void()> rightPress)
        : QObject(view), doubleClick_(std::move(doubleClick)), rightPress_(std::move(rightPress))
    {
        view->viewport()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonDblClick
            && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && doubleClick_)
            doubleClick_();
        else if (event->type() == QEvent::MouseButtonPress
                 && static_cast<QMouseEvent*>(event)->button() == Qt::RightButton && rightPress_)
            rightPress_();
        return false;
    }

private:
    std::function<void()> doubleClick_;
    std::function<void()> rightPress_;
};

// Form units are twips: fifteen to a pixel.
int pixels(int formUnits) { return formUnits / 15; }

} // namespace

QString iconKey(const QTreeWidgetItem* item) { return item->data(0, kIconKeyRole).toString(); }

void setIconKey(QTreeWidgetItem* item, const QString& key)
{
    if (iconKey(item) == key)
        return;
    item->setData(0, kIconKeyRole, key);
    item->setIcon(0, key.isEmpty() ? QIcon() : checkIcon());
}

void setReportColumns(QTreeWidget* view, std::initializer_list<std::pair<const char*, int>> columns)
{
    QStringList headers;
    for (const auto& c : columns)
        headers << QString::fromLatin1(c.first);
    view->setColumnCount(int(headers.size()));
    view->setHeaderLabels(headers);
    int i = 0;
    for (const auto& c : columns)
        view->setColumnWidth(i++, pixels(c.second));
}

void clearReportColumns(QTreeWidget* view)
{
    view->clear();
    view->setColumnCount(0);
}

void fillBotViews(QTreeWidget* view, QListWidget* names, const std::vector<torvik::BotRecord>& bots,
                  const std::vector<int>& listed)
{
    view->clear();
    names->clear();
    setReportColumns(view, {{"Bot Name(s)", 1200},
                            {"Model/Skin", 1100},
                            {"Accuracy", 300},
                            {"Agresiveness", 300},
                            {"Combat Skills", 300},
                            {"Favorite Weapon", 300},
                            {"Quad Freak", 300},
                            {"Camper", 300},
                            {"Average Ping", 460}});
    QList<QTreeWidgetItem*> items;
    QStringList texts;
    items.reserve(qsizetype(listed.size()));
    texts.reserve(qsizetype(listed.size()));
    for (int row : listed) {
        const torvik::BotRecord& b = bots[size_t(row)];
        items << new QTreeWidgetItem(torvik::botCells(b));
        texts << b.Name;
    }
    view->addTopLevelItems(items);
    names->addItems(texts);
}

void fillTeamViews(QTreeWidget* view, QListWidget* names, const std::vector<torvik::TeamRecord>& teams)
{
    view->clear();
    names->clear();
    setReportColumns(view, {{"Team Name(s)", 1100}, {"Abb.", 330}, {"Model/Skin", 800}, {"Team Members", 2500}});
    QList<QTreeWidgetItem*> items;
    QStringList texts;
    for (const torvik::TeamRecord& t : teams) {
        items << new QTreeWidgetItem(QStringList{t.Name, t.Abbreviation, t.ModelSkin, t.Members});
        texts << t.Name;
    }
    names->addItems(texts);
    view->addTopLevelItems(items);
}

void markSelectedRows(QTreeWidget* view, const QListWidget* names)
{
    const int rows = qMin(names->count(), view->topLevelItemCount());
    for (int i = 0; i < rows; ++i)
        setIconKey(view->topLevelItem(i), names->item(i)->isSelected() ? kCheckKey : QString());
}

void toggleMarkedRow(QTreeWidgetItem* item, QListWidgetItem* row)
{
    const bool marked = iconKey(item) == kCheckKey;
    setIconKey(item, marked ? QString() : kCheckKey);
    row->setSelected(!marked);
}

void onViewMouse(QAbstractItemView* view, std::function<void()> doubleClick, std::function<void()> rightPress)
{
    new ViewMouse(view, std::move(doubleClick), std::move(rightPress));
}

} // namespace pages
