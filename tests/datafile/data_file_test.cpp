// The saved answers' two files over plain bytes: the places where fields
// meet, the readings that lose something on purpose, and files damaged at
// random. The journeys check whole files of each game type.
#include "datafile/DataFile.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

using namespace datafile;

namespace {

SavedAnswers base()
{
    SavedAnswers a;
    a.map = QStringLiteral("q2dm1");
    a.skillName = QStringLiteral("Easy");
    a.texts = {{"Text13", "Player"}, {"Text16", "10"}, {"Text14", "5"}, {"Text10", "32"}, {"Text11", "10"},
               {"Text4", "20"},      {"Text3", "20"},  {"Text5", "1"},  {"Text15", "2"},  {"Text1", "3"},
               {"Advanced.Text1", "100"}, {"Advanced.Text2", "100"}, {"Advanced.Text3", "100"},
               {"Advanced.Text4", "100"}};
    a.randomSlider = 3;
    return a;
}

QByteArray at(const QByteArray& file, int place, int size) { return file.mid(place - 1, size); }

} // namespace

TEST(DataFile, Places)
{
    struct Row {
        const char* what;
        std::function<void(SavedAnswers&)> change;
        int place;
        QByteArray bytes;
    };
    const QByteArray counted = QByteArray("\x08\x00", 2);
    auto bytes = [](const char* text, int size) { return QByteArray(text, size); };
    const Row rows[] = {
        {"dedicated box at 66", [](SavedAnswers& a) { a.checks["Advanced.Check16"] = true; }, 64, bytes("0\0" "1", 3)},
        {"quoted name, its last byte taken by Text14", [](SavedAnswers&) {}, 117,
         "\"Player\"" + QByteArray(16, ' ') + "5"},
        {"no bot chosen ends part two at 246", [](SavedAnswers& a) { a.randomBots = false; }, 246, bytes(" \0" "0", 3)},
        {"tail digits", [](SavedAnswers& a) { a.handIndex = 0; a.crosshairIndex = 3; a.teamChoice = 2; a.rateIndex = 9; },
         252, bytes("0\0" "3\0" "2\0" "0", 7)},
        {"address, model and skin", [](SavedAnswers& a) { a.model = "male"; a.skin = "grunt"; }, 290,
         "100.100.100.100." + QByteArray(9, ' ') + QByteArray(7, '\0') + bytes("0\0", 2) + counted + char(13) + '\0' +
             "#male/grunt #"},
    };
    for (const Row& row : rows) {
        SavedAnswers a = base();
        row.change(a);
        const QByteArray file = writeDataFile(a);
        EXPECT_EQ(at(file, row.place, int(row.bytes.size())), row.bytes) << row.what;
        // Read back and written again, the file is the same.
        const ReadResult back = readDataFile(file);
        EXPECT_EQ(back.status, ReadResult::Loaded) << row.what;
        EXPECT_EQ(writeDataFile(back.answers), file) << row.what;
    }
}

TEST(DataFile, LossyReadings)
{
    struct Row {
        const char* what;
        std::function<void(SavedAnswers&)> change;
        std::function<QString(const SavedAnswers&)> read;
        QString expected;
    };
    const Row rows[] = {
        {"long map cut at 21", [](SavedAnswers& a) { a.map = "abcdefghijklmnopqrs"; }, [](auto& a) { return a.map; },
         "abcdefghijklmnopqr0"},
        {"blank in map dropped", [](SavedAnswers& a) { a.map = "my map"; }, [](auto& a) { return a.map; }, "mymap"},
        {"22-letter name runs on", [](SavedAnswers& a) { a.texts["Text13"] = QString(22, 'n'); },
         [](auto& a) { return a.texts["Text13"]; }, QString(22, 'n') + "5"},
        {"empty capture limit", [](SavedAnswers& a) { a.texts["Text16"] = ""; },
         [](auto& a) { return a.texts["Text16"]; }, ""},
        {"no bot chosen reads the model as a red bot", [](SavedAnswers& a) { a.randomBots = false; a.model = "male";
                                                                             a.skin = "grunt"; },
         [](auto& a) { return a.redBots.join(','); }, "nt"},
    };
    for (const Row& row : rows) {
        SavedAnswers a = base();
        row.change(a);
        const ReadResult back = readDataFile(writeDataFile(a));
        EXPECT_EQ(back.status, ReadResult::Loaded) << row.what;
        EXPECT_EQ(row.read(back.answers), row.expected) << row.what;
    }
    EXPECT_EQ(readDataFile(QByteArray()).status, ReadResult::Old);
    EXPECT_EQ(readDataFile("18q2dm1").status, ReadResult::Old);
    EXPECT_EQ(readDataFile("49base1").status, ReadResult::Loaded);
    EXPECT_EQ(readDataFile("19q2dm1").status, ReadResult::Damaged);
    EXPECT_EQ(readDataFile(writeDataFile(base()).replace(38 - 1, 1, "x")).status, ReadResult::Damaged);
}

TEST(DataFile, Companion)
{
    const QList<FlagState> flags = readCompanion("\"Bot Speed{}5\"\r\n\"Low Gravity{}1\"\r\n\"no brace\"\r\n");
    ASSERT_EQ(flags.size(), 2);
    EXPECT_EQ(writeCompanion(flags), "\"Bot Speed{}5\"\r\n\"Low Gravity{}1\"\r\n");
    EXPECT_EQ(readCompanion("\"" + QByteArray(100000, 'x') + "{}1\"\r\n").at(0).name.size(), 100000);
}

// Damaged files read without a crash and either load or are refused; what
// loads writes a file that reads the same again.
TEST(DataFile, DamagedAtRandom)
{
    std::mt19937 random(12);
    SavedAnswers a = base();
    a.randomBots = false;
    a.chosenCount = "1";
    a.bots = {"Ann"};
    const QByteArray good = writeDataFile(a);
    for (int round = 0; round < 3000; ++round) {
        QByteArray file = good;
        const int changes = 1 + int(random() % 8);
        for (int i = 0; i < changes; ++i) {
            const int kind = int(random() % 3);
            const int place = int(random() % (file.size() + 1));
            if (kind == 0 && place < file.size())
                file[place] = char(random() % 256);
            else if (kind == 1)
                file.truncate(place);
            else
                file.insert(place, char(random() % 256));
        }
        const ReadResult back = readDataFile(file);
        if (back.status != ReadResult::Loaded || back.singlePlayer)
            continue;
        const QByteArray again = writeDataFile(back.answers);
        const ReadResult third = readDataFile(again);
        ASSERT_EQ(third.status, ReadResult::Loaded);
        EXPECT_EQ(writeDataFile(third.answers), again);
    }
    // A companion of any bytes gives flags that write and read back the same.
    for (int round = 0; round < 300; ++round) {
        QByteArray file(int(random() % 64), '\0');
        for (char& c : file)
            c = "{}\"\r\n15x"[random() % 8];
        const QList<FlagState> flags = readCompanion(file);
        EXPECT_EQ(writeCompanion(readCompanion(writeCompanion(flags))), writeCompanion(flags));
    }
    // Ten megabytes of a file of another kind, and of one that passes the mark.
    QByteArray big(10 * 1024 * 1024, ' ');
    EXPECT_EQ(readDataFile(big).status, ReadResult::Old);
    EXPECT_EQ(readDataFile(big.replace(0, 2, "29")).status, ReadResult::Damaged);
}
