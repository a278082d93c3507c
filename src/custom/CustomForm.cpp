#include "custom/CustomForm.h"

#include "command/Composer.h"
#include "custom/MenuForm.h"
#include "custom/NewFlagForm.h"
#include "custom/ScriptFile.h"
#include "datafile/DataFile.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/ProgramContext.h"

#include <QPointer>
#include "platform/Timer.h"

#include <QFile>
#include <QMenu>
#include <QPointer>
#include <QStyle>

namespace custom {
namespace {

// The tree's image indexes: a flag on or off, a category, an open category.
constexpr int kFlagOn = 1;
constexpr int kCategory = 2;
constexpr int kOpenCategory = 4;
constexpr int kFlagOff = 5;

enum FlagMode { NewMode, SubMode, EditMode };

int imageOf(const QTreeWidgetItem* item) { return item->data(0, Qt::UserRole).toInt(); }
bool isFlag(const QTreeWidgetItem* item) { return imageOf(item) == kFlagOn || imageOf(item) == kFlagOff; }
bool isCategory(const QTreeWidgetItem* item) { return imageOf(item) == kCategory || imageOf(item) == 3; }

int depthOf(const QTreeWidgetItem* item)
{
    int depth = 0;
    for (const QTreeWidgetItem* p = item->parent(); p; p = p->parent())
        ++depth;
    return depth;
}

// A flag's shadow: command{}value{}state:name.
struct Shadow {
    QString command, value, state, name;
};
Shadow splitShadow(const QString& text)
{
    Shadow s;
    const qsizetype a = text.indexOf(QLatin1Char('{'));
    s.command = text.left(a);
    const qsizetype b = text.indexOf(QLatin1Char('{'), a + 2);
    s.value = text.mid(a + 2, b - a - 2);
    const qsizetype c = text.indexOf(QLatin1Char(':'), b + 2);
    s.state = text.mid(b + 2, c - b - 2);
    s.name = text.mid(c + 1);
    return s;
}
QString shadowText(const QString& command, const QString& value, bool on, const QString& name)
{
    return command + QStringLiteral("{}") + value + QStringLiteral("{}") + (on ? QLatin1Char('1') : QLatin1Char('0'))
           + QLatin1Char(':') + name;
}

QString scriptPath() { return platform::programContext.inProgramFolder(QStringLiteral("Script.TK")); }

} // namespace

CustomForm::CustomForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    Menu = new MenuForm(this);
    Timer1 = new platform::Timer(this, 10, false);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer2 = new platform::Timer(this, 10, false);
    Timer2->setObjectName(QStringLiteral("Timer2"));
    connect(Timer1, &platform::Timer::timeout, this, &CustomForm::renameLastCategory);
    connect(Timer2, &platform::Timer::timeout, this, &CustomForm::renameOlderFlag);

    connect(ui.Command1, &QPushButton::clicked, this, &CustomForm::accept);
    connect(ui.TreeView2, &QTreeWidget::itemClicked, this, &CustomForm::toggleFlag);
    connect(ui.TreeView2, &QTreeWidget::itemExpanded, this, &CustomForm::showImage);
    connect(ui.TreeView2, &QTreeWidget::itemCollapsed, this, &CustomForm::showImage);
    connect(ui.TreeView2, &QTreeWidget::itemSelectionChanged, this, &CustomForm::updateMenu);
    connect(ui.TreeView2, &QTreeWidget::customContextMenuRequested, this, &CustomForm::popUpMenu);
    connect(ui.TreeView2, &QTreeWidget::itemChanged, this, &CustomForm::takeEditedName);

