// The starting map page of the main form: the map tree, the current map, the
// random pick, the list of map cycles, and the way to the map cycle editor.
#include "maps/MapCycles.h"
#include "maps/MapEditorForm.h"
#include "maps/MapTree.h"
#include "maps/MapTreeView.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Random.h"
#include "wizard/Globals.h"
#include "wizard/MainForm.h"
#include "wizard/Program.h"

#include <QDir>

#include <new>

namespace torvik {
namespace {

const QString kSinglePlayer = QStringLiteral("SP");

// A failure that the map folder can't cure: what the user is told before the
// program ends, with the place that needs repair.
QString mapsFailedText(const QString& detail)
{
    return QStringLiteral("Error getting maps! %1. Ending Torvik.").arg(detail);
}

} // namespace

void MainForm::SetupMapPage()
{
    auto& sm = ui.StartMap->ui;
    connectMapTree(sm.TreeView1, &SelectedNodeText, [this](const QString& map) {
        ui.StartMap->ui.Label24->setText(map);
    });
    connect(sm.Command26, &QPushButton::clicked, this, &MainForm::Command26_Click);
    connect(sm.Command5, &QPushButton::clicked, this, &MainForm::Command5_Click);
    connect(ui.Command18, &QToolButton::clicked, this, &MainForm::Command18_Click);
}

// Builds the tree of the game type and works out the map. A game install
// without "baseq2/maps" gets that folder and a second run; one without
// "baseq2" keeps the tree as far as it got, silently. Anything else that
// stops the scan can't be cured by a folder and ends the program.
void MainForm::AddMaps()
{
    QString failure;
    while (!AddMapsRun(&failure)) {
        const QString base = platform::resolvePath(platform::joinPath(gameFolder(), QStringLiteral("baseq2")));
        if (base.isEmpty())
            return;
        const QString maps = platform::joinPath(base, QStringLiteral("maps"));
        // A maps folder that is there already means the folder wasn't what
        // stopped the scan, and making it again would cure nothing.
        if (!platform::resolvePath(maps).isEmpty() || !QDir().mkdir(maps)) {
            platform::msgBox(mapsFailedText(failure), platform::Buttons::Ok, platform::Icon::Critical);
            ExitProgram(true);
            return;
        }
    }
}

// One pass over the game folders; false with the reason when a scan stopped.
// The tree then shows what was built up to that point.
bool MainForm::AddMapsRun(QString* failure)
{
    auto& sm = ui.StartMap->ui;
    if (DataFileMode != 1 && KeepMapLabel != 1)
        sm.Label24->setText(QString());
    sm.TreeView1->clear();

    if (GameTypeCode == kSinglePlayer) {
        // Single player plays the stock maps only, and no map cycle.
        showMapTree(sm.TreeView1, singlePlayerMapTree());
        sm.Check39->setEnabled(false);
        sm.Combo2->setEnabled(false);
        if (DataFileMode != 1) {
            DataFileMode = 0;
            if (KeepMapLabel != 1)
                sm.Label24->setText(QStringLiteral("base1"));
        }
        return true;
    }

    sm.Check39->setEnabled(true);
    sm.Combo2->setEnabled(true);
    MapTree tree;
    const MapScanResult scan = buildMultiplayerMapTree(gameFolder(), modFolder(), tree);
    showMapTree(sm.TreeView1, tree);
    if (!scan.ok()) {
        *failure = scan.detail;
        return false;
    }
    if (DataFileMode == 0 && KeepMapLabel != 1) {
        const bool deathMatch = GameTypeCode == QLatin1String("DM") || GameTypeCode == QLatin1String("DMT");
        sm.Label24->setText(deathMatch ? QStringLiteral("base1") : QStringLiteral("q2ctf1"));
    }
    LoadMapCycles();
    DataFileMode = 0;
    KeepMapLabel = 0;
    return true;
}

void MainForm::LoadMapCycles()
{
    QComboBox* combo = ui.StartMap->ui.Combo2;
    combo->clear();
    combo->addItems(torvik::LoadMapCycles());
    combo->setCurrentIndex(0);
}

void MainForm::Command5_Click()
{
    KeepMapLabel = 1;
    AddMaps();
}

void MainForm::Command26_Click()
{
    auto& sm = ui.StartMap->ui;
    const MapTree tree = mapTreeOf(sm.TreeView1);
    const int node = pickRandomNode(tree, platform::randomFraction);
    if (node > 0)
        sm.Label24->setText(tree.nodeText(node));
}

void MainForm::Command18_Click()
{
    try {
        MapEditorForm editor(this);
        if (programEnded())
            return;
        if (editor.exec() == QDialog::Accepted)
            KeepMapLabel = 1;
    } catch (const std::bad_alloc&) {
        platform::msgBox(QStringLiteral("Out-of-Memory. Try closing a few apps, then try running again."),
                         platform::Buttons::Ok, platform::Icon::Critical);
        ExitProgram(true);
        return;
    }
    // However the editor was left, the tree is read again, which brings a
    // cycle saved there into the list of cycles.
    if (!programEnded())
        AddMaps();
}

} // namespace torvik
