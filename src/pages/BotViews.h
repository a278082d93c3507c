#pragma once
// The report views and name lists of the bot and team pages: one model over
// the store that both views of a page show, its columns, and the tick that
// marks a chosen row.
#include "bots/BotStore.h"

#include <QAbstractTableModel>
#include <QString>
#include <QStringList>

#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

class QAbstractItemView;
class QListView;
class QTreeView;

namespace pages {

// The key of the tick in the pages' image list.
inline const QString kCheckKey = QStringLiteral("Check");

// The rows of one page as the store holds them: each cell is read from the
// store when a view draws it, so thousands of bots cost no copies. A row
// carries its tick here; the name list's selection is the choice itself.
class StoreRowsModel : public QAbstractTableModel {
public:
    // The text of a cell; it must answer for any row below the row count it
    // came with, and may answer "" once the store has moved on.
    using Cell = std::function<QString(int row, int column)>;

    explicit StoreRowsModel(QObject* parent = nullptr);

    // New rows and columns; no row is ticked.
    void show(const QStringList& headers, int rows, Cell cell);
    // No rows and no columns.
    void clear();

    QString text(int row, int column) const;
    bool isTicked(int row) const;
    void setTicked(int row, bool ticked);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QStringList headers_;
    int rows_ = 0;
    Cell cell_;
    std::vector<char> ticks_;
};

// Puts a page's report view and name list over one new model, the list
// showing the first column without ticks. Rows are of one height in both, so
// that a click low in a long list measures one row, not all above it.
StoreRowsModel* showStoreRows(QTreeView* view, QListView* names);

// The bot page's nine columns, one row per listed bot (indexes into bots, in
// list order); the selection starts empty.
void fillBotViews(QTreeView* view, StoreRowsModel* rows, const std::vector<torvik::BotRecord>& bots,
                  std::vector<int> listed);
// The team page's columns in the file's order.
void fillTeamViews(QTreeView* view, StoreRowsModel* rows, const std::vector<torvik::TeamRecord>& teams);

// The name list's selection, row by row.
bool isRowSelected(const QListView* names, int row);
void setRowSelected(QListView* names, int row, bool selected);
int selectedRowCount(const QListView* names);
// The first column's texts of the selected rows, in list order.
QStringList selectedRowTexts(const QListView* names);

// Ticks row i of the model exactly when row i of the name list is selected.
void markSelectedRows(StoreRowsModel* rows, const QListView* names);

// A double click takes a row in or out of the selection: the report view
// shows it by its tick, the name list by its highlight.
void toggleMarkedRow(StoreRowsModel* rows, QListView* names, int row);

// Left double clicks anywhere in a report view, on a row or not, and right
// presses: the pages act on the row last clicked, not on the one under the
// pointer. Either handler may be empty.
void onViewMouse(QAbstractItemView* view, std::function<void()> doubleClick, std::function<void()> rightPress = {});
// Space on the view's current row does what a double click does, so a
// keyboard user can tick rows too; the handler gets that row.
void onViewSpace(QAbstractItemView* view, std::function<void(int row)> toggle);

} // namespace pages