    connect(Menu->AddCatergory, &QAction::triggered, this, [this] { addCategory(false); });
    connect(Menu->AddSubCatergory, &QAction::triggered, this, [this] { addCategory(true); });
    connect(Menu->AddFlag, &QAction::triggered, this, [this] { openFlagForm(NewMode); });
    connect(Menu->AddSubFlag, &QAction::triggered, this, [this] { openFlagForm(SubMode); });
    connect(Menu->Edit, &QAction::triggered, this, &CustomForm::editSelected);
    connect(Menu->Remove, &QAction::triggered, this, &CustomForm::removeSelected);
    connect(Menu->ExpandAll, &QAction::triggered, this, [this] { setAllExpanded(true); });
    connect(Menu->CloseAll, &QAction::triggered, this, [this] { setAllExpanded(false); });
    connect(Menu->Refresh, &QAction::triggered, this, [this] {
        readScript();
        updateMenu();
    });
    connect(Menu->ClearAll, &QAction::triggered, this, &CustomForm::eraseAll);
    connect(Menu->SaveScript, &QAction::triggered, this, &CustomForm::saveScript);

    readScript();
    updateMenu();
    // The tree is the user's work: it is kept when the program ends, as when
    // the form is closed. A Script.TK restored from a backup just before is
    // left as restored.
    platform::programContext.atEnd.push_back([self = QPointer<CustomForm>(this)] {
        if (self)
            self->saveScript();
    });
}

QList<torvik::CustomOption> CustomForm::commandOptions() const
{
    QList<torvik::CustomOption> options;
    for (qsizetype i = 0; i < shown_.size(); ++i)
        options << torvik::CustomOption{imageOf(shown_[i]) == kFlagOn, shadow_[i]->text(0)};
    return options;
}

bool CustomForm::hasNodes() const { return !shown_.isEmpty(); }

QList<datafile::FlagState> CustomForm::flagStates() const
{
    QList<datafile::FlagState> states;
    for (const QTreeWidgetItem* node : shown_)
        if (isFlag(node))
            states << datafile::FlagState{node->text(0), imageOf(node) == kFlagOn};
    return states;
}

// A category keeps its image: only a flag has a state.
void CustomForm::applyFlagStates(const QList<datafile::FlagState>& states)
{
    for (const datafile::FlagState& state : states) {
        for (QTreeWidgetItem* node : shown_) {
            if (node->text(0) != state.name)
                continue;
            if (isFlag(node)) {
                node->setData(0, Qt::UserRole, state.on ? kFlagOn : kFlagOff);
                showImage(node);
            }
            break;
        }
    }
}

void CustomForm::clearTrees()
{
    quiet_ = true;
    ui.TreeView2->clear();
    ui.TreeView1->clear();
    shown_.clear();
    shadow_.clear();
    quiet_ = false;
}

QTreeWidgetItem* CustomForm::addNode(QTreeWidgetItem* parent, const QString& name, int image, const QString& shadowText)
{
    quiet_ = true;
    QTreeWidgetItem* shadowParent = parent ? shadow_[indexOf(parent)] : nullptr;
    auto* shown = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(ui.TreeView2);
    auto* shadow = shadowParent ? new QTreeWidgetItem(shadowParent) : new QTreeWidgetItem(ui.TreeView1);
    shown->setText(0, name);
    shown->setData(0, Qt::UserRole, image);
    // Only a category is renamed in place: a flag's shadow holds more than its name.
    if (image == kCategory)
        shown->setFlags(shown->flags() | Qt::ItemIsEditable);
    shadow->setText(0, shadowText);
    shown_ << shown;
    shadow_ << shadow;
    showImage(shown);
    quiet_ = false;
    return shown;
}

qsizetype CustomForm::indexOf(const QTreeWidgetItem* shown) const
{
    return shown_.indexOf(const_cast<QTreeWidgetItem*>(shown));
}

