#include "maps/MapEditorForm.h"

#include "maps/MapCycles.h"
#include "maps/MapInfo.h"
#include "maps/MapLoadForm.h"
#include "maps/MapTree.h"
#include "maps/MapTreeView.h"
#include "platform/Dialogs.h"
#include "platform/ProgramContext.h"
#include "platform/Random.h"

namespace torvik {
namespace {

const QString kIdleCaption = QStringLiteral("Torvik - Map Cycle Editor {Right Click on map, for Map Information}");
const QString kCaptionStart = QStringLiteral("Torvik - Map Cycle Editor {");

} // namespace

MapEditorForm::MapEditorForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    connect(ui.Command1, &QPushButton::clicked, this, &MapEditorForm::exitOrCancel);
    connect(ui.Command2, &QPushButton::clicked, this, &MapEditorForm::loadCycle);
    connect(ui.Command3, &QPushButton::clicked, this, &MapEditorForm::newCycle);
    connect(ui.Command4, &QPushButton::clicked, this, &MapEditorForm::saveCycle);
    connect(ui.Command5, &QPushButton::clicked, this, &MapEditorForm::addSelectedMap);
    connect(ui.Command6, &QPushButton::clicked, this, &MapEditorForm::addCategoryMaps);
    connect(ui.Command7, &QPushButton::clicked, this, &MapEditorForm::addAllMaps);
    connect(ui.Command8, &QPushButton::clicked, this, &MapEditorForm::addRandomMap);
    connect(ui.Command11, &QPushButton::clicked, this, &MapEditorForm::removeCycleRow);
    connect(ui.Command12, &QPushButton::clicked, this, &MapEditorForm::clearCycle);
    connect(ui.Command13, &QPushButton::clicked, this, &MapEditorForm::moveRowDown);
    connect(ui.Command14, &QPushButton::clicked, this, &MapEditorForm::moveRowUp);
    connectMapTree(ui.TreeView1, &SelectedNodeText, [this](const QString& map) { addToCycle(map); });
    connect(ui.List4, &QListWidget::itemDoubleClicked, this, &MapEditorForm::removeCycleRow);
    onRightPress(ui.List4->viewport(), [this] {
        const int row = selectedCycleRow();
        if (row < 0)
            return;
        InfoMapName = ui.List4->item(row)->text();
        ShowMapInfoForm(this);
    });
    enterIdle();
    readMaps();
}

// The editor's own scan: it drops the maps that stand twice, where the
// starting map page shows every copy.
bool MapEditorForm::readMaps()
{
    mapeditor::EditorMaps maps;
    const MapScanResult scan = mapeditor::GetMaps(platform::programContext.gameFolder(), platform::programContext.modFolder(), maps);
    if (!scan.ok()) {
        platform::msgBox(mapeditor::failureText(scan));
        platform::exitProgram();
        return false;
    }
    ui.List1->addItems(maps.List1);
    ui.List2->addItems(maps.List2);
    ui.List3->addItems(maps.List3);
    showMapTree(ui.TreeView1, maps.tree);
    return true;
}

void MapEditorForm::setEditing(bool editing)
{
    for (QPushButton* b : {ui.Command4, ui.Command5, ui.Command6, ui.Command7, ui.Command8, ui.Command11,
                           ui.Command12, ui.Command13, ui.Command14})
        b->setEnabled(editing);
    ui.Command2->setEnabled(!editing);
    ui.Command3->setEnabled(!editing);
    ui.TreeView1->setEnabled(editing);
    // The lists look like buttons while there is nothing to edit.
    const QColor back = editing ? QColor(Qt::white) : palette().color(QPalette::Button);
    for (QListWidget* list : {ui.List1, ui.List2, ui.List3, ui.List4}) {
        list->setEnabled(editing);
        QPalette p = list->palette();
        p.setColor(QPalette::Base, back);
        list->setPalette(p);
    }
}

void MapEditorForm::enterIdle()
{
    CycleEditing = 0;
    setEditing(false);
    ui.Command1->setText(QStringLiteral("Exit"));
    setWindowTitle(kIdleCaption);
}

void MapEditorForm::enterEditing(const QString& caption)
{
    CycleEditing = 1;
    setEditing(true);
    ui.Command1->setText(QStringLiteral("Cancel"));
    setWindowTitle(caption);
}

