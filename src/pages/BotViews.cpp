#include "pages/BotViews.h"

#include <QKeyEvent>

#include "bots/BotAttributes.h"

#include <QEvent>
#include <QIcon>
#include <QIdentityProxyModel>
#include <QItemSelectionModel>
#include <QListView>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QTreeView>

#include <algorithm>

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

// The name list shows the same rows without the ticks: there the highlight
// is the mark.
class NamesWithoutTicks : public QIdentityProxyModel {
public:
    using QIdentityProxyModel::QIdentityProxyModel;
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role == Qt::DecorationRole || role == kIconKeyRole)
            return {};
        return QIdentityProxyModel::data(index, role);
    }
};

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

// Headers with their widths in the form units the pages were laid out in.
void showColumns(QTreeView* view, StoreRowsModel* rows, std::initializer_list<std::pair<const char*, int>> columns,
                 int rowCount, StoreRowsModel::Cell cell)
{
    QStringList headers;
    for (const auto& c : columns)
        headers << QString::fromLatin1(c.first);
    rows->show(headers, rowCount, std::move(cell));
    int i = 0;
    for (const auto& c : columns)
        view->setColumnWidth(i++, pixels(c.second));
}

QModelIndex nameIndex(const QListView* names, int row) { return names->model()->index(row, 0); }

} // namespace

StoreRowsModel::StoreRowsModel(QObject* parent) : QAbstractTableModel(parent) {}

void StoreRowsModel::show(const QStringList& headers, int rows, Cell cell)
{
    beginResetModel();
    headers_ = headers;
    rows_ = rows;
    cell_ = std::move(cell);
    ticks_.assign(size_t(rows), 0);
    endResetModel();
}

void StoreRowsModel::clear() { show({}, 0, {}); }

QString StoreRowsModel::text(int row, int column) const
{
    if (row < 0 || row >= rows_ || column < 0 || column >= headers_.size() || !cell_)
        return QString();
    return cell_(row, column);
}

bool StoreRowsModel::isTicked(int row) const { return row >= 0 && row < rows_ && ticks_[size_t(row)]; }

void StoreRowsModel::setTicked(int row, bool ticked)
{
    if (row < 0 || row >= rows_ || bool(ticks_[size_t(row)]) == ticked)
        return;
    ticks_[size_t(row)] = ticked;
    const QModelIndex cell = index(row, 0);
    emit dataChanged(cell, cell, {Qt::DecorationRole, kIconKeyRole});
}

int StoreRowsModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int StoreRowsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(headers_.size());
}

QVariant StoreRowsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return text(index.row(), index.column());
    if (index.column() == 0 && isTicked(index.row())) {
        if (role == Qt::DecorationRole)
            return checkIcon();
        if (role == kIconKeyRole)
            return kCheckKey;
    }
    return {};
}

QVariant StoreRowsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < headers_.size())
        return headers_[section];
    return QAbstractTableModel::headerData(section, orientation, role);
}

StoreRowsModel* showStoreRows(QTreeView* view, QListView* names)
{
    auto* rows = new StoreRowsModel(view);
    view->setModel(rows);
    view->setUniformRowHeights(true);
    auto* shown = new NamesWithoutTicks(names);
    shown->setSourceModel(rows);
    names->setModel(shown);
    names->setUniformItemSizes(true);
    return rows;
}

