#pragma once
// The report views and name lists of the bot and team pages: their columns,
// their rows filled from the store, and the tick that marks a chosen row.
#include "bots/BotStore.h"

#include <QString>

#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

class QAbstractItemView;
class QListWidget;
class QListWidgetItem;
class QTreeWidget;
class QTreeWidgetItem;

namespace pages {

// The key of the tick in the pages' image list.
inline const QString kCheckKey = QStringLiteral("Check");

// The key of the icon a row carries; empty for none.
QString iconKey(const QTreeWidgetItem* item);
// Gives the row the icon of that key, or none for an empty key.
void setIconKey(QTreeWidgetItem* item, const QString& key);

// Headers with their widths in the form units the pages were laid out in.
void setReportColumns(QTreeWidget* view, std::initializer_list<std::pair<const char*, int>> columns);
// No rows and no columns.
void clearReportColumns(QTreeWidget* view);

// The bot page's two views: the nine columns, one row per listed bot (indexes
// into bots, in list order) and the same names in the name list. Both are
// emptied first.
void fillBotViews(QTreeWidget* view, QListWidget* names, const std::vector<torvik::BotRecord>& bots,
                  const std::vector<int>& listed);
// The team page's views in the file's order, and the names for the own-team box.
void fillTeamViews(QTreeWidget* view, QListWidget* names, const std::vector<torvik::TeamRecord>& teams);

// Ticks row i of the view exactly when row i of the name list is selected.
void markSelectedRows(QTreeWidget* view, const QListWidget* names);

// A double click takes a row in or out of the selection: the report view
// shows it by its tick, the name list by its highlight.
void toggleMarkedRow(QTreeWidgetItem* item, QListWidgetItem* row);

// Left double clicks anywhere in a report view, on a row or not, and right
// presses: the pages act on the row last clicked, not on the one under the
// pointer. Either handler may be empty.
void onViewMouse(QAbstractItemView* view, std::function<void()> doubleClick, std::function<void()> rightPress = {});

} // namespace pages
