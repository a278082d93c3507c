// Script.TK over plain bytes: each kind of line read and written back, the
// lines that end the reading, and files damaged at random.
#include "custom/ScriptFile.h"

#include <gtest/gtest.h>

#include <random>

using namespace custom;

TEST(ScriptFile, Lines)
{
    struct Row {
        QByteArray file;
        QStringList names; // what is read, in order
        bool writesBack;   // the file comes back byte for byte
        bool whole;        // read to its end
    };
    const QByteArray good = "\"1{}Maps\"\r\n\"2{Maps}Low Gravity{}set gravity{}400{}1\"\r\n\"3{Maps}Deep\"\r\n"
                            "\"4{Deep}Fast{}set sv_fast{}2{}0\"\r\n\"0{}Top{}set top{}a b{}1\"\r\n";
    const Row rows[] = {
        {good, {"Maps", "Low Gravity", "Deep", "Fast", "Top"}, true, true},
        {"", {}, true, true},
        {"\"7{}odd\"\r\n\"1{}A\"\r\n", {"A"}, false, true},
        {"\"1{}A\"\r\n\"2{Nowhere}F{}c{}v{}1\"\r\n\"1{}B\"\r\n", {"A"}, false, false},
        {"\"1{}Maps\"\r\n\"1{}MAPS\"\r\n", {"Maps"}, false, false},
        {"\"1{}A\"\r\n\"0{}F{}c{}v\"\r\n", {"A"}, false, false},
        {"\"1{}A\"\r\n\"0{}F{}c{}v{}7\"\r\n", {"A"}, false, false},
        {"\"1A\"\r\n", {}, false, false},
        {"\"2{F}G{}c{}v{}1\"\r\n", {}, false, false},
    };
    for (const Row& row : rows) {
        bool whole = false;
        const QList<ScriptNode> nodes = readScript(row.file, &whole);
        EXPECT_EQ(whole, row.whole) << row.file.constData();
        QStringList names;
        for (const ScriptNode& n : nodes)
            names << n.name;
        EXPECT_EQ(names, row.names) << row.file.constData();
        if (row.writesBack) {
            EXPECT_EQ(writeScript(nodes), row.file);
        }
    }
}

// Damaged scripts read without a crash, and what is read writes a script
// that reads the same again.
TEST(ScriptFile, DamagedAtRandom)
{
    std::mt19937 random(7);
    const QByteArray good = "\"1{}Maps\"\r\n\"2{Maps}Low{}set g{}4{}1\"\r\n\"3{Maps}Deep\"\r\n\"4{Deep}F{}c{}2{}0\"\r\n";
    for (int round = 0; round < 3000; ++round) {
        QByteArray file = good;
        for (int i = 0; i < 1 + int(random() % 6); ++i) {
            const int place = int(random() % (file.size() + 1));
            if (random() % 2 && place < file.size())
                file[place] = "{}\"\r\n0123xX"[random() % 11];
            else
                file.insert(place, char(random() % 256));
        }
        const QByteArray again = writeScript(readScript(file));
        EXPECT_EQ(writeScript(readScript(again)), again);
    }
}