void CustomForm::readScript()
{
    clearTrees();
    partlyRead_ = false;
    const QString path = platform::resolvePath(scriptPath());
    QByteArray bytes;
    if (path.isEmpty() || !platform::readFile(path, bytes))
        return;
    bool whole = false;
    const QList<ScriptNode> nodes = custom::readScript(bytes, &whole);
    partlyRead_ = !whole;
    for (const ScriptNode& node : nodes) {
        QTreeWidgetItem* parent = nullptr;
        for (QTreeWidgetItem* item : shown_)
            if (isCategory(item) && item->text(0).compare(node.parent, Qt::CaseInsensitive) == 0)
                parent = item;
        if (node.flag)
            addNode(parent, node.name, node.defaultOn ? kFlagOn : kFlagOff,
                    shadowText(node.command, node.value, node.defaultOn, node.name));
        else
            addNode(parent, node.name, kCategory, node.name);
    }
}

// The state written is the shadow's, the default the flag was made with: a
// click on a flag changes the game of today, not the script.
bool CustomForm::saveScript()
{
    QList<ScriptNode> nodes;
    // A category left without a name (its edit cancelled) can't be written:
    // its line would end the next reading. It stays out, with what is below it.
    QList<const QTreeWidgetItem*> unnamed;
    for (qsizetype i = 0; i < shown_.size(); ++i) {
        const QTreeWidgetItem* node = shown_[i];
        if (node->text(0).isEmpty() || unnamed.contains(node->parent())) {
            unnamed << node;
            continue;
        }
        ScriptNode n;
        n.name = node->text(0);
        n.depth = depthOf(node);
        n.parent = node->parent() ? node->parent()->text(0) : QString();
        if (isFlag(node)) {
            const Shadow s = splitShadow(shadow_[i]->text(0));
            n.flag = true;
            n.command = s.command;
            n.value = s.value;
            n.defaultOn = s.state == QLatin1String("1");
        } else if (!isCategory(node)) {
            continue;
        }
        nodes << n;
    }
    const QString path = scriptPath();
    const QString old = platform::resolvePath(path);
    // Saving writes only what the tree holds: the lines of a damaged script
    // that couldn't be read go to a copy first, or they would be lost.
    if (partlyRead_ && !old.isEmpty()) {
        const QString kept = platform::programContext.inProgramFolder(QStringLiteral("Script.old"));
        if (!platform::copyFile(old, kept)) {
            platform::beep();
            platform::msgBox(QStringLiteral("Couldn't keep the damaged Script.TK as %1! It stays as it is.").arg(kept));
            return false;
        }
        platform::msgBox(QStringLiteral("Script.TK had lines that couldn't be read. The old file is kept as %1.")
                             .arg(kept),
                         platform::Buttons::Ok, platform::Icon::Exclamation);
        partlyRead_ = false;
    }
    if (!platform::writeFile(path, writeScript(nodes))) {
        platform::beep();
        platform::msgBox(QStringLiteral("Couldn't save %1!").arg(path));
        return false;
    }
    if (!old.isEmpty() && old != path)
        QFile::remove(old);
    return true;
}

void CustomForm::done(int result)
{
    saveScript();
    QDialog::done(result);
}

void CustomForm::updateMenu()
{
    const bool empty = shown_.isEmpty();
    for (QAction* a : {Menu->AddSubCatergory, Menu->AddSubFlag, Menu->Edit, Menu->Remove})
        a->setEnabled(!empty);
    const QTreeWidgetItem* selected = ui.TreeView2->selectedItems().value(0);
    if (!selected) {
        Menu->Edit->setEnabled(false);
        Menu->Remove->setEnabled(false);
    } else if (isFlag(selected)) {
        Menu->AddSubCatergory->setEnabled(false);
        Menu->AddSubFlag->setEnabled(false);
    } else if (isCategory(selected)) {
        for (QAction* a : {Menu->AddSubCatergory, Menu->AddSubFlag, Menu->Edit})
            a->setEnabled(true);
    }
}

void CustomForm::collapseEmptyCategories()
{
    for (QTreeWidgetItem* node : shown_)
        if (node->isExpanded() && node->childCount() == 0)
            node->setExpanded(false);
}

