// A click low in the bot list of 10,000 bots, the first after the list was
// filled (as after start-up or Refresh), and a double click there: with the
// rows of one height the list takes, and with rows measured one by one as
// the lists had before.
#include "bots/BotStore.h"
#include "pages/BotViews.h"

#include <QApplication>
#include <QListView>
#include <QTest>
#include <QTreeView>
#include <benchmark/benchmark.h>

#include <numeric>

namespace {

constexpr int kBots = 10000;

void fillStore()
{
    torvik::Bots.clear();
    for (int i = 0; i < kBots; ++i) {
        torvik::BotRecord b;
        b.Name = QStringLiteral("Bot%1").arg(i, 5, 10, QLatin1Char('0'));
        b.ModelSkin = QStringLiteral("model%1/skin%2").arg(i % 300, 3, 10, QLatin1Char('0')).arg(i % 4);
        torvik::Bots.push_back(b);
    }
}

// range(0): 1 for rows of one height; range(1): 1 for a double click.
void BM_ClickLowInBotList(benchmark::State& state)
{
    fillStore();
    std::vector<int> listed(kBots);
    std::iota(listed.begin(), listed.end(), 0);
    QTreeView view;
    QListView names;
    pages::StoreRowsModel* rows = pages::showStoreRows(&view, &names);
    view.setUniformRowHeights(state.range(0) == 1);
    view.resize(700, 300);
    view.show();
    for (auto _ : state) {
        state.PauseTiming();
        pages::fillBotViews(&view, rows, torvik::Bots, listed);
        QCoreApplication::processEvents();
        state.ResumeTiming();
        const QModelIndex last = rows->index(kBots - 1, 0);
        view.scrollTo(last);
        const QPoint at = view.visualRect(last).center();
        if (state.range(1) == 1)
            QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, at);
        else
            QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at);
        QCoreApplication::processEvents();
    }
    if (view.currentIndex().row() != kBots - 1)
        state.SkipWithError("the click missed the last row");
}
BENCHMARK(BM_ClickLowInBotList)
    ->ArgNames({"uniform", "double"})
    ->Args({1, 0})
    ->Args({0, 0})
    ->Args({1, 1})
    ->Args({0, 1})
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