void MapEditorForm::addToCycle(const QString& map) { ui.List4->addItem(map); }

void MapEditorForm::addToCycle(const QStringList& maps) { ui.List4->addItems(maps); }

int MapEditorForm::selectedCycleRow() const
{
    QListWidgetItem* item = ui.List4->currentItem();
    return item && item->isSelected() ? ui.List4->row(item) : -1;
}

void MapEditorForm::selectCycleRow(int row)
{
    ui.List4->setCurrentRow(row);
    if (QListWidgetItem* item = ui.List4->item(row))
        item->setSelected(true);
}

// Exit, or Cancel while a cycle is open: what was edited goes without a question.
void MapEditorForm::exitOrCancel()
{
    if (CycleEditing == 1) {
        enterIdle();
        ui.List4->clear();
        return;
    }
    // Accepted only here: the caller keeps the chosen map after an Exit, and
    // works it out anew after the close box.
    accept();
}

void MapEditorForm::loadCycle()
{
    MapLoadForm load(this);
    if (load.exec() != QDialog::Accepted)
        return;
    CycleTitle = load.loadedTitle;
    ui.List4->addItems(load.loadedMaps);
    enterEditing(kCaptionStart + CycleTitle + QStringLiteral("} Right click on map for Map Info"));
}

void MapEditorForm::newCycle()
{
    const QString title = askCycleTitle();
    if (title.isEmpty())
        return;
    CycleTitle = title;
    // The title closes with ")" here against the "{" before it, as it always has.
    enterEditing(kCaptionStart + title + QStringLiteral(") Right click on map for Map Info"));
}

void MapEditorForm::saveCycle()
{
    QStringList maps;
    for (int i = 0; i < ui.List4->count(); ++i)
        maps << ui.List4->item(i)->text();
    if (!SaveMapCycle(CycleTitle, maps))
        return;
    enterIdle();
    ui.List4->clear();
}

void MapEditorForm::addSelectedMap()
{
    if (!SelectedNodeText.isEmpty() && !isCategoryName(SelectedNodeText))
        addToCycle(SelectedNodeText);
}

// The category is found by its place in a full tree. With a category gone
// from the tree that place holds another one, whose maps are added instead.
void MapEditorForm::addCategoryMaps()
{
    const int position = categoryPosition(SelectedNodeText);
    if (position == 0) {
        platform::msgBox(QStringLiteral("You must select a catergory"));
        return;
    }
    const QStringList maps = mapTreeOf(ui.TreeView1).childrenOf(position);
    if (maps.isEmpty()) {
        // That place holds a map, which has nothing below it.
        platform::msgBox(QStringLiteral("There are no maps to add below this catergory."));
        return;
    }
    addToCycle(maps);
}

void MapEditorForm::addAllMaps()
{
    for (const QString& text : mapTreeOf(ui.TreeView1).nodeTexts()) {
        if (!text.isEmpty() && !isCategoryName(text))
            addToCycle(text);
    }
}

void MapEditorForm::addRandomMap()
{
    const MapTree tree = mapTreeOf(ui.TreeView1);
    const int node = pickRandomNode(tree, platform::randomFraction);
    if (node > 0)
        addToCycle(tree.nodeText(node));
}

void MapEditorForm::removeCycleRow()
{
    const int row = selectedCycleRow();
    if (row < 0)
        return;
    delete ui.List4->takeItem(row);
    // Nothing is selected after a removal.
    ui.List4->clearSelection();
    ui.List4->setCurrentItem(nullptr);
}

void MapEditorForm::clearCycle() { ui.List4->clear(); }

void MapEditorForm::moveRowDown()
{
    const int row = selectedCycleRow();
    if (row < 0 || row == ui.List4->count() - 1)
        return;
    QListWidgetItem* here = ui.List4->item(row);
    QListWidgetItem* next = ui.List4->item(row + 1);
    const QString text = here->text();
    here->setText(next->text());
    next->setText(text);
    selectCycleRow(row + 1);
}

void MapEditorForm::moveRowUp()
{
    const int row = selectedCycleRow();
    if (ui.List4->count() == 0 || row <= 0)
        return;
    QListWidgetItem* here = ui.List4->item(row);
    QListWidgetItem* before = ui.List4->item(row - 1);
    const QString text = here->text();
    here->setText(before->text());
    before->setText(text);
    selectCycleRow(row - 1);
}

} // namespace torvik