void CustomForm::toggleFlag(QTreeWidgetItem* item)
{
    if (!isFlag(item))
        return;
    quiet_ = true;
    item->setData(0, Qt::UserRole, imageOf(item) == kFlagOn ? kFlagOff : kFlagOn);
    showImage(item);
    quiet_ = false;
}

// An open category shows its open picture; its own image stays a category's.
void CustomForm::showImage(QTreeWidgetItem* item)
{
    const bool quiet = quiet_;
    quiet_ = true;
    QStyle::StandardPixmap picture = QStyle::SP_DirClosedIcon;
    if (imageOf(item) == kFlagOn)
        picture = QStyle::SP_DialogApplyButton;
    else if (imageOf(item) == kFlagOff)
        picture = QStyle::SP_DialogCancelButton;
    else if (item->isExpanded())
        picture = QStyle::SP_DirOpenIcon;
    item->setIcon(0, style()->standardIcon(picture));
    item->setData(0, Qt::UserRole + 1, isCategory(item) && item->isExpanded() ? kOpenCategory : imageOf(item));
    quiet_ = quiet;
}

void CustomForm::popUpMenu(const QPoint& at)
{
    updateMenu();
    Menu->menudm->exec(ui.TreeView2->viewport()->mapToGlobal(at));
}

void CustomForm::addCategory(bool below)
{
    QTreeWidgetItem* parent = nullptr;
    if (below) {
        parent = ui.TreeView2->selectedItems().value(0);
        if (!parent || !isCategory(parent)) {
            platform::msgBox(QStringLiteral("Choose the category to add it to first!"));
            return;
        }
    }
    QTreeWidgetItem* node = addNode(parent, QString(), kCategory, QString());
    if (parent)
        parent->setExpanded(true);
    ui.TreeView2->setCurrentItem(node);
    newNode_ = true;
    updateMenu();
    ui.TreeView2->editItem(node);
}

// The user's rename of a category: a name in use is refused with the
// message, and the timer then renames the last node.
void CustomForm::takeEditedName(QTreeWidgetItem* item)
{
    if (quiet_)
        return;
    const QString name = item->text(0);
    for (const QTreeWidgetItem* node : shown_) {
        if (node != item && node->text(0).compare(name, Qt::CaseInsensitive) == 0) {
            platform::msgBox(QStringLiteral("Your not allowed to have duplicate names!"), platform::Buttons::Ok,
                             platform::Icon::Exclamation);
            newNode_ = false;
            Timer1->setEnabled(true);
            return;
        }
    }
    QTreeWidgetItem* shadow = newNode_ ? shadow_.last() : shadow_.value(indexOf(item));
    newNode_ = false;
    if (shadow)
        shadow->setText(0, name);
}

void CustomForm::renameLastCategory()
{
    Timer1->setEnabled(false);
    if (shown_.isEmpty())
        return;
    quiet_ = true;
    ui.TreeView2->setCurrentItem(shown_.last());
    shown_.last()->setText(0, QLatin1Char('1') + shown_.last()->text(0));
    shadow_.last()->setText(0, shown_.last()->text(0));
    quiet_ = false;
    updateMenu();
    checkLastCategoryName();
}

void CustomForm::checkLastCategoryName()
{
    const QString last = shown_.isEmpty() ? QString() : shown_.last()->text(0).toUpper();
    for (qsizetype i = 0; i + 1 < shown_.size(); ++i) {
        if (shown_[i]->text(0).toUpper() == last) {
            Timer1->setEnabled(true);
            return;
        }
    }
}

// Of two flags of one name the older one changes, while the new flag's
// shadow takes the changed name: the crossing is the way it has always been.
void CustomForm::checkLastFlagName()
{
    const QString last = shown_.isEmpty() ? QString() : shown_.last()->text(0).toUpper();
    for (qsizetype i = 0; i + 1 < shown_.size(); ++i) {
        if (shown_[i]->text(0).toUpper() == last) {
            ui.TreeView2->setCurrentItem(shown_[i]);
            Timer2->setEnabled(true);
            return;
        }
    }
}

