// The Map Cycle Editor's duplicate check over collector-sized lists: the
// row-by-row scan against the check that finds rows by name. The baseq2
// PAKs hold the stock maps and a share of the mod's maps again, as
// collections do; a few loose maps repeat PAK maps.
#include "maps/MapCatalogue.h"
#include "maps/MapDuplicates.h"

#include <benchmark/benchmark.h>

namespace {

struct EditorLists {
    QStringList one, two, three;
};

EditorLists listsOf(int maps)
{
    EditorLists lists;
    const QStringList stock = torvik::builtInMapNames();
    lists.one = stock;
    for (int i = 0; i < maps / 2; ++i)
        lists.one << QStringLiteral("base_map%1").arg(i);
    for (int i = 0; i < maps / 2; ++i)
        lists.three << QStringLiteral("MOD_MAP%1").arg(i);
    // One map in ten of the mod's is in baseq2's PAKs too; one in fifty is loose.
    for (int i = 0; i < maps / 2; i += 10)
        lists.one << QStringLiteral("mod_map%1").arg(i);
    for (int i = 0; i < maps / 2; i += 50)
        lists.two << QStringLiteral("base_map%1").arg(i);
    return lists;
}

template <bool (*Check)(QStringList&, QStringList&, QStringList&)>
void BM_CheckMaps(benchmark::State& state)
{
    const EditorLists lists = listsOf(int(state.range(0)));
    for (auto _ : state) {
        EditorLists work = lists;
        benchmark::DoNotOptimize(Check(work.one, work.two, work.three));
    }
    state.counters["maps"] = double(lists.one.size() + lists.two.size() + lists.three.size());
}

void sizes(benchmark::internal::Benchmark* b)
{
    for (int maps : {500, 2500, 5000, 12500})
        b->Arg(maps);
    b->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_CheckMaps<torvik::mapeditor::checkMapsByScan>)->Name("ScanRowByRow")->Apply(sizes);
BENCHMARK(BM_CheckMaps<torvik::mapeditor::checkMapsIndexed>)->Name("FindByName")->Apply(sizes);

} // namespace

BENCHMARK_MAIN();
