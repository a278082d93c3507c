#include "UserActions.h"

#include "media/Graphics.h"
#include "media/Pictures.h"
#include "platform/Controls.h"
#include "platform/Timer.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QColor>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSet>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>
#include <QTreeView>

namespace harness::ui {
namespace {

QString nameOf(QObject* o)
{
    return o->objectName().isEmpty() ? QString::fromLatin1(o->metaObject()->className()) : o->objectName();
}

QString kindError(QObject* o, const char* what)
{
    return QStringLiteral("%1 (%2) has no %3").arg(nameOf(o), QString::fromLatin1(o->metaObject()->className()),
                                                   QString::fromLatin1(what));
}

// "&Start" as the user reads it: "Start"; "&&" stays one "&".
QString withoutMnemonic(const QString& text)
{
    QString out;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('&') && i + 1 < text.size()) {
            ++i;
        }
        out.append(text[i]);
    }
    return out;
}

bool itemTextMatches(const QString& shown, const QString& wanted)
{
    return shown == wanted || withoutMnemonic(shown) == wanted;
}

// --- item views ---

bool rowHidden(QAbstractItemView* view, const QModelIndex& index)
{
    if (auto* tree = qobject_cast<QTreeView*>(view))
        return tree->isRowHidden(index.row(), index.parent());
    if (auto* list = qobject_cast<QListView*>(view))
        return list->isRowHidden(index.row());
    return false;
}

void collectIndexes(QAbstractItemView* view, const QModelIndex& parent, QList<QModelIndex>& out)
{
    QAbstractItemModel* model = view->model();
    const int rows = model->rowCount(parent);
    for (int r = 0; r < rows; ++r) {
        const QModelIndex index = model->index(r, 0, parent);
        if (rowHidden(view, index))
            continue;
        out.append(index);
        if (qobject_cast<QTreeView*>(view) && model->hasChildren(index))
            collectIndexes(view, index, out);
    }
}

QList<QModelIndex> viewIndexes(QAbstractItemView* view)
{
    QList<QModelIndex> out;
    if (view->model())
        collectIndexes(view, view->rootIndex(), out);
    return out;
}

QString indexText(const QModelIndex& index) { return index.data(Qt::DisplayRole).toString(); }

QString findIndex(QAbstractItemView* view, const QString& item, QModelIndex* found)
{
    const QList<QModelIndex> all = viewIndexes(view);
    for (const QModelIndex& i : all) {
        if (indexText(i) == item) {
            *found = i;
            return QString();
        }
    }
    QStringList texts;
    for (const QModelIndex& i : all)
        texts.append(indexText(i));
    return QStringLiteral("%1 has no row \"%2\" (rows: \"%3\")").arg(nameOf(view), item, texts.join(QStringLiteral("\", \"")));
}

bool indexSelected(QAbstractItemView* view, const QModelIndex& index)
{
    QItemSelectionModel* sel = view->selectionModel();
    return sel && (sel->isSelected(index) || sel->isRowSelected(index.row(), index.parent()));
}

// --- mouse and keys ---

ulong nextTimestamp()
{
    // Far apart, so that no two clicks of a scenario make a double click.
    static ulong stamp = 100000;
    stamp += 2000;
    return stamp;
}

void sendMouse(QWidget* w, QEvent::Type type, QPoint pos, Qt::MouseButton button, Qt::MouseButtons buttons,
               Qt::KeyboardModifiers modifiers, ulong stamp)
{
    QMouseEvent event(type, pos, w->mapToGlobal(pos), button, buttons, modifiers,
                      QPointingDevice::primaryPointingDevice());
    event.setTimestamp(stamp);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QApplication::instance()->notify(w, &event);
}

