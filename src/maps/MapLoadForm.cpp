#include "maps/MapLoadForm.h"

#include "maps/MapCycles.h"
#include "platform/Dialogs.h"

namespace torvik {

MapLoadForm::MapLoadForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    listCycles();
    // A row chosen by the mouse or the keys is the one to open or delete.
    auto choose = [this](QListWidgetItem* item) {
        if (item)
            ui.Label2->setText(item->text());
    };
    connect(ui.List1, &QListWidget::itemClicked, this, choose);
    connect(ui.List1, &QListWidget::itemSelectionChanged, this, [this, choose] {
        const QList<QListWidgetItem*> rows = ui.List1->selectedItems();
        choose(rows.isEmpty() ? nullptr : rows.first());
    });
    connect(ui.Command1, &QPushButton::clicked, this, &MapLoadForm::openChosenCycle);
    connect(ui.Command2, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui.Command3, &QPushButton::clicked, this, &MapLoadForm::deleteChosenCycle);
}

void MapLoadForm::listCycles()
{
    ui.List1->clear();
    ui.List1->addItems(LoadMapCycles());
}

void MapLoadForm::openChosenCycle()
{
    const QString chosen = ui.Label2->text();
    if (chosen.isEmpty()) {
        platform::msgBox(QStringLiteral("No Map Cycle selected to open!"));
        return;
    }
    std::optional<QStringList> maps;
    QListWidgetItem* first = ui.List1->item(0);
    if (first && first->isSelected()) {
        maps = readCurrentMapCycle();
        if (!maps) {
            platform::msgBox(QStringLiteral("Current Map Cycle couldn't be loaded!"));
            return;
        }
        loadedTitle = kCurrentCycleTitle;
    } else {
        maps = readSavedMapCycle(chosen);
        if (!maps) {
            platform::msgBox(QStringLiteral("The map cycle %1 couldn't be loaded!").arg(chosen));
            return;
        }
        loadedTitle = chosen;
    }
    loadedMaps = *maps;
    accept();
}

void MapLoadForm::deleteChosenCycle()
{
    QListWidgetItem* item = ui.List1->currentItem();
    const int row = item && item->isSelected() ? ui.List1->row(item) : -1;
    // The mod's own cycle can't be deleted from here.
    if (row <= 0)
        return;
    if (!deleteSavedCycle(ui.Label2->text()))
        return;
    delete ui.List1->takeItem(row);
    listCycles();
    ui.Label2->setText(QString());
}

} // namespace torvik
