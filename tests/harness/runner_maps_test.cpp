// The runner's commands for map scenarios: PAK archives written from names,
// and the values the pick buttons draw.
#include "Doubles.h"
#include "Scenario.h"

#include "maps/PakDirectory.h"
#include "platform/Random.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

harness::ScenarioResult play(const QString& script)
{
    harness::ensureApplication();
    harness::ScenarioOptions options;
    options.programTemplate.clear();
    options.timeoutMs = 20000;
    options.start = [] {};
    return harness::runScenario(script, QStringLiteral("maps.scn"), options);
}

std::vector<int> failedLines(const harness::ScenarioResult& r)
{
    std::vector<int> lines;
    for (const auto& f : r.failures)
        lines.push_back(f.line);
    return lines;
}

QStringList namesOf(const torvik::PakMapScan& scan)
{
    QStringList names;
    for (const torvik::PakMap& m : scan.maps)
        names << m.MapName;
    return names;
}

TEST(ScenarioMaps, PakArchivesHoldTheNamedMembersWithRangesAndOverlongNames)
{
    QTemporaryDir out;
    const QString one = out.path() + QStringLiteral("/one.pak");
    const QString many = out.path() + QStringLiteral("/sub dir/many.pak");
    const QString empty = out.path() + QStringLiteral("/empty.pak");
    const QString overlong = QStringLiteral("maps/") + QString(51, QLatin1Char('x')) + QStringLiteral(".bsp");
    const harness::ScenarioResult r = play(QStringLiteral(
        "pak \"%1\" maps/dm1.bsp\n"
        "check file \"%1\" \"PACK\\x10\\x00\\x00\\x00\\x40\\x00\\x00\\x00IBSPmaps/dm1.bsp%2\\x0c\\x00\\x00\\x00\\x04\\x00\\x00\\x00\"\n"
        "pak \"%3\" pics/a.pcx maps/m{8..10}.bsp \"%4\" maps/last.bsp\n"
        "pak \"%5\"\n"
        "check file \"%5\" \"PACK\\x0c\\x00\\x00\\x00\\x00\\x00\\x00\\x00\"\n")
                                                   .arg(one, QStringLiteral("\\x00").repeated(44), many, overlong, empty));
    EXPECT_TRUE(r.passed) << r.output.join(QLatin1Char('\n')).toStdString();

    const torvik::PakMapScan scan = torvik::readCatalogueMaps(many);
    EXPECT_EQ(namesOf(scan), (QStringList{"m8", "m9", "m10"}));
    // The overlong name has no NUL in its field: the catalogue's reader stops there.
    EXPECT_EQ(scan.result.failure, torvik::MapScanFailure::NameWithoutEnd);
    EXPECT_TRUE(scan.result.detail.contains(QLatin1String("entry 5"))) << scan.result.detail.toStdString();
}

TEST(ScenarioMaps, BadPakRangesAndRandomValuesAreMistakes)
{
    const harness::ScenarioResult r = play(QStringLiteral(
        "pak \"$TEMP/a.pak\" maps/m{3..1}.bsp\n"
        "pak \"$TEMP/a.pak\" maps/m{x..2}.bsp\n"
        "random 1\n"
        "random -0.1\n"
        "random half\n"
        "random 0 0.999\n"));
    EXPECT_EQ(failedLines(r), (std::vector<int>{1, 2, 3, 4, 5}));
}

TEST(ScenarioMaps, RandomValuesNeverDrawnFailTheirLine)
{
    const harness::ScenarioResult r = play(QStringLiteral(
        "start\n"
        "random 0.25\n"
        "random 0.5 0.75\n"));
    EXPECT_EQ(failedLines(r), (std::vector<int>{3}));
    ASSERT_EQ(r.failures.size(), 1u);
    EXPECT_TRUE(r.failures[0].message.contains(QLatin1String("3 random value(s)"))) << r.failures[0].message.toStdString();
}

TEST(ScenarioDoubles, ScriptedRandomHandsOutTheQueueThenRepeatableValues)
{
    std::vector<double> first;
    for (int run = 0; run < 2; ++run) {
        harness::ScriptedRandom random;
        random.queued = {0.5, 0.0};
        EXPECT_EQ(platform::randomFraction(), 0.5);
        EXPECT_EQ(platform::randomFraction(), 0.0);
        std::vector<double> after;
        for (int i = 0; i < 1000; ++i) {
            const double v = platform::randomFraction();
            ASSERT_GE(v, 0.0);
            ASSERT_LT(v, 1.0);
            after.push_back(v);
        }
        EXPECT_EQ(random.draws, 1002);
        if (run == 0)
            first = after;
        else
            EXPECT_EQ(after, first);
    }
    // Without a scripted source the desktop one answers, in range too.
    const double v = platform::randomFraction();
    EXPECT_GE(v, 0.0);
    EXPECT_LT(v, 1.0);
}

} // namespace