// Press and release (twice for a double click), as the window system sends
// them; a right press also brings the context menu event the desktop sends.
// Any of these may open a modal form or delete the widget.
void mouseClick(QWidget* w, QPoint pos, bool right, bool twice, Qt::KeyboardModifiers modifiers = {})
{
    const Qt::MouseButton button = right ? Qt::RightButton : Qt::LeftButton;
    QPointer<QWidget> guard(w);
    const ulong stamp = nextTimestamp();
    sendMouse(w, QEvent::MouseButtonPress, pos, button, button, modifiers, stamp);
    if (right && guard) {
        QContextMenuEvent menuEvent(QContextMenuEvent::Mouse, pos, w->mapToGlobal(pos), modifiers);
        QSpontaneKeyEvent::setSpontaneous(&menuEvent);
        QApplication::instance()->notify(w, &menuEvent);
    }
    if (guard)
        sendMouse(w, QEvent::MouseButtonRelease, pos, button, Qt::NoButton, modifiers, stamp + 1);
    if (!twice)
        return;
    if (guard)
        sendMouse(w, QEvent::MouseButtonDblClick, pos, button, button, modifiers, stamp + 2);
    if (guard)
        sendMouse(w, QEvent::MouseButtonRelease, pos, button, Qt::NoButton, modifiers, stamp + 3);
}

QString needVisible(QWidget* w)
{
    if (!w->isVisible())
        return QStringLiteral("%1 isn't visible: a user can't reach it").arg(nameOf(w));
    return QString();
}

QString clickIndex(QAbstractItemView* view, const QModelIndex& index, bool right, bool twice,
                   Qt::KeyboardModifiers modifiers = {})
{
    if (QString e = needVisible(view); !e.isEmpty())
        return e;
    view->scrollTo(index);
    QRect rect = view->visualRect(index);
    if (rect.isEmpty()) {
        view->doItemsLayout();
        view->scrollTo(index);
        rect = view->visualRect(index);
    }
    const QRect shown = rect.intersected(view->viewport()->rect());
    if (shown.isEmpty())
        return QStringLiteral("row \"%1\" of %2 isn't on screen").arg(indexText(index), nameOf(view));
    mouseClick(view->viewport(), shown.center(), right, twice, modifiers);
    return QString();
}

int findTab(QTabWidget* tabs, const QString& item)
{
    for (int i = 0; i < tabs->count(); ++i) {
        if (itemTextMatches(tabs->tabText(i), item))
            return i;
    }
    return -1;
}

int findComboRow(QComboBox* combo, const QString& item)
{
    for (int i = 0; i < combo->count(); ++i) {
        if (combo->itemText(i) == item)
            return i;
    }
    return -1;
}

QAction* findMenuItem(QMenu* menu, const QString& item)
{
    const QList<QAction*> actions = menu->actions();
    for (QAction* a : actions) {
        if (!a->isSeparator() && a->isVisible() && itemTextMatches(a->text(), item))
            return a;
    }
    return nullptr;
}

QString missingItem(QObject* control, const QString& item)
{
    QStringList rows;
    readRows(control, &rows);
    return QStringLiteral("%1 has no item \"%2\" (items: \"%3\")").arg(nameOf(control), item, rows.join(QStringLiteral("\", \"")));
}

QString chooseComboRow(QComboBox* combo, const QString& item)
{
    if (!combo->isEnabled())
        return QStringLiteral("%1 is disabled: a user can't choose a row").arg(nameOf(combo));
    const int row = findComboRow(combo, item);
    if (row < 0) {
        if (combo->isEditable()) {
            combo->setEditText(item);
            return QString();
        }
        return missingItem(combo, item);
    }
    if (!(combo->model()->flags(combo->model()->index(row, combo->modelColumn(), combo->rootModelIndex())) &
          Qt::ItemIsEnabled))
        return QStringLiteral("row \"%1\" of %2 is disabled").arg(item, nameOf(combo));
    // The user's choice: the index moves, then activated fires even when
    // the row was already the current one.
    QPointer<QComboBox> guard(combo);
    combo->setCurrentIndex(row);
    if (guard)
        emit combo->activated(row);
    if (guard)
        emit combo->textActivated(combo->itemText(row));
    return QString();
}

QString clickTab(QTabWidget* tabs, const QString& item, bool right, bool twice)
{
    const int i = findTab(tabs, item);
    if (i < 0)
        return missingItem(tabs, item);
    if (QString e = needVisible(tabs); !e.isEmpty())
        return e;
    QTabBar* bar = tabs->tabBar();
    mouseClick(bar, bar->tabRect(i).center(), right, twice);
    return QString();
}

