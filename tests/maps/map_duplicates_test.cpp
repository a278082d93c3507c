// The editor's duplicate check found by name against the row-by-row scan it
// replaces: the same lists and the same answer, quirks and all.
#include "maps/MapDuplicates.h"
#include "maps/MapTree.h"

#include <gtest/gtest.h>

#include <random>

using namespace torvik::mapeditor;

namespace {

struct Lists {
    QStringList one, two, three;
    bool ok = true;
    bool operator==(const Lists&) const = default;
};

Lists checked(Lists in, bool (*check)(QStringList&, QStringList&, QStringList&))
{
    in.ok = check(in.one, in.two, in.three);
    return in;
}

void expectSameAsScan(const Lists& in)
{
    const Lists scanned = checked(in, checkMapsByScan);
    EXPECT_EQ(checked(in, checkMapsIndexed), scanned) << in.one.join(',').toStdString() << " | "
                                                      << in.two.join(',').toStdString() << " | "
                                                      << in.three.join(',').toStdString();
    EXPECT_EQ(checked(in, CheckMaps), scanned);
}

TEST(MapsEditorDuplicates, QuirksKept)
{
    const struct {
        Lists in, out;
    } rows[] = {
        // The row at List1's own row number in another list stays.
        {{{"x", "a"}, {"q", "a"}, {"b", "A"}}, {{"x", "a"}, {"q", "a"}, {"b", "A"}}},
        {{{"a"}, {"b", "a"}, {"a", "b"}}, {{"a"}, {"b"}, {"a"}}},
        // Each removal passes over the row behind it; later rounds read past the end.
        {{{"a", "a", "a"}, {}, {"c", "A", "a", "a"}}, {{"a"}, {}, {"c", "a"}}},
        // A stock map goes and the scan starts over with its old bound.
        {{{"q", "base1", "q", "Q"}, {"x", "q"}, {"q", "q"}}, {{"q"}, {"x"}, {"q"}}},
        {{{"BASE1", "base1", "r"}, {"r", "s"}, {"s", "r"}}, {{"r"}, {"r", "s"}, {}}},
    };
    for (const auto& r : rows) {
        expectSameAsScan(r.in);
        const Lists got = checked(r.in, checkMapsIndexed);
        EXPECT_EQ(got, r.out) << got.one.join(',').toStdString() << " | " << got.two.join(',').toStdString()
                              << " | " << got.three.join(',').toStdString();
    }
    // An empty name matches the rows read past the end, whose removal fails.
    Lists failing{{"a"}, {""}, {"", "", "c"}};
    EXPECT_FALSE(checked(failing, CheckMaps).ok);
    EXPECT_EQ(checked(failing, CheckMaps), checked(failing, checkMapsByScan));
}

TEST(MapsEditorDuplicates, RandomListsAsScanned)
{
    const QStringList names{"a", "A", "b", "base1", "Jail2", "c"};
    std::mt19937 random(15);
    auto list = [&] {
        QStringList rows;
        for (int n = int(random() % 9); n > 0; --n)
            rows << names[qsizetype(random() % names.size())];
        return rows;
    };
    for (int i = 0; i < 3000; ++i)
        expectSameAsScan({list(), list(), list()});
}

} // namespace
