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
    connect(ui.Command1, &QPushButton::clicked, this, &MapEditorForm::Command1_Click);
    connect(ui.Command2, &QPushButton::clicked, this, &MapEditorForm::Command2_Click);
    connect(ui.Command3, &QPushButton::clicked, this, &MapEditorForm::Command3_Click);
    connect(ui.Command4, &QPushButton::clicked, this, &MapEditorForm::Command4_Click);
    connect(ui.Command5, &QPushButton::clicked, this, &MapEditorForm::Command5_Click);
    connect(ui.Command6, &QPushButton::clicked, this, &MapEditorForm::Command6_Click);
    connect(ui.Command7, &QPushButton::clicked, this, &MapEditorForm::Command7_Click);
    connect(ui.Command8, &QPushButton::clicked, this, &MapEditorForm::Command8_Click);
    connect(ui.Command11, &QPushButton::clicked, this, &MapEditorForm::Command11_Click);
    connect(ui.Command12, &QPushButton::clicked, this, &MapEditorForm::Command12_Click);
    connect(ui.Command13, &QPushButton::clicked, this, &MapEditorForm::Command13_Click);
    connect(ui.Command14, &QPushButton::clicked, this, &MapEditorForm::Command14_Click);
    connectMapTree(ui.TreeView1, &SelectedNodeText, [this](const QString& map) { AddToCycle(map); });
    connect(ui.List4, &QListWidget::itemDoubleClicked, this, &MapEditorForm::Command11_Click);
    onRightPress(ui.List4->viewport(), [this] {
        const int row = SelectedCycleRow();
        if (row < 0)
            return;
        InfoMapName = ui.List4->item(row)->text();
        ShowMapInfoForm(this);
    });
    EnterIdle();
    GetMaps();
}

// The editor's own scan: it drops the maps that stand twice, where the
// starting map page shows every copy.
bool MapEditorForm::GetMaps()
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

void MapEditorForm::SetEditing(bool editing)
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

void MapEditorForm::EnterIdle()
{
    CycleEditing = 0;
    SetEditing(false);
    ui.Command1->setText(QStringLiteral("Exit"));
    setWindowTitle(kIdleCaption);
}

void MapEditorForm::EnterEditing(const QString& caption)
{
    CycleEditing = 1;
    SetEditing(true);
    ui.Command1->setText(QStringLiteral("Cancel"));
    setWindowTitle(caption);
}

void MapEditorForm::AddToCycle(const QString& map) { ui.List4->addItem(map); }

void MapEditorForm::AddToCycle(const QStringList& maps) { ui.List4->addItems(maps); }

int MapEditorForm::SelectedCycleRow() const
{
    QListWidgetItem* item = ui.List4->currentItem();
    return item && item->isSelected() ? ui.List4->row(item) : -1;
}

void MapEditorForm::SelectCycleRow(int row)
{
    ui.List4->setCurrentRow(row);
    if (QListWidgetItem* item = ui.List4->item(row))
        item->setSelected(true);
}

// Exit, or Cancel while a cycle is open: what was edited goes without a question.
void MapEditorForm::Command1_Click()
{
    if (CycleEditing == 1) {
        EnterIdle();
        ui.List4->clear();
        return;
    }
    // Accepted only here: the caller keeps the chosen map after an Exit, and
    // works it out anew after the close box.
    accept();
}

void MapEditorForm::Command2_Click()
{
    MapLoadForm load(this);
    if (load.exec() != QDialog::Accepted)
        return;
    CycleTitle = load.loadedTitle;
    ui.List4->addItems(load.loadedMaps);
    EnterEditing(kCaptionStart + CycleTitle + QStringLiteral("} Right click on map for Map Info"));
}

void MapEditorForm::Command3_Click()
{
    const QString title = askCycleTitle();
    if (title.isEmpty())
        return;
    CycleTitle = title;
    // The title closes with ")" here against the "{" before it, as it always has.
    EnterEditing(kCaptionStart + title + QStringLiteral(") Right click on map for Map Info"));
}

void MapEditorForm::Command4_Click()
{
    QStringList maps;
    for (int i = 0; i < ui.List4->count(); ++i)
        maps << ui.List4->item(i)->text();
    if (!SaveMapCycle(CycleTitle, maps))
        return;
    EnterIdle();
    ui.List4->clear();
}

void MapEditorForm::Command5_Click()
{
    if (!SelectedNodeText.isEmpty() && !isCategoryName(SelectedNodeText))
        AddToCycle(SelectedNodeText);
}

// The category is found by its place in a full tree. With a category gone
// from the tree that place holds another one, whose maps are added instead.
void MapEditorForm::Command6_Click()
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
    AddToCycle(maps);
}

void MapEditorForm::Command7_Click()
{
    for (const QString& text : mapTreeOf(ui.TreeView1).nodeTexts()) {
        if (!text.isEmpty() && !isCategoryName(text))
            AddToCycle(text);
    }
}

void MapEditorForm::Command8_Click()
{
    const MapTree tree = mapTreeOf(ui.TreeView1);
    const int node = pickRandomNode(tree, platform::randomFraction);
    if (node > 0)
        AddToCycle(tree.nodeText(node));
}

void MapEditorForm::Command11_Click()
{
    const int row = SelectedCycleRow();
    if (row < 0)
        return;
    delete ui.List4->takeItem(row);
    // Nothing is selected after a removal.
    ui.List4->clearSelection();
    ui.List4->setCurrentItem(nullptr);
}

void MapEditorForm::Command12_Click() { ui.List4->clear(); }

void MapEditorForm::Command13_Click()
{
    const int row = SelectedCycleRow();
    if (row < 0 || row == ui.List4->count() - 1)
        return;
    QListWidgetItem* here = ui.List4->item(row);
    QListWidgetItem* next = ui.List4->item(row + 1);
    const QString text = here->text();
    here->setText(next->text());
    next->setText(text);
    SelectCycleRow(row + 1);
}

void MapEditorForm::Command14_Click()
{
    const int row = SelectedCycleRow();
    if (ui.List4->count() == 0 || row <= 0)
        return;
    QListWidgetItem* here = ui.List4->item(row);
    QListWidgetItem* before = ui.List4->item(row - 1);
    const QString text = here->text();
    here->setText(before->text());
    before->setText(text);
    SelectCycleRow(row - 1);
}

} // namespace torvik