QString clickMenuItem(QMenu* menu, const QString& item, bool right, bool twice)
{
    if (right || twice)
        return QStringLiteral("menu items take single left clicks");
    QAction* action = findMenuItem(menu, item);
    if (!action)
        return missingItem(menu, item);
    // A disabled item ignores the click and the menu stays open, as for a user.
    if (!action->isEnabled())
        return QString();
    // Choosing with the keyboard triggers the item through the menu itself,
    // so QMenu::exec returns it and its triggered signal fires.
    menu->setActiveAction(action);
    QTest::keyClick(menu, Qt::Key_Return);
    return QString();
}

QWidget* keyTarget(QObject* control)
{
    auto* w = qobject_cast<QWidget*>(control);
    if (!w)
        return nullptr;
    if (auto* combo = qobject_cast<QComboBox*>(w); combo && combo->lineEdit())
        return combo->lineEdit();
    if (w->isWindow() && !qobject_cast<QMenu*>(w) && w->focusWidget())
        return w->focusWidget();
    return w;
}

} // namespace

std::optional<bool> parseBool(const QString& word)
{
    const QString w = word.toLower();
    if (w == QLatin1String("yes") || w == QLatin1String("1") || w == QLatin1String("true"))
        return true;
    if (w == QLatin1String("no") || w == QLatin1String("0") || w == QLatin1String("false"))
        return false;
    return std::nullopt;
}

QWidget* findForm(const QString& name)
{
    QWidget* hidden = nullptr;
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget* w : all) {
        if (w->objectName() != name)
            continue;
        if (w->isVisible())
            return w;
        if (!hidden)
            hidden = w;
    }
    return hidden;
}

QObject* findControl(QWidget* form, const QString& name)
{
    return form->findChild<QObject*>(name);
}

QMenu* openPopup() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

QWidget* openModalOrPopup()
{
    if (QWidget* p = QApplication::activePopupWidget())
        return p;
    return QApplication::activeModalWidget();
}

QString readCaption(QObject* c, QString* found)
{
    if (auto* w = qobject_cast<QWidget*>(c); w && w->isWindow() && !qobject_cast<QMenu*>(w))
        *found = w->windowTitle();
    else if (auto* b = qobject_cast<QAbstractButton*>(c))
        *found = b->text();
    else if (auto* l = qobject_cast<QLabel*>(c))
        *found = l->text();
    else if (auto* g = qobject_cast<QGroupBox*>(c))
        *found = g->title();
    else if (auto* a = qobject_cast<QAction*>(c))
        *found = a->text();
    else if (auto* m = qobject_cast<QMenu*>(c))
        *found = m->title();
    else if (auto* t = qobject_cast<QTabWidget*>(c))
        *found = t->tabText(t->currentIndex());
    else
        return kindError(c, "caption");
    return QString();
}

QString readText(QObject* c, QString* found)
{
    if (auto* e = qobject_cast<QLineEdit*>(c))
        *found = e->text();
    else if (auto* p = qobject_cast<QPlainTextEdit*>(c))
        *found = p->toPlainText();
    else if (auto* t = qobject_cast<QTextEdit*>(c))
        *found = t->toPlainText();
    else if (auto* combo = qobject_cast<QComboBox*>(c))
        *found = combo->currentText();
    else if (auto* s = qobject_cast<QAbstractSpinBox*>(c))
        *found = s->text();
    else if (auto* f = qobject_cast<platform::FolderChooser*>(c))
        *found = f->path();
    else if (auto* v = qobject_cast<QAbstractItemView*>(c))
        *found = v->currentIndex().isValid() ? indexText(v->currentIndex().siblingAtColumn(0)) : QString();
    else
        return readCaption(c, found).isEmpty() ? QString() : kindError(c, "text");
    return QString();
}

