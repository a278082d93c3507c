// The location files: one quoted record with CR LF; anything else counts as
// missing, and a rewrite keeps the spelling of the file that is there.
#include "wizard/Globals.h"
#include "wizard/Locations.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace torvik;

namespace {

TEST(Locations, Records)
{
    const std::pair<QByteArray, QString> rows[] = {
        {"\"/games/quake 2/quake2\"\r\n", "/games/quake 2/quake2"},
        {"\"/q2/quake2\"", "/q2/quake2"},
        {"\"/q2/quake2\"\n", "/q2/quake2"},
        {"", ""},
        {"\"\"\r\n", ""},
        {"/q2/quake2\r\n", ""},
        {"\"/q2/qua", ""},
        {QByteArray("\"/q2\0x\"", 7), ""},
        {"\"/q2\r\nquake2\"\r\n", ""},
    };
    for (const auto& [bytes, value] : rows)
        EXPECT_EQ(parseLocationRecord(bytes), value) << bytes.toStdString();
    EXPECT_EQ(locationRecord("/a b/GAMEX86.DLL"), QByteArray("\"/a b/GAMEX86.DLL\"\r\n"));
}

TEST(Locations, RewriteKeepsTheSpellingOnDisk)
{
    QTemporaryDir tmp;
    ProgramFolder = tmp.path();
    ASSERT_TRUE(writeLocationFile("quake2.loc", "/x y/quake2"));
    EXPECT_EQ(readLocationFile(tmp.path() + "/QUAKE2.LOC"), "/x y/quake2");
    QFile::rename(tmp.path() + "/quake2.loc", tmp.path() + "/QUAKE2.LOC");
    ASSERT_TRUE(writeLocationFile("quake2.loc", "/new/quake2"));
    EXPECT_EQ(QDir(tmp.path()).entryList(QDir::Files), QStringList{"QUAKE2.LOC"});
    EXPECT_EQ(readLocationFile(tmp.path() + "/quake2.loc"), "/new/quake2");
}

} // namespace
