// Loading bots.cfg the way start-up and Refresh do: read, parse, index the
// installed player models once, filter and sort, then fill the bot page's two
// views; and the Bot Editor's open over the same files. Files of the factory size (618 rows) and of the store's limit (10000
// rows), over a players folder of 300 installed models or over none.
#include "bots/BotEditorForm.h"
#include "bots/BotListing.h"
#include "bots/BotStore.h"
#include "bots/BotsFile.h"
#include "bots/TeamEditorForm.h"
#include "harness/Doubles.h"
#include "pages/BotViews.h"
#include "platform/Files.h"
#include "platform/Timer.h"
#include "wizard/Globals.h"

#include <QDir>
#include <QListView>
#include <QTemporaryDir>
#include <QTreeView>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <random>

namespace {

constexpr int kModels = 300;
constexpr int kSkinsPerModel = 4;

// Two installs made once per run: <root>/game, whose players folder holds
// Model000 to Model299 with skins and faces, and <root>/bare, which has no
// players folder at all.
class Installs {
public:
    static Installs& get()
    {
        static Installs installs;
        return installs;
    }

    QString game() const { return dir_.path() + QStringLiteral("/game"); }
    QString bare() const { return dir_.path() + QStringLiteral("/bare"); }

    // Points the locations at an install and gives it a bots file of rows rows.
    void use(const QString& root, int rows)
    {
        torvik::Quake2Location = root + QStringLiteral("/quake2");
        torvik::GorvanLocation = root + QStringLiteral("/gorvan/gamex86.dll");
        if (!platform::writeFile(root + QStringLiteral("/gorvan/bots.cfg"), botsFile(rows)))
            std::abort();
    }

private:
    Installs()
    {
        if (!dir_.isValid())
            std::abort();
        for (const QString& root : {game(), bare()}) {
            QDir().mkpath(root + QStringLiteral("/gorvan"));
            QDir().mkpath(root + QStringLiteral("/baseq2"));
        }
        const QString players = game() + QStringLiteral("/baseq2/players");
        for (int m = 0; m < kModels; ++m) {
            // Windows-made installs spell names any way; the rows don't match.
            const QString folder = players + QStringLiteral("/Model%1").arg(m, 3, 10, QLatin1Char('0'));
            QDir().mkpath(folder);
            platform::writeFile(folder + QStringLiteral("/tris.md2"), "IDP2");
            platform::writeFile(folder + QStringLiteral("/weapon.pcx"), "x");
            for (int s = 0; s < kSkinsPerModel; ++s) {
                platform::writeFile(folder + QStringLiteral("/Skin%1.PCX").arg(s), "x");
                platform::writeFile(folder + QStringLiteral("/skin%1_i.pcx").arg(s), "x");
            }
        }
    }

    // Rows in shuffled name order; one in ten names a skin that isn't there.
    static QByteArray botsFile(int rows)
    {
        std::vector<torvik::BotRecord> bots;
        std::mt19937 random(618);
        for (int i = 0; i < rows; ++i) {
            torvik::BotRecord b;
            b.Name = QStringLiteral("Bot%1").arg(i, 5, 10, QLatin1Char('0'));
            const int skin = i % 10 == 9 ? kSkinsPerModel : int(random() % kSkinsPerModel);
            b.ModelSkin = QStringLiteral("model%1/skin%2").arg(int(random() % kModels), 3, 10, QLatin1Char('0')).arg(skin);
            b.Accuracy = qint16(1 + random() % 5);
            b.Aggressiveness = qint16(1 + random() % 5);
            b.CombatSkills = qint16(1 + random() % 5);
            b.FavoriteWeapon = qint16(random() % 10);
            b.QuadFreak = qint16(random() % 2);
            b.Camper = qint16(random() % 2);
            b.Ping = qint16(50 * (1 + random() % 8));
            bots.push_back(b);
        }
        std::shuffle(bots.begin(), bots.end(), random);
        QString teams;
        for (int t = 0; t < 16; ++t)
            teams += QStringLiteral("\"Team%1\"\t\"T%1\"\t\"model001/skin0\"\t[\"Bot00001\" \"Bot00002\" ]\r\n").arg(t);
        const std::optional<QByteArray> file = torvik::botsFileForBots(bots, teams);
        if (!file)
            std::abort();
        return *file;
    }