void fillBotViews(QTreeView* view, StoreRowsModel* rows, const std::vector<torvik::BotRecord>& bots,
                  std::vector<int> listed)
{
    const int count = int(listed.size());
    // The store may be read again under the views: a row whose bot is gone reads empty.
    auto cell = [&bots, listed = std::move(listed)](int row, int column) -> QString {
        const size_t at = size_t(listed[size_t(row)]);
        if (at >= bots.size())
            return QString();
        const torvik::BotRecord& b = bots[at];
        switch (column) {
        case 0: return b.Name;
        case 1: return b.ModelSkin;
        case 2: return QString::number(b.Accuracy);
        case 3: return QString::number(b.Aggressiveness);
        case 4: return QString::number(b.CombatSkills);
        case 5: return QString::number(b.FavoriteWeapon);
        case 6: return QString::number(b.QuadFreak);
        case 7: return QString::number(b.Camper);
        default: return QString::number(b.Ping);
        }
    };
    showColumns(view, rows,
                {{"Bot Name(s)", 1200},
                 {"Model/Skin", 1100},
                 {"Accuracy", 300},
                 {"Agresiveness", 300},
                 {"Combat Skills", 300},
                 {"Favorite Weapon", 300},
                 {"Quad Freak", 300},
                 {"Camper", 300},
                 {"Average Ping", 460}},
                count, std::move(cell));
}

void fillTeamViews(QTreeView* view, StoreRowsModel* rows, const std::vector<torvik::TeamRecord>& teams)
{
    auto cell = [&teams](int row, int column) -> QString {
        if (size_t(row) >= teams.size())
            return QString();
        const torvik::TeamRecord& t = teams[size_t(row)];
        switch (column) {
        case 0: return t.Name;
        case 1: return t.Abbreviation;
        case 2: return t.ModelSkin;
        default: return t.Members;
        }
    };
    showColumns(view, rows, {{"Team Name(s)", 1100}, {"Abb.", 330}, {"Model/Skin", 800}, {"Team Members", 2500}},
                int(teams.size()), std::move(cell));
}

bool isRowSelected(const QListView* names, int row)
{
    return names->selectionModel()->isSelected(nameIndex(names, row));
}

void setRowSelected(QListView* names, int row, bool selected)
{
    const QModelIndex index = nameIndex(names, row);
    if (index.isValid())
        names->selectionModel()->select(index, selected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
}

int selectedRowCount(const QListView* names)
{
    const QModelIndexList chosen = names->selectionModel()->selectedIndexes();
    return int(std::count_if(chosen.begin(), chosen.end(), [](const QModelIndex& i) { return i.column() == 0; }));
}

QStringList selectedRowTexts(const QListView* names)
{
    std::vector<int> rows;
    const QModelIndexList chosen = names->selectionModel()->selectedIndexes();
    for (const QModelIndex& i : chosen)
        if (i.column() == 0)
            rows.push_back(i.row());
    std::sort(rows.begin(), rows.end());
    QStringList texts;
    texts.reserve(qsizetype(rows.size()));
    for (int row : rows)
        texts << nameIndex(names, row).data().toString();
    return texts;
}

void markSelectedRows(StoreRowsModel* rows, const QListView* names)
{
    const int count = qMin(rows->rowCount(), names->model()->rowCount());
    for (int i = 0; i < count; ++i)
        rows->setTicked(i, isRowSelected(names, i));
}

void toggleMarkedRow(StoreRowsModel* rows, QListView* names, int row)
{
    const bool marked = rows->isTicked(row);
    rows->setTicked(row, !marked);
    setRowSelected(names, row, !marked);
}

void onViewMouse(QAbstractItemView* view, std::function<void()> doubleClick, std::function<void()> rightPress)
{
    new ViewMouse(view, std::move(doubleClick), std::move(rightPress));
}

namespace {

class ViewSpace : public QObject {
public:
    ViewSpace(QAbstractItemView* view, std::function<void(int)> toggle)
        : QObject(view), view_(view), toggle_(std::move(toggle))
    {
        view->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Space)
            return false;
        if (const QModelIndex current = view_->currentIndex(); current.isValid())
            toggle_(current.row());
        return true;
    }

private:
    QAbstractItemView* view_;
    std::function<void(int)> toggle_;
};

} // namespace

void onViewSpace(QAbstractItemView* view, std::function<void(int row)> toggle)
{
    new ViewSpace(view, std::move(toggle));
}

} // namespace pages