void CustomForm::renameOlderFlag()
{
    Timer2->setEnabled(false);
    QTreeWidgetItem* selected = ui.TreeView2->currentItem();
    if (!selected || shadow_.isEmpty())
        return;
    quiet_ = true;
    selected->setText(0, QLatin1Char('1') + selected->text(0));
    QTreeWidgetItem* shadow = shadow_.last();
    const QString text = shadow->text(0);
    shadow->setText(0, text.left(text.indexOf(QLatin1Char(':')) + 1) + selected->text(0));
    quiet_ = false;
    updateMenu();
    checkLastFlagName();
}

void CustomForm::openFlagForm(int mode)
{
    QTreeWidgetItem* selected = ui.TreeView2->selectedItems().value(0);
    if (mode == SubMode && (!selected || !isCategory(selected))) {
        platform::msgBox(QStringLiteral("Choose the category to add it to first!"));
        return;
    }
    NewFlagForm form(this);
    if (mode == EditMode) {
        const Shadow s = splitShadow(shadow_[indexOf(selected)]->text(0));
        form.ui.Text1->setText(selected->text(0));
        form.ui.Text2->setText(s.command);
        form.ui.Text3->setText(s.value);
        (s.state == QLatin1String("1") ? form.ui.Option1 : form.ui.Option2)->setChecked(true);
    }
    if (form.exec() != QDialog::Accepted)
        return;
    const bool on = form.ui.Option1->isChecked();
    const QString name = form.ui.Text1->text();
    const QString shadow = shadowText(form.ui.Text2->text(), form.ui.Text3->text(), on, name);
    if (mode == EditMode) {
        quiet_ = true;
        selected->setText(0, name);
        selected->setData(0, Qt::UserRole, on ? kFlagOn : kFlagOff);
        shadow_[indexOf(selected)]->setText(0, shadow);
        showImage(selected);
        quiet_ = false;
    } else {
        addNode(mode == SubMode ? selected : nullptr, name, on ? kFlagOn : kFlagOff, shadow);
        if (mode == SubMode)
            selected->setExpanded(true);
    }
    updateMenu();
    checkLastFlagName();
}

void CustomForm::editSelected()
{
    QTreeWidgetItem* selected = ui.TreeView2->selectedItems().value(0);
    if (!selected)
        return;
    if (isFlag(selected)) {
        openFlagForm(EditMode);
        return;
    }
    newNode_ = false;
    ui.TreeView2->editItem(selected);
}

void CustomForm::removeSelected()
{
    QTreeWidgetItem* selected = ui.TreeView2->selectedItems().value(0);
    if (!selected)
        return;
    QTreeWidgetItem* shadow = shadow_[indexOf(selected)];
    QList<QTreeWidgetItem*> gone = {selected};
    for (qsizetype i = 0; i < gone.size(); ++i)
        for (int c = 0; c < gone[i]->childCount(); ++c)
            gone << gone[i]->child(c);
    quiet_ = true;
    for (QTreeWidgetItem* node : gone) {
        const qsizetype i = indexOf(node);
        shown_.removeAt(i);
        shadow_.removeAt(i);
    }
    delete selected;
    delete shadow;
    quiet_ = false;
    collapseEmptyCategories();
    updateMenu();
}

void CustomForm::setAllExpanded(bool expanded)
{
    for (QTreeWidgetItem* node : shown_)
        node->setExpanded(expanded);
}

void CustomForm::eraseAll()
{
    if (!platform::ask(QStringLiteral("Are you sure you want to erase all of the custom options?"),
                       QStringLiteral("Erase All")))
        return;
    clearTrees();
    updateMenu();
}

} // namespace custom
