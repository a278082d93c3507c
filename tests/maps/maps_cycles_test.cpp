// Map cycle files, the cycle lists, titles and putting a saved cycle in force.
#include "Doubles.h"
#include "PakBuilder.h"
#include "maps/MapCycles.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "wizard/Globals.h"

#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

using namespace torvik;
using namespace mapstest;

namespace {

// Every file below a folder with its bytes, to show that nothing else moved.
QMap<QString, QByteArray> snapshot(const QString& folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        files.insert(path, readBytes(path));
    }
    return files;
}

class MapsCycleFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        program = dir.path() + QStringLiteral("/torvik");
        game = dir.path() + QStringLiteral("/quake2");
        mod = game + QStringLiteral("/gorvan");
        ASSERT_TRUE(QDir().mkpath(program + QStringLiteral("/Saved")));
        ASSERT_TRUE(QDir().mkpath(mod));
        ProgramFolder = program;
        Quake2Location = game + QStringLiteral("/quake2");
        GorvanLocation = mod + QStringLiteral("/gamex86.dll");
    }
    QString saved(const QString& file) const { return program + QStringLiteral("/Saved/") + file; }

    QTemporaryDir dir;
    QString program, game, mod;
};

// --- the file format ---

TEST(MapsCycleFile, ReaderSkipsExactlyEmptyLinesAndTrimsNothing)
{
    EXPECT_EQ(parseMapCycle("q2dm1\r\nbase1\r\n\r\n"), (QStringList{"q2dm1", "base1"}));
    EXPECT_EQ(parseMapCycle("\r\n\r\na\r\n\r\n\r\nb"), (QStringList{"a", "b"}));
    EXPECT_EQ(parseMapCycle("  \r\n\tx \r\n"), (QStringList{"  ", "\tx "}));
    // Files edited elsewhere: lone LF or CR line ends.
    EXPECT_EQ(parseMapCycle("a\nb\n"), (QStringList{"a", "b"}));
    EXPECT_EQ(parseMapCycle("a\rb\r"), (QStringList{"a", "b"}));
    EXPECT_EQ(parseMapCycle("dup\r\ndup\r\n"), (QStringList{"dup", "dup"}));
    EXPECT_TRUE(parseMapCycle("").isEmpty());
    EXPECT_TRUE(parseMapCycle("\r\n").isEmpty());
    // Names keep the file system's bytes; a Windows-made file reads as Latin-1.
    EXPECT_EQ(parseMapCycle("na\xc3\xafve\r\n"), QStringList{QStringLiteral("na\u00efve")});
    EXPECT_EQ(parseMapCycle("caf\xe9\r\n"), QStringList{QString::fromLatin1("caf\xe9")});
}

TEST(MapsCycleFile, WriterEndsEveryLineWithCrLfAndAddsOneEmptyLine)
{
    EXPECT_EQ(mapCycleText({"q2dm1", "base1"}), QByteArray("q2dm1\r\nbase1\r\n\r\n"));
    const QStringList maps{"q2dm1", "  ", "sub/x", "dup", "dup", QString::fromLatin1("caf\xe9")};
    EXPECT_EQ(parseMapCycle(mapCycleText(maps)), maps);
    EXPECT_TRUE(mapCycleText(maps).endsWith("\xc3\xa9\r\n\r\n"));
}

TEST_F(MapsCycleFixture, SavedCycleRoundTripAndTheCycleList)
{
    harness::RecordingDialogs boxes;
    const QStringList cycle{"q2dm1", "gorvan_pit", "q2dm1", "base1"};
    ASSERT_TRUE(SaveMapCycle(QStringLiteral("CTF1"), cycle));
    EXPECT_EQ(readBytes(saved("CTF1.mc")), mapCycleText(cycle));
    EXPECT_EQ(readSavedMapCycle(QStringLiteral("CTF1")), cycle);
    writeBytes(saved("Another.MC"), "x\r\n");
    writeBytes(saved("notes.txt"), "not a cycle");
    EXPECT_EQ(LoadMapCycles(), (QStringList{kCurrentMapCycle, "Another", "CTF1"}));
    EXPECT_EQ(savedCycleTitles(), (QStringList{"Another", "CTF1"}));
    // Saving again replaces the file whole.
    ASSERT_TRUE(SaveMapCycle(QStringLiteral("CTF1"), {"only"}));
    EXPECT_EQ(readSavedMapCycle(QStringLiteral("CTF1")), QStringList{"only"});
    EXPECT_TRUE(deleteSavedCycle(QStringLiteral("another")));
    EXPECT_FALSE(deleteSavedCycle(QStringLiteral("another")));
    EXPECT_EQ(LoadMapCycles(), (QStringList{kCurrentMapCycle, "CTF1"}));
    EXPECT_TRUE(boxes.boxes.empty());
    EXPECT_FALSE(readSavedMapCycle(QStringLiteral("gone")).has_value());
}

