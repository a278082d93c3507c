#include "platform/Files.h"
#include "wizard/Globals.h"
#include "wizard/Launch.h"
#include "wizard/Locations.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace torvik;

namespace {

void write(const QString& path, const QByteArray& data)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(data);
}

TEST(LocationRecord, ReadsTheQuotedValue)
{
    EXPECT_EQ(parseLocationRecord("\"/games/quake 2/quake2\"\r\n"), QStringLiteral("/games/quake 2/quake2"));
    EXPECT_EQ(parseLocationRecord("\"/q2/quake2\""), QStringLiteral("/q2/quake2"));
    EXPECT_EQ(parseLocationRecord("\"/q2/quake2\"\n"), QStringLiteral("/q2/quake2"));
}

TEST(LocationRecord, DamagedFilesCountAsMissing)
{
    EXPECT_TRUE(parseLocationRecord("").isEmpty());
    EXPECT_TRUE(parseLocationRecord("\"\"\r\n").isEmpty());
    EXPECT_TRUE(parseLocationRecord("/q2/quake2\r\n").isEmpty());       // unquoted
    EXPECT_TRUE(parseLocationRecord("\"/q2/qua").isEmpty());             // cut off
    EXPECT_TRUE(parseLocationRecord(QByteArray("\"/q2\0x\"", 7)).isEmpty()); // binary
    EXPECT_TRUE(parseLocationRecord("\"/q2\r\nquake2\"\r\n").isEmpty());
}

TEST(LocationRecord, WritesQuotedValueWithCrLfAndReadsItBack)
{
    EXPECT_EQ(locationRecord(QStringLiteral("/a b/GAMEX86.DLL")), QByteArray("\"/a b/GAMEX86.DLL\"\r\n"));
    QTemporaryDir tmp;
    ProgramFolder = tmp.path();
    ASSERT_TRUE(writeLocationFile(QStringLiteral("quake2.loc"), QStringLiteral("/x y/quake2")));
    EXPECT_EQ(readLocationFile(tmp.path() + QStringLiteral("/QUAKE2.LOC")), QStringLiteral("/x y/quake2"));
}

TEST(LocationRecord, RewritesAnExistingFileUnderItsOwnSpelling)
{
    QTemporaryDir tmp;
    ProgramFolder = tmp.path();
    write(tmp.path() + QStringLiteral("/QUAKE2.LOC"), "\"/old/quake2\"\r\n");
    ASSERT_TRUE(writeLocationFile(QStringLiteral("quake2.loc"), QStringLiteral("/new/quake2")));
    EXPECT_EQ(QDir(tmp.path()).entryList(QDir::Files), QStringList{QStringLiteral("QUAKE2.LOC")});
    EXPECT_EQ(readLocationFile(tmp.path() + QStringLiteral("/quake2.loc")), QStringLiteral("/new/quake2"));
}

TEST(DerivedFolders, GameAndModFoldersComeFromTheLocations)
{
    Quake2Location = QStringLiteral("/games/quake 2/quake2");
    GorvanLocation = QStringLiteral("/games/quake 2/gorvan/GAMEX86.DLL");
    EXPECT_EQ(gameFolder(), QStringLiteral("/games/quake 2"));
    EXPECT_EQ(modFolder(), QStringLiteral("/games/quake 2/gorvan"));
    EXPECT_EQ(modShortName(), QStringLiteral("gorvan"));
    GorvanLocation = QStringLiteral("/GAMEX86.DLL");
    EXPECT_EQ(modFolder(), QStringLiteral("/"));
}

TEST(KillFiles, RemovesLeftoversEvenReadOnlyAndKeepsOtherFiles)
{
    QTemporaryDir tmp;
    const QString program = tmp.path() + QStringLiteral("/prog");
    const QString game = tmp.path() + QStringLiteral("/game");
    QDir().mkpath(program);
    QDir().mkpath(game + QStringLiteral("/BaseQ2"));
    QDir().mkpath(game + QStringLiteral("/gorvan"));
    ProgramFolder = program;
    Quake2Location = game + QStringLiteral("/quake2");
    GorvanLocation = game + QStringLiteral("/gorvan/GAMEX86.DLL");
    write(program + QStringLiteral("/ASDF.CFG"), "a");
    write(game + QStringLiteral("/BaseQ2/asdf.cfg"), "b");
    QFile::setPermissions(game + QStringLiteral("/BaseQ2/asdf.cfg"), QFile::ReadOwner);
    write(game + QStringLiteral("/gorvan/Launcher.cfg"), "c");
    write(game + QStringLiteral("/gorvan/asdf.cfg"), "d");
    write(game + QStringLiteral("/gorvan/bots.cfg"), "keep");

    KillFiles();

    EXPECT_FALSE(platform::fileExists(program + QStringLiteral("/asdf.cfg")));
    EXPECT_FALSE(platform::fileExists(game + QStringLiteral("/baseq2/asdf.cfg")));
    EXPECT_FALSE(platform::fileExists(game + QStringLiteral("/gorvan/launcher.cfg")));
    EXPECT_FALSE(platform::fileExists(game + QStringLiteral("/gorvan/asdf.cfg")));
    EXPECT_TRUE(platform::fileExists(game + QStringLiteral("/gorvan/bots.cfg")));
}

} // namespace
