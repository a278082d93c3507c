#pragma once
// What a user does to the controls of a form and what a user sees on them,
// for the scenario runner. Actions go through real input events wherever the
// control reacts to them, so the program's handlers run as they would for a
// user. Every function returns an empty string on success, or the reason it
// couldn't be done.
#include <QString>
#include <QStringList>

#include <optional>

class QMenu;
class QObject;
class QWidget;

namespace harness::ui {

// The top-level window with this object name; a visible one is preferred.
QWidget* findForm(const QString& name);
// A named child anywhere inside the form: a widget, an action or a timer.
QObject* findControl(QWidget* form, const QString& name);
// The pop-up menu now open, if any.
QMenu* openPopup();
// The modal form or pop-up menu a nested event loop may be waiting on.
QWidget* openModalOrPopup();

// --- what the user sees ---
QString readCaption(QObject* control, QString* found);
QString readText(QObject* control, QString* found);
QString readValue(QObject* control, QString* found);
QString readToolTip(QObject* control, QString* found);
QString readEnabled(QObject* control, bool* found);
bool isVisibleToUser(QObject* control);
// Visible and not covered at its centre by another control of its window.
QString readOnTop(QObject* control, bool* found);
// The control that keys typed into its form go to.
QString readFocused(QObject* control, bool* found);
QString readReadOnly(QObject* control, bool* found);
// The picture key an image control shows ("" when it shows none).
QString readPicture(QObject* control, QString* found);
// The file a game picture box shows ("" when it shows none).
QString readPictureFile(QObject* control, QString* found);
// The colour ("#rrggbb") the user sees at a point of the box's inner area,
// given as fractions of its width and height.
QString readPixel(QObject* control, double fx, double fy, QString* found);
// True when the box's inner area shows one colour throughout.
QString readBlank(QObject* control, bool* found);
// Rows of list, tree and report views (every item, depth first, first
// column), combo box rows, tab captions, menu items.
QString readRows(QObject* control, QStringList* found);
QString readSelectedRows(QObject* control, QStringList* found);
QString readItemEnabled(QObject* control, const QString& item, bool* found);
// Rows of a list, tree or report view that show an icon in their first
// column (a mark such as a tick), in order.
QString readMarkedRows(QObject* control, QStringList* found);
// True when every row of a list or report view is drawn at one height and
// the view takes that height from one row instead of measuring each.
QString readUniformRows(QObject* control, bool* found);
// Column headers of a tree or report view, in order.
QString readHeaders(QObject* control, QStringList* found);
// Every column of the row of a list, tree or report view.
QString readCells(QObject* control, const QString& item, QStringList* found);
// A tree node's image index (an open category's open image) and whether it is expanded.
QString readImage(QObject* control, const QString& item, QString* found);
QString readExpanded(QObject* control, const QString& item, bool* found);

// --- what the user does ---
// A click with a mouse button (Qt::LeftButton or Qt::RightButton); item
// names a row, a tab or a menu item, empty for the control itself.
QString click(QObject* control, const QString& item, bool right, bool twice);
QString setValue(QObject* control, const QString& value);
QString typeText(QObject* control, const QString& text);
QString pressKey(QObject* control, const QString& key);
QString selectItems(QObject* control, const QStringList& items, bool select);

// True for "yes"/"1"/"true", false for "no"/"0"/"false".
std::optional<bool> parseBool(const QString& word);

} // namespace harness::ui
