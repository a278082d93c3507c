// Reading the directory of a PAK archive for its maps, against a plain read
// of the same directory bytes: the 12-byte header, one seek, one read of
// dirLength bytes. Archives of 100, 5000 and 50000 entries, one in four a
// map, the rest textures; the files sit in the page cache after the first
// round, so both sides measure the reading and not the disk.
#include "maps/PakDirectory.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <map>

namespace {

void putLe32(QByteArray& out, quint32 v)
{
    out.append(char(v & 0xff)).append(char((v >> 8) & 0xff)).append(char((v >> 16) & 0xff)).append(char(v >> 24));
}

// One archive per entry count, made once per run.
class Archives {
public:
    static Archives& get()
    {
        static Archives archives;
        return archives;
    }

    QString path(int entries)
    {
        auto it = paths_.find(entries);
        if (it != paths_.end())
            return it->second;
        const QString p = dir_.path() + QStringLiteral("/pak%1.pak").arg(entries);
        QByteArray body;
        QByteArray dir;
        const QByteArray member(32, 'd');
        for (int i = 0; i < entries; ++i) {
            QByteArray name = i % 4 == 0 ? "maps/m" + QByteArray::number(i) + ".bsp"
                                         : "textures/e1u1/t" + QByteArray::number(i) + ".wal";
            name += QByteArray(56 - name.size(), '\0');
            putLe32(name, quint32(12 + body.size()));
            putLe32(name, quint32(member.size()));
            dir += name;
            body += member;
        }
        QByteArray file("PACK");
        putLe32(file, quint32(12 + body.size()));
        putLe32(file, quint32(dir.size()));
        file += body + dir;
        QFile f(p);
        if (!f.open(QIODevice::WriteOnly) || f.write(file) != file.size())
            std::abort();
        paths_.emplace(entries, p);
        return p;
    }

private:
    QTemporaryDir dir_;
    std::map<int, QString> paths_;
};

qint32 le32(const char* p)
{
    const auto b = reinterpret_cast<const unsigned char*>(p);
    return qint32(quint32(b[0]) | quint32(b[1]) << 8 | quint32(b[2]) << 16 | quint32(b[3]) << 24);
}

// The least any directory reader has to do.
void BM_PlainDirectoryRead(benchmark::State& state)
{
    const QString path = Archives::get().path(int(state.range(0)));
    for (auto _ : state) {
        QFile f(path);
        if (!f.open(QIODevice::ReadOnly))
            state.SkipWithError("open failed");
        char head[12];
        f.read(head, 12);
        f.seek(le32(head + 4));
        const QByteArray dir = f.read(le32(head + 8));
        benchmark::DoNotOptimize(dir.constData());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Both map scans, each over the same archives.
void BM_MapScan(benchmark::State& state, torvik::PakMapScan (*scanOf)(const QString&))
{
    const QString path = Archives::get().path(int(state.range(0)));
    qsizetype maps = 0;
    for (auto _ : state) {
        const torvik::PakMapScan scan = scanOf(path);
        if (!scan.result.ok())
            state.SkipWithError("scan failed");
        maps = scan.maps.size();
        benchmark::DoNotOptimize(scan.maps.constData());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["maps"] = double(maps);
}

BENCHMARK(BM_PlainDirectoryRead)->ArgName("entries")->Arg(100)->Arg(5000)->Arg(50000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_MapScan, catalogue, torvik::readCatalogueMaps)->ArgName("entries")->Arg(100)->Arg(5000)->Arg(50000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_MapScan, editor, torvik::readEditorMaps)->ArgName("entries")->Arg(100)->Arg(5000)->Arg(50000)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