QString readValue(QObject* c, QString* found)
{
    if (auto* check = qobject_cast<QCheckBox*>(c)) {
        *found = QString::number(int(check->checkState() == Qt::Checked ? 1
                                     : check->checkState() == Qt::PartiallyChecked ? 2 : 0));
    } else if (auto* b = qobject_cast<QAbstractButton*>(c)) {
        *found = b->isChecked() ? QStringLiteral("true") : QStringLiteral("false");
    } else if (auto* slider = qobject_cast<QAbstractSlider*>(c)) {
        *found = QString::number(slider->value());
    } else if (auto* spin = qobject_cast<QSpinBox*>(c)) {
        *found = QString::number(spin->value());
    } else if (auto* dspin = qobject_cast<QDoubleSpinBox*>(c)) {
        *found = QString::number(dspin->value());
    } else if (auto* tabs = qobject_cast<QTabWidget*>(c)) {
        *found = QString::number(tabs->currentIndex());
    } else if (auto* a = qobject_cast<QAction*>(c)) {
        if (!a->isCheckable())
            return kindError(c, "value");
        *found = a->isChecked() ? QStringLiteral("true") : QStringLiteral("false");
    } else if (auto* t = qobject_cast<platform::Timer*>(c)) {
        *found = QString::number(t->interval());
    } else if (qobject_cast<QLineEdit*>(c) || qobject_cast<QPlainTextEdit*>(c) || qobject_cast<QTextEdit*>(c) ||
               qobject_cast<QComboBox*>(c) || qobject_cast<QAbstractItemView*>(c) || qobject_cast<QLabel*>(c)) {
        return readText(c, found);
    } else {
        const QMetaProperty user = c->metaObject()->userProperty();
        if (!user.isValid())
            return kindError(c, "value");
        *found = user.read(c).toString();
    }
    return QString();
}

QString readToolTip(QObject* c, QString* found)
{
    if (auto* w = qobject_cast<QWidget*>(c))
        *found = w->toolTip();
    else if (auto* a = qobject_cast<QAction*>(c))
        *found = a->toolTip();
    else
        return kindError(c, "tool tip");
    return QString();
}

QString readEnabled(QObject* c, bool* found)
{
    if (auto* w = qobject_cast<QWidget*>(c))
        *found = w->isEnabled();
    else if (auto* a = qobject_cast<QAction*>(c))
        *found = a->isEnabled();
    else if (auto* t = qobject_cast<platform::Timer*>(c))
        *found = t->isEnabled();
    else
        return kindError(c, "enabled state");
    return QString();
}

bool isVisibleToUser(QObject* c)
{
    if (auto* w = qobject_cast<QWidget*>(c))
        return w->isVisible();
    if (auto* a = qobject_cast<QAction*>(c))
        return a->isVisible();
    return false;
}

QString readOnTop(QObject* c, bool* found)
{
    auto* w = qobject_cast<QWidget*>(c);
    if (!w)
        return kindError(c, "place on top");
    *found = false;
    if (!w->isVisible())
        return QString();
    if (w->isWindow()) {
        *found = true;
        return QString();
    }
    QWidget* window = w->window();
    QWidget* at = window->childAt(w->mapTo(window, w->rect().center()));
    *found = at == w || w->isAncestorOf(at);
    return QString();
}

QString readFocused(QObject* c, bool* found)
{
    auto* w = qobject_cast<QWidget*>(c);
    if (!w || w->isWindow())
        return kindError(c, "focus");
    *found = w->window()->focusWidget() == w;
    return QString();
}

QString readReadOnly(QObject* c, bool* found)
{
    if (auto* line = qobject_cast<QLineEdit*>(c))
        *found = line->isReadOnly();
    else if (auto* plain = qobject_cast<QPlainTextEdit*>(c))
        *found = plain->isReadOnly();
    else if (auto* text = qobject_cast<QTextEdit*>(c))
        *found = text->isReadOnly();
    else if (auto* spin = qobject_cast<QAbstractSpinBox*>(c))
        *found = spin->isReadOnly();
    else
        return kindError(c, "read-only");
    return QString();
}

QString readPicture(QObject* c, QString* found)
{
    auto* label = qobject_cast<QLabel*>(c);
    if (!label)
        return kindError(c, "picture");
    *found = label->property(media::kPictureKeyProperty).toString();
    return QString();
}

QString readPictureFile(QObject* c, QString* found)
{
    auto* label = qobject_cast<QLabel*>(c);
    if (!label)
        return kindError(c, "image-file");
    *found = label->property(media::kPictureFileProperty).toString();
    return QString();
}