    QTemporaryDir dir_;
};

// Factory-sized and full files, over the installed models (1: 300 models)
// or over none (0: no players folder).
void rowsAndInstalls(benchmark::internal::Benchmark* b)
{
    b->ArgNames({"rows", "installed"});
    for (int rows : {618, 10000})
        for (int installed : {1, 0})
            b->Args({rows, installed});
    b->Unit(benchmark::kMillisecond);
}

void BM_GetNewBots(benchmark::State& state)
{
    harness::RecordingDialogs dialogs;
    Installs& installs = Installs::get();
    const int rows = int(state.range(0));
    installs.use(state.range(1) ? installs.game() : installs.bare(), rows);
    size_t listed = 0;
    for (auto _ : state) {
        torvik::BotFileErrorFlag = 0;
        torvik::TeamsText.clear();
        const auto result = torvik::GetNewBots();
        if (!result)
            state.SkipWithError("load failed");
        else
            listed = result->size();
        benchmark::DoNotOptimize(torvik::Bots.data());
    }
    if (!dialogs.boxes.empty())
        state.SkipWithError("a box was shown");
    state.counters["rows"] = torvik::BotCount;
    state.counters["listed"] = double(listed);
}
BENCHMARK(BM_GetNewBots)
    ->Apply(rowsAndInstalls);

// What the user waits for at start-up and on Refresh: the load above, then
// the report view and the name list filled and the ticks brought in line.
void BM_BotPageLoad(benchmark::State& state)
{
    harness::ensureApplication();
    harness::RecordingDialogs dialogs;
    Installs& installs = Installs::get();
    installs.use(state.range(1) ? installs.game() : installs.bare(), int(state.range(0)));
    QTreeView view;
    QListView names;
    names.setSelectionMode(QAbstractItemView::ExtendedSelection);
    pages::StoreRowsModel* rows = pages::showStoreRows(&view, &names);
    for (auto _ : state) {
        torvik::BotFileErrorFlag = 0;
        torvik::TeamsText.clear();
        const auto listed = torvik::GetNewBots();
        if (!listed) {
            state.SkipWithError("load failed");
            break;
        }
        pages::fillBotViews(&view, rows, torvik::Bots, *listed);
        pages::markSelectedRows(rows, &names);
    }
    state.counters["listed"] = double(rows->rowCount());
}
BENCHMARK(BM_BotPageLoad)
    ->Apply(rowsAndInstalls);

// What the user waits for when the Bot Editor opens: the form made, its
// load on the first tick of its timer, and the list filled.
void BM_BotEditorOpen(benchmark::State& state)
{
    harness::ensureApplication();
    harness::RecordingDialogs dialogs;
    Installs& installs = Installs::get();
    installs.use(state.range(1) ? installs.game() : installs.bare(), int(state.range(0)));
    platform::Timer::useManualClock(true);
    int listed = 0;
    for (auto _ : state) {
        torvik::BotFileErrorFlag = 0;
        torvik::TeamsText.clear();
        torvik::BotEditorForm editor;
        platform::Timer::advance(1);
        listed = editor.ui.ListView1->topLevelItemCount();
    }
    platform::Timer::useManualClock(false);
    if (!dialogs.boxes.empty())
        state.SkipWithError("a box was shown");
    state.counters["listed"] = double(listed);
}
BENCHMARK(BM_BotEditorOpen)
    ->Apply(rowsAndInstalls);

void BM_GetNewTeams(benchmark::State& state)
{
    harness::RecordingDialogs dialogs;
    Installs& installs = Installs::get();
    installs.use(installs.game(), int(state.range(0)));
    for (auto _ : state) {
        torvik::BotFileErrorFlag = 0;
        if (!torvik::GetNewTeams())
            state.SkipWithError("load failed");
    }
    state.counters["teams"] = torvik::TeamCount;
}
BENCHMARK(BM_GetNewTeams)->ArgName("rows")->Arg(618)->Arg(10000)->Unit(benchmark::kMillisecond);

// The team editor as the user opens it on a full file: 10000 bots and 5000
// teams, the teams listed and the installed bots listed for the member picker.
void BM_TeamEditorOpen(benchmark::State& state)
{
    harness::ensureApplication();
    harness::RecordingDialogs dialogs;
    Installs& installs = Installs::get();
    installs.use(installs.game(), 10000);
    QByteArray file;
    platform::readFile(torvik::botsFilePath(), file);
    file.chop(2); // the final print's empty line goes behind the teams
    for (int t = 0; t < torvik::kMaxTeams - 16; ++t)
        file += QStringLiteral("\"More%1\"\t\"M\"\t\"\"\t[\"Bot00003\" ]\r\n").arg(t).toLatin1();
    platform::writeFile(torvik::botsFilePath(), file);
    platform::Timer::useManualClock(true);
    int teams = 0;
    for (auto _ : state) {
        torvik::BotFileErrorFlag = 0;
        torvik::TeamsText.clear();
        torvik::TeamEditorForm editor;
        platform::Timer::advance(1);
        teams = editor.ui.ListView1->topLevelItemCount();
    }
    if (!dialogs.boxes.empty())
        state.SkipWithError("a box was shown");
    state.counters["teams"] = teams;
}
BENCHMARK(BM_TeamEditorOpen)->Unit(benchmark::kMillisecond);

// The parts of a load on their own: the scan from memory and the index.
void BM_ReadBotsSection(benchmark::State& state)
{
    Installs& installs = Installs::get();
    installs.use(installs.game(), int(state.range(0)));
    QByteArray bytes;
    platform::readFile(torvik::botsFilePath(), bytes);
    for (auto _ : state) {
        torvik::BotsSection s = torvik::ReadBotsSection(bytes);
        benchmark::DoNotOptimize(s.rows.data());
    }
}
BENCHMARK(BM_ReadBotsSection)->ArgName("rows")->Arg(618)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_PlayersIndex(benchmark::State& state)
{
    Installs& installs = Installs::get();
    installs.use(installs.game(), 618);
    for (auto _ : state) {
        const torvik::PlayersIndex index(torvik::playersFolderPath());
        benchmark::DoNotOptimize(index.modelCount());
    }
}
BENCHMARK(BM_PlayersIndex)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