TEST_F(MapsCycleFixture, TitleMapsTxtMeansTheModsOwnFileInItsSpelling)
{
    harness::RecordingDialogs boxes;
    writeBytes(mod + "/Maps.TXT", "old\r\n\r\n\r\nmaps\r\n");
    // A pass through the editor loses the blank lines.
    const std::optional<QStringList> current = readCurrentMapCycle();
    ASSERT_TRUE(current.has_value());
    EXPECT_EQ(*current, (QStringList{"old", "maps"}));
    ASSERT_TRUE(SaveMapCycle(kCurrentCycleTitle, *current));
    EXPECT_EQ(readBytes(mod + "/Maps.TXT"), QByteArray("old\r\nmaps\r\n\r\n"));
    EXPECT_FALSE(QFile::exists(mod + "/maps.txt"));
    EXPECT_FALSE(QFile::exists(saved("Maps.txt.mc")));

    // Only the exact title does that: "maps.txt" is a saved cycle.
    ASSERT_TRUE(SaveMapCycle(QStringLiteral("maps.txt"), {"other"}));
    EXPECT_EQ(readBytes(saved("maps.txt.mc")), mapCycleText({"other"}));
    EXPECT_EQ(readBytes(mod + "/Maps.TXT"), QByteArray("old\r\nmaps\r\n\r\n"));
    EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(MapsCycleFixture, SavingNothingOrOutsideTheFolderWritesNothing)
{
    harness::RecordingDialogs boxes;
    writeBytes(saved("CTF1.mc"), "keep\r\n");
    writeBytes(mod + "/maps.txt", "keep too\r\n");
    const QMap<QString, QByteArray> before = snapshot(dir.path());

    boxes.queueAnswer(platform::Answer::Ok, std::nullopt, kNothingToSaveText);
    EXPECT_FALSE(SaveMapCycle(QStringLiteral("CTF1"), {}));
    for (const QString& title : {QStringLiteral("../escape"), QStringLiteral("a/b"), QStringLiteral("/tmp/x"),
                                 QStringLiteral("..") + QChar(0) + QStringLiteral("x")}) {
        boxes.queueAnswer(platform::Answer::Ok, std::nullopt, kTitleBadCharacterText);
        EXPECT_FALSE(SaveMapCycle(title, {"q2dm1"})) << title.toStdString();
    }
    EXPECT_EQ(snapshot(dir.path()), before);
    EXPECT_TRUE(boxes.problems.isEmpty()) << boxes.problems.join('\n').toStdString();
    EXPECT_TRUE(boxes.queued().empty());
    EXPECT_EQ(boxes.boxes.size(), 5u);
}

TEST_F(MapsCycleFixture, SavePathOfAProgramFolderAtTheRootRunsTitleOntoSaved)
{
    EXPECT_EQ(cycleSavePath(QStringLiteral("CTF1")), saved("CTF1.mc"));
    ProgramFolder = QStringLiteral("/");
    EXPECT_EQ(cycleSavePath(QStringLiteral("CTF1")), QStringLiteral("/SavedCTF1.mc"));
    EXPECT_EQ(cycleSavePath(kCurrentCycleTitle), mod + "/maps.txt");
    EXPECT_TRUE(cycleSavePath(QStringLiteral("a/b")).isEmpty());
}

// --- titles of new cycles ---

TEST(MapsCycleTitle, FifteenCharactersAndNamesAFileCanHold)
{
    EXPECT_EQ(checkCycleTitle(QString(15, QLatin1Char('x'))), CycleTitleCheck::Ok);
    EXPECT_EQ(checkCycleTitle(QString(16, QLatin1Char('x'))), CycleTitleCheck::TooLong);
    EXPECT_EQ(checkCycleTitle(QString()), CycleTitleCheck::Empty);
    EXPECT_EQ(checkCycleTitle(QStringLiteral("CTF 1 (night)")), CycleTitleCheck::Ok);
    EXPECT_EQ(checkCycleTitle(kCurrentCycleTitle), CycleTitleCheck::Ok);
    EXPECT_EQ(checkCycleTitle(QStringLiteral("1v1: DM?")), CycleTitleCheck::Ok);
    EXPECT_EQ(checkCycleTitle(QStringLiteral("a\\b <x>|*")), CycleTitleCheck::Ok);
    for (const QString& bad : {QStringLiteral("a/b"), QStringLiteral("../up"), QStringLiteral("nul") + QChar(0)})
        EXPECT_EQ(checkCycleTitle(bad), CycleTitleCheck::BadCharacter) << bad.toStdString();
    // Too long wins over bad characters: that is what the user hears first.
    EXPECT_EQ(checkCycleTitle(QStringLiteral("////////////////")), CycleTitleCheck::TooLong);
}

TEST(MapsCycleTitle, AskedAgainUntilItFitsOrTheUserGivesUp)
{
    harness::RecordingDialogs boxes;
    boxes.queueInput(QString(16, QLatin1Char('a')), kCycleTitleBoxTitle, kCycleTitlePrompt);
    boxes.queueAnswer(platform::Answer::Ok, std::nullopt, QStringLiteral("File name to long...Try again."));
    boxes.queueInput(QStringLiteral("../up"), kCycleTitleBoxTitle, kCycleTitlePrompt);
    boxes.queueAnswer(platform::Answer::Ok, std::nullopt, kTitleBadCharacterText);
    boxes.queueInput(QString(15, QLatin1Char('b')), kCycleTitleBoxTitle, kCycleTitlePrompt);
    EXPECT_EQ(askCycleTitle(), QString(15, QLatin1Char('b')));
    EXPECT_TRUE(boxes.problems.isEmpty()) << boxes.problems.join('\n').toStdString();
    EXPECT_TRUE(boxes.queued().empty());

    boxes.queueInput(QString(), kCycleTitleBoxTitle, kCycleTitlePrompt);
    EXPECT_TRUE(askCycleTitle().isEmpty());
    EXPECT_TRUE(boxes.problems.isEmpty()) << boxes.problems.join('\n').toStdString();
    EXPECT_EQ(boxes.boxes.size(), 6u);
}

// --- putting a cycle in force before the game starts ---

TEST_F(MapsCycleFixture, CurrentMapCycleLeavesMapsTxtByteForByte)
{
    // Odd bytes on purpose: blank lines, LF only, no final line end.
    const QByteArray odd("q2dm1\r\n\r\n  \nbase1\rlast");
    writeBytes(mod + "/maps.txt", odd);
    writeBytes(saved("CTF1.mc"), "q2ctf1\r\n\r\n");
    const QMap<QString, QByteArray> before = snapshot(dir.path());
    EXPECT_TRUE(FixMapCycle(kCurrentMapCycle));
    // A drop-down never filled (the maps were never read) has an empty text
    // and an empty first row: nothing to do either.
    EXPECT_TRUE(FixMapCycle(QString(), QString()));
    EXPECT_EQ(snapshot(dir.path()), before);
}

TEST_F(MapsCycleFixture, ChosenCycleReplacesMapsTxtWithItsExactBytes)
{
    writeBytes(mod + "/Maps.TXT", "old\r\n");
    const QByteArray cycle("q2ctf1\r\n\r\n  \nodd\xff");
    writeBytes(saved("CTF1.MC"), cycle);
    const QByteArray savedBefore = readBytes(saved("CTF1.MC"));
    EXPECT_TRUE(FixMapCycle(QStringLiteral("CTF1")));
    // Under the spelling the mod folder already had, and only there.
    EXPECT_EQ(readBytes(mod + "/Maps.TXT"), cycle);
    EXPECT_EQ(QDir(mod).entryList(QDir::Files), QStringList{"Maps.TXT"});
    EXPECT_EQ(readBytes(saved("CTF1.MC")), savedBefore);

    // No maps.txt yet: it is made.
    QFile::remove(mod + "/Maps.TXT");
    EXPECT_TRUE(FixMapCycle(QStringLiteral("CTF1")));
    EXPECT_EQ(readBytes(mod + "/maps.txt"), cycle);
}

TEST_F(MapsCycleFixture, MissingCycleKeepsMapsTxtAndSaysWhy)
{
    writeBytes(mod + "/maps.txt", "keep\r\n");
    QString why;
    EXPECT_FALSE(replaceCurrentCycle(QStringLiteral("gone"), &why));
    EXPECT_TRUE(why.contains(QStringLiteral("gone.mc"))) << why.toStdString();
    EXPECT_FALSE(replaceCurrentCycle(QStringLiteral("../torvik/Saved/x"), &why));
    EXPECT_EQ(readBytes(mod + "/maps.txt"), QByteArray("keep\r\n"));

    // A mod folder that isn't there can't take the copy.
    writeBytes(saved("CTF1.mc"), "q2ctf1\r\n");
    GorvanLocation = dir.path() + QStringLiteral("/nowhere/gamex86.dll");
    EXPECT_FALSE(replaceCurrentCycle(QStringLiteral("CTF1"), &why));
    EXPECT_FALSE(why.isEmpty());
}

// Writes each box to stderr and ends the process where the program would end,
// so the death test sees both.
class StderrDialogs : public platform::DialogService {
public:
    platform::Answer message(const QString& text, const QString&, platform::Buttons, platform::Icon) override
    {
        std::fprintf(stderr, "box: %s\n", text.toLocal8Bit().constData());
        std::fflush(stderr);
        return platform::Answer::Ok;
    }
    QString input(const QString&, const QString&, const QString&) override { return QString(); }
    void beep() override {}
};

TEST_F(MapsCycleFixture, FailureTellsTheUserAndEndsTheProgram)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            StderrDialogs dialogs;
            platform::setDialogs(&dialogs);
            platform::setExitHandler([](int code) { std::_Exit(40 + code); });
            FixMapCycle(QStringLiteral("gone"));
            std::_Exit(1); // the program went on
        },
        ::testing::ExitedWithCode(40), "box: Error! Couldn't fix up the map cycle\\. Ending Torvik\\.");
}

} // namespace