namespace {

// What the box's inner area shows, as drawn on the screen.
QImage innerArea(QLabel* box)
{
    return box->grab(box->contentsRect()).toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

QString readPixel(QObject* c, double fx, double fy, QString* found)
{
    auto* label = qobject_cast<QLabel*>(c);
    if (!label)
        return kindError(c, "pixel");
    const QImage area = innerArea(label);
    if (area.isNull())
        return QStringLiteral("an empty picture box");
    const int x = qBound(0, int(fx * area.width()), area.width() - 1);
    const int y = qBound(0, int(fy * area.height()), area.height() - 1);
    *found = QColor(area.pixel(x, y)).name().toUpper();
    return QString();
}

QString readBlank(QObject* c, bool* found)
{
    auto* label = qobject_cast<QLabel*>(c);
    if (!label)
        return kindError(c, "blank");
    const QImage area = innerArea(label);
    *found = true;
    for (int y = 0; y < area.height() && *found; ++y)
        for (int x = 0; x < area.width(); ++x)
            if (area.pixel(x, y) != area.pixel(0, 0)) {
                *found = false;
                break;
            }
    return QString();
}

QString readRows(QObject* c, QStringList* found)
{
    found->clear();
    if (auto* v = qobject_cast<QAbstractItemView*>(c)) {
        const QList<QModelIndex> all = viewIndexes(v);
        for (const QModelIndex& i : all)
            found->append(indexText(i));
    } else if (auto* combo = qobject_cast<QComboBox*>(c)) {
        for (int i = 0; i < combo->count(); ++i)
            found->append(combo->itemText(i));
    } else if (auto* tabs = qobject_cast<QTabWidget*>(c)) {
        for (int i = 0; i < tabs->count(); ++i)
            found->append(tabs->tabText(i));
    } else if (auto* menu = qobject_cast<QMenu*>(c)) {
        const QList<QAction*> actions = menu->actions();
        for (QAction* a : actions) {
            if (!a->isSeparator() && a->isVisible())
                found->append(a->text());
        }
    } else {
        return kindError(c, "rows");
    }
    return QString();
}

QString readSelectedRows(QObject* c, QStringList* found)
{
    found->clear();
    if (auto* v = qobject_cast<QAbstractItemView*>(c)) {
        const QList<QModelIndex> all = viewIndexes(v);
        for (const QModelIndex& i : all) {
            if (indexSelected(v, i))
                found->append(indexText(i));
        }
    } else if (auto* combo = qobject_cast<QComboBox*>(c)) {
        if (combo->currentIndex() >= 0)
            found->append(combo->currentText());
    } else if (auto* tabs = qobject_cast<QTabWidget*>(c)) {
        if (tabs->currentIndex() >= 0)
            found->append(tabs->tabText(tabs->currentIndex()));
    } else if (auto* menu = qobject_cast<QMenu*>(c)) {
        if (menu->activeAction())
            found->append(menu->activeAction()->text());
    } else {
        return kindError(c, "rows");
    }
    return QString();
}

QString readItemEnabled(QObject* c, const QString& item, bool* found)
{
    if (auto* v = qobject_cast<QAbstractItemView*>(c)) {
        QModelIndex index;
        if (QString e = findIndex(v, item, &index); !e.isEmpty())
            return e;
        *found = (index.flags() & Qt::ItemIsEnabled) != 0;
    } else if (auto* combo = qobject_cast<QComboBox*>(c)) {
        const int row = findComboRow(combo, item);
        if (row < 0)
            return missingItem(c, item);
        *found = (combo->model()->flags(combo->model()->index(row, combo->modelColumn(), combo->rootModelIndex())) &
                  Qt::ItemIsEnabled) != 0;
    } else if (auto* tabs = qobject_cast<QTabWidget*>(c)) {
        const int i = findTab(tabs, item);
        if (i < 0)
            return missingItem(c, item);
        *found = tabs->isTabEnabled(i);
    } else if (auto* menu = qobject_cast<QMenu*>(c)) {
        QAction* a = findMenuItem(menu, item);
        if (!a)
            return missingItem(c, item);
        *found = a->isEnabled();
    } else {
        return kindError(c, "rows");
    }
    return QString();
}

QString readMarkedRows(QObject* c, QStringList* found)
{
    found->clear();
    auto* v = qobject_cast<QAbstractItemView*>(c);
    if (!v)
        return kindError(c, "rows");
    const QList<QModelIndex> all = viewIndexes(v);
    for (const QModelIndex& i : all) {
        const QVariant shown = i.data(Qt::DecorationRole);
        bool marked = false;
        if (shown.canConvert<QIcon>() && shown.typeId() == QMetaType::QIcon)
            marked = !shown.value<QIcon>().isNull();
        else if (shown.typeId() == QMetaType::QPixmap)
            marked = !shown.value<QPixmap>().isNull();
        else if (shown.typeId() == QMetaType::QImage)
            marked = !shown.value<QImage>().isNull();
        else
            marked = shown.isValid() && !shown.isNull();
        if (marked)
            found->append(indexText(i));
    }
    return QString();
}

QString readUniformRows(QObject* c, bool* found)
{
    auto* v = qobject_cast<QAbstractItemView*>(c);
    if (!v)
        return kindError(c, "rows");
    bool promised = false;
    if (auto* tree = qobject_cast<QTreeView*>(v))
        promised = tree->uniformRowHeights();
    else if (auto* list = qobject_cast<QListView*>(v))
        promised = list->uniformItemSizes();
    v->doItemsLayout();
    QSet<int> heights;
    const QList<QModelIndex> all = viewIndexes(v);
    for (const QModelIndex& i : all)
        heights.insert(v->visualRect(i).height());
    *found = promised && heights.size() <= 1;
    return QString();
}

QString readHeaders(QObject* c, QStringList* found)
{
    found->clear();
    auto* v = qobject_cast<QAbstractItemView*>(c);
    if (!v || !v->model())
        return kindError(c, "headers");
    const int columns = v->model()->columnCount(v->rootIndex());
    for (int col = 0; col < columns; ++col)
        found->append(v->model()->headerData(col, Qt::Horizontal, Qt::DisplayRole).toString());
    return QString();
}

QString readCells(QObject* c, const QString& item, QStringList* found)
{
    auto* v = qobject_cast<QAbstractItemView*>(c);
    if (!v)
        return kindError(c, "cells");
    QModelIndex index;
    if (QString e = findIndex(v, item, &index); !e.isEmpty())
        return e;
    found->clear();
    const int columns = v->model()->columnCount(index.parent());
    for (int col = 0; col < columns; ++col)
        found->append(indexText(index.siblingAtColumn(col)));
    return QString();
}

QString readImage(QObject* c, const QString& item, QString* found)
{
    auto* v = qobject_cast<QTreeView*>(c);
    if (!v)
        return kindError(c, "image");
    QModelIndex index;
    if (QString e = findIndex(v, item, &index); !e.isEmpty())
        return e;
    const QVariant shown = index.data(Qt::UserRole + 1);
    *found = (shown.isValid() ? shown : index.data(Qt::UserRole)).toString();
    return QString();
}

QString readExpanded(QObject* c, const QString& item, bool* found)
{
    auto* v = qobject_cast<QTreeView*>(c);
    if (!v)
        return kindError(c, "expanded");
    QModelIndex index;
    if (QString e = findIndex(v, item, &index); !e.isEmpty())
        return e;
    *found = v->isExpanded(index);
    return QString();
}

QString click(QObject* c, const QString& item, bool right, bool twice)
{
    if (!item.isEmpty()) {
        if (auto* v = qobject_cast<QAbstractItemView*>(c)) {
            QModelIndex index;
            if (QString e = findIndex(v, item, &index); !e.isEmpty())
                return e;
            return clickIndex(v, index, right, twice);
        }
        if (auto* tabs = qobject_cast<QTabWidget*>(c))
            return clickTab(tabs, item, right, twice);
        if (auto* menu = qobject_cast<QMenu*>(c))
            return clickMenuItem(menu, item, right, twice);
        if (auto* combo = qobject_cast<QComboBox*>(c)) {
            if (right || twice)
                return QStringLiteral("combo box rows take single left clicks");
            return chooseComboRow(combo, item);
        }
        return QStringLiteral("%1 has no items to click").arg(nameOf(c));
    }
    if (auto* a = qobject_cast<QAction*>(c)) {
        if (right || twice)
            return QStringLiteral("menu items take single left clicks");
        if (a->isEnabled())
            a->trigger();
        return QString();
    }
    auto* w = qobject_cast<QWidget*>(c);
    if (!w)
        return QStringLiteral("%1 can't be clicked").arg(nameOf(c));
    if (w->isWindow())
        return QStringLiteral("%1 is a form; click one of its controls").arg(nameOf(c));
    // A plain click on a button is the button's own click, which works for
    // the tool buttons that only show under the pointer too. A disabled
    // button ignores it, as it ignores the user.
    if (auto* b = qobject_cast<QAbstractButton*>(w); b && !right && !twice) {
        b->click();
        return QString();
    }
    if (QString e = needVisible(w); !e.isEmpty())
        return e;
    // A list or report view is clicked in its rows' area, below any header.
    if (auto* view = qobject_cast<QAbstractItemView*>(w)) {
        QWidget* area = view->viewport();
        mouseClick(area, area->rect().center(), right, twice);
        return QString();
    }
    mouseClick(w, w->rect().center(), right, twice);
    return QString();
}

QString setValue(QObject* c, const QString& value)
{
    auto* w = qobject_cast<QWidget*>(c);
    if (!w)
        return QStringLiteral("%1 takes no value from a user").arg(nameOf(c));
    if (!w->isEnabled())
        return QStringLiteral("%1 is disabled: a user can't change it").arg(nameOf(c));
    if (auto* check = qobject_cast<QCheckBox*>(w)) {
        if (value == QLatin1String("0"))
            check->setCheckState(Qt::Unchecked);
        else if (value == QLatin1String("1"))
            check->setCheckState(Qt::Checked);
        else if (value == QLatin1String("2") && check->isTristate())
            check->setCheckState(Qt::PartiallyChecked);
        else
            return QStringLiteral("a check box takes 0 or 1, not \"%1\"").arg(value);
    } else if (auto* b = qobject_cast<QAbstractButton*>(w)) {
        const std::optional<bool> on = parseBool(value);
        if (!b->isCheckable() || !on)
            return QStringLiteral("%1 takes true or false, not \"%2\"").arg(nameOf(c), value);
        b->setChecked(*on);
    } else if (auto* slider = qobject_cast<QAbstractSlider*>(w)) {
        bool ok = false;
        const int n = value.toInt(&ok);
        if (!ok || n < slider->minimum() || n > slider->maximum())
            return QStringLiteral("%1 takes a number from %2 to %3, not \"%4\"")
                .arg(nameOf(c)).arg(slider->minimum()).arg(slider->maximum()).arg(value);
        slider->setValue(n);
    } else if (auto* spin = qobject_cast<QSpinBox*>(w)) {
        bool ok = false;
        const int n = value.toInt(&ok);
        if (!ok || n < spin->minimum() || n > spin->maximum())
            return QStringLiteral("%1 takes a number from %2 to %3, not \"%4\"")
                .arg(nameOf(c)).arg(spin->minimum()).arg(spin->maximum()).arg(value);
        spin->setValue(n);
    } else if (auto* combo = qobject_cast<QComboBox*>(w)) {
        return chooseComboRow(combo, value);
    } else if (auto* line = qobject_cast<QLineEdit*>(w)) {
        if (line->isReadOnly())
            return QStringLiteral("%1 is read-only: a user can't change it").arg(nameOf(c));
        line->setText(value);
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(w)) {
        if (plain->isReadOnly())
            return QStringLiteral("%1 is read-only: a user can't change it").arg(nameOf(c));
        plain->setPlainText(value);
    } else if (auto* rich = qobject_cast<QTextEdit*>(w)) {
        if (rich->isReadOnly())
            return QStringLiteral("%1 is read-only: a user can't change it").arg(nameOf(c));
        rich->setPlainText(value);
    } else if (auto* tabs = qobject_cast<QTabWidget*>(w)) {
        const int i = findTab(tabs, value);
        if (i < 0)
            return missingItem(c, value);
        if (!tabs->isTabEnabled(i))
            return QStringLiteral("tab \"%1\" of %2 is disabled").arg(value, nameOf(c));
        tabs->setCurrentIndex(i);
    } else {
        const QMetaProperty user = c->metaObject()->userProperty();
        if (!user.isValid() || !user.isWritable())
            return QStringLiteral("%1 takes no value from a user").arg(nameOf(c));
        if (!user.write(c, QVariant(value)))
            return QStringLiteral("%1 doesn't take \"%2\"").arg(nameOf(c), value);
    }
    return QString();
}

QString typeText(QObject* c, const QString& text)
{
    QWidget* w = keyTarget(c);
    if (!w)
        return QStringLiteral("%1 takes no keys").arg(nameOf(c));
    if (QString e = needVisible(w); !e.isEmpty())
        return e;
    w->setFocus(Qt::OtherFocusReason);
    QPointer<QWidget> guard(w);
    for (const QChar ch : text) {
        if (!guard)
            break;
        if (ch == QLatin1Char('\n') || ch == QLatin1Char('\r'))
            QTest::keyClick(w, Qt::Key_Return);
        else if (ch == QLatin1Char('\t'))
            QTest::keyClick(w, Qt::Key_Tab);
        else if (ch.unicode() < 0x80)
            QTest::keyClicks(w, QString(ch));
        else // a key of a national keyboard: no key code, only its text
            QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(ch), Qt::NoModifier);
    }
    return QString();
}

QString pressKey(QObject* c, const QString& key)
{
    QWidget* w = keyTarget(c);
    if (!w)
        return QStringLiteral("%1 takes no keys").arg(nameOf(c));
    if (QString e = needVisible(w); !e.isEmpty())
        return e;
    QString name = key;
    // "Enter" is the big key of the main keyboard, which Qt calls Return.
    if (name.compare(QLatin1String("Enter"), Qt::CaseInsensitive) == 0)
        name = QStringLiteral("Return");
    const QKeySequence seq = QKeySequence::fromString(name, QKeySequence::PortableText);
    if (seq.count() != 1 || seq[0].key() == Qt::Key_unknown)
        return QStringLiteral("unknown key \"%1\"").arg(key);
    if (!qobject_cast<QMenu*>(w))
        w->setFocus(Qt::OtherFocusReason);
    QTest::keyClick(w, seq[0].key(), seq[0].keyboardModifiers());
    return QString();
}

QString selectItems(QObject* c, const QStringList& items, bool select)
{
    if (auto* combo = qobject_cast<QComboBox*>(c)) {
        if (!select || items.size() != 1)
            return QStringLiteral("a combo box has one row chosen; select it with one row text");
        return chooseComboRow(combo, items.first());
    }
    if (auto* tabs = qobject_cast<QTabWidget*>(c)) {
        if (!select || items.size() != 1)
            return QStringLiteral("a tab control shows one tab; select it with one caption");
        return clickTab(tabs, items.first(), false, false);
    }
    auto* v = qobject_cast<QAbstractItemView*>(c);
    if (!v)
        return QStringLiteral("%1 has no rows to select").arg(nameOf(c));
    QPointer<QAbstractItemView> guard(v);
    for (const QString& item : items) {
        if (!guard)
            return QStringLiteral("the list went away while rows were being selected");
        QModelIndex index;
        if (QString e = findIndex(v, item, &index); !e.isEmpty())
            return e;
        if (indexSelected(v, index) == select)
            continue;
        // Ctrl+click toggles one row in every selection mode that has rows
        // to toggle, leaving the others as they are.
        QPersistentModelIndex keep(index);
        if (QString e = clickIndex(v, index, false, false, Qt::ControlModifier); !e.isEmpty())
            return e;
        if (!guard || !keep.isValid())
            return QStringLiteral("the list changed while row \"%1\" was being clicked").arg(item);
        if (indexSelected(v, keep) != select)
            return QStringLiteral("a click on row \"%1\" of %2 didn't %3 it").arg(item, nameOf(c),
                                                                              select ? QStringLiteral("select")
                                                                                     : QStringLiteral("deselect"));
    }
    return QString();
}

} // namespace harness::ui
