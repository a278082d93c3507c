#include "pages/StartMapPage.h"

#include "maps/MapCatalogue.h"

#include "command/Composer.h"
#include "maps/MapCycles.h"
#include "maps/MapTree.h"
#include "maps/MapTreeView.h"
#include "pages/SavedControls.h"
#include "pages/WizardState.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/ProgramContext.h"
#include "platform/Random.h"

#include <QDir>

namespace pages {
namespace {

// A failure that the map folder can't cure: what the user is told before the
// program ends, with the place that needs repair.
QString mapsFailedText(const QString& detail)
{
    return QStringLiteral("Error getting maps! %1. Ending Torvik.").arg(detail);
}

bool isDeathMatch(const QString& gameTypeCode)
{
    return gameTypeCode == QLatin1String("DM") || gameTypeCode == QLatin1String("DMT");
}

} // namespace

StartMapPage::StartMapPage(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    torvik::connectMapTree(ui.TreeView1, &SelectedNodeText, [this](const QString& map) { ui.Label24->setText(map); });
    connect(ui.Command26, &QPushButton::clicked, this, &StartMapPage::pickRandomMap);
    connect(ui.Command5, &QPushButton::clicked, this, &StartMapPage::refreshMaps);
}

void StartMapPage::addMaps()
{
    const platform::ProgramContext& context = platform::programContext;
    QString failure;
    while (!addMapsOnce(&failure)) {
        const QString base = platform::resolvePath(platform::joinPath(context.gameFolder(), QStringLiteral("baseq2")));
        if (base.isEmpty())
            return;
        const QString maps = platform::joinPath(base, QStringLiteral("maps"));
        // A maps folder that is there already means the folder wasn't what
        // stopped the scan, and making it again would cure nothing.
        if (!platform::resolvePath(maps).isEmpty() || !QDir().mkdir(maps)) {
            platform::msgBox(mapsFailedText(failure), platform::Buttons::Ok, platform::Icon::Critical);
            platform::exitProgram();
            return;
        }
    }
}

// One pass over the game folders; false with the reason when a scan stopped.
// The tree then shows what was built up to that point.
bool StartMapPage::addMapsOnce(QString* failure)
{
    WizardState& state = wizardState;
    if (state.dataFileMode != 1 && KeepMapLabel != 1)
        ui.Label24->setText(QString());
    ui.TreeView1->clear();

    if (state.gameTypeCode == QLatin1String("SP")) {
        // Single player plays the stock maps only, and no map cycle.
        torvik::showMapTree(ui.TreeView1, torvik::singlePlayerMapTree());
        ui.Check39->setEnabled(false);
        ui.Combo2->setEnabled(false);
        if (state.dataFileMode != 1) {
            state.dataFileMode = 0;
            if (KeepMapLabel != 1)
                ui.Label24->setText(QStringLiteral("base1"));
        }
        return true;
    }

    ui.Check39->setEnabled(true);
    ui.Combo2->setEnabled(true);
    torvik::MapTree tree;
    const platform::ProgramContext& context = platform::programContext;
    const torvik::MapScanResult scan = torvik::buildMultiplayerMapTree(context.gameFolder(), context.modFolder(), tree);
    torvik::showMapTree(ui.TreeView1, tree);
    if (!scan.ok()) {
        *failure = scan.detail;
        return false;
    }
    // A collection past the catalogue's bound is no reason to stop: the user
    // hears which maps are missing and plays with the others.
    if (!scan.leftOut.isEmpty())
        platform::msgBox(QStringLiteral("Torvik lists the first %1 maps it finds. \"%2\" and the maps after it are "
                                        "left out.")
                             .arg(torvik::MapCatalogueLastRow)
                             .arg(scan.leftOut),
                         platform::Buttons::Ok, platform::Icon::Exclamation);
    if (state.dataFileMode == 0 && KeepMapLabel != 1)
        showDefaultMap(state.gameTypeCode);
    loadMapCycles();
    state.dataFileMode = 0;
    KeepMapLabel = 0;
    return true;
}

void StartMapPage::showDefaultMap(const QString& gameTypeCode)
{
    ui.Label24->setText(isDeathMatch(gameTypeCode) ? QStringLiteral("base1") : QStringLiteral("q2ctf1"));
}

void StartMapPage::loadMapCycles()
{
    ui.Combo2->clear();
    ui.Combo2->addItems(torvik::LoadMapCycles());
    ui.Combo2->setCurrentIndex(0);
}

// The tree is read again for a new map or PAK; the map the user chose stays.
void StartMapPage::refreshMaps()
{
    KeepMapLabel = 1;
    addMaps();
}

void StartMapPage::pickRandomMap()
{
    const torvik::MapTree tree = torvik::mapTreeOf(ui.TreeView1);
    const int node = torvik::pickRandomNode(tree, platform::randomFraction);
    if (node > 0)
        ui.Label24->setText(tree.nodeText(node));
}

QString StartMapPage::chosenMap() const { return ui.Label24->text(); }

QString StartMapPage::chosenCycle() const { return ui.Combo2->currentText(); }

QString StartMapPage::firstCycleRow() const { return ui.Combo2->itemText(0); }

void StartMapPage::readAnswersInto(torvik::ComposerInput& in) const
{
    in.mapmodRandom = ui.Check39->isChecked();
    in.map = ui.Label24->text();
}

void StartMapPage::saveAnswersInto(datafile::SavedAnswers& saved) const
{
    saved.map = ui.Label24->text();
    saveChecks(saved, {ui.Check39});
}

void StartMapPage::restoreAnswersFrom(const datafile::SavedAnswers& saved)
{
    ui.Label24->setText(saved.map);
    restoreChecks(saved, {ui.Check39});
}

} // namespace pages
