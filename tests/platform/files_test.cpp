#include "platform/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

void touch(const QString& path, const QByteArray& data = "x")
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(data);
}

TEST(FileLookup, FindsFilesWhateverTheirCaseOnDisk)
{
    QTemporaryDir tmp;
    QDir(tmp.path()).mkpath(QStringLiteral("BaseQ2/Players/Male"));
    touch(tmp.path() + QStringLiteral("/BaseQ2/PAK0.PAK"));
    touch(tmp.path() + QStringLiteral("/BaseQ2/Players/Male/Tris.MD2"));

    EXPECT_EQ(platform::resolvePath(tmp.path() + QStringLiteral("/baseq2/pak0.pak")),
              tmp.path() + QStringLiteral("/BaseQ2/PAK0.PAK"));
    EXPECT_TRUE(platform::fileExists(tmp.path() + QStringLiteral("/BASEQ2/players/male/tris.md2")));
    EXPECT_FALSE(platform::fileExists(tmp.path() + QStringLiteral("/baseq2/players")));
    EXPECT_TRUE(platform::folderExists(tmp.path() + QStringLiteral("/baseq2/PLAYERS")));
    EXPECT_FALSE(platform::fileExists(tmp.path() + QStringLiteral("/baseq2/pak1.pak")));
    EXPECT_TRUE(platform::resolvePath(QString()).isEmpty());
}

TEST(FileLookup, ExactSpellingWinsOverAnotherCase)
{
    QTemporaryDir tmp;
    touch(tmp.path() + QStringLiteral("/bots.cfg"), "lower");
    touch(tmp.path() + QStringLiteral("/BOTS.CFG"), "upper");
    EXPECT_EQ(platform::resolvePath(tmp.path() + QStringLiteral("/BOTS.CFG")), tmp.path() + QStringLiteral("/BOTS.CFG"));
    EXPECT_EQ(platform::resolvePath(tmp.path() + QStringLiteral("/bots.cfg")), tmp.path() + QStringLiteral("/bots.cfg"));
}

TEST(FolderListing, FiltersByPatternIgnoringCaseAndSorts)
{
    QTemporaryDir tmp;
    touch(tmp.path() + QStringLiteral("/b.TKD"));
    touch(tmp.path() + QStringLiteral("/A.tkd"));
    touch(tmp.path() + QStringLiteral("/c.tke"));
    QDir(tmp.path()).mkpath(QStringLiteral("d.tkd"));
    EXPECT_EQ(platform::listFiles(tmp.path(), {QStringLiteral("*.TKD")}),
              (QStringList{QStringLiteral("A.tkd"), QStringLiteral("b.TKD")}));
    EXPECT_EQ(platform::listFolders(tmp.path()), QStringList{QStringLiteral("d.tkd")});
    EXPECT_TRUE(platform::listFiles(tmp.path() + QStringLiteral("/missing")).isEmpty());
}

TEST(FolderListing, ExecutablesAreExecBitFilesAndExeFiles)
{
    QTemporaryDir tmp;
    touch(tmp.path() + QStringLiteral("/quake2"));
    QFile::setPermissions(tmp.path() + QStringLiteral("/quake2"), QFile::ReadOwner | QFile::ExeOwner);
    touch(tmp.path() + QStringLiteral("/Quake2.EXE"));
    touch(tmp.path() + QStringLiteral("/readme.txt"));
    EXPECT_EQ(platform::listExecutables(tmp.path()),
              (QStringList{QStringLiteral("quake2"), QStringLiteral("Quake2.EXE")}));
}

TEST(FolderListing, ModLibraryMayBeWindowsOrNative)
{
    QTemporaryDir a, b, c;
    touch(a.path() + QStringLiteral("/GameX86.DLL"));
    touch(b.path() + QStringLiteral("/game.so"));
    EXPECT_EQ(platform::findModLibrary(a.path()), QStringLiteral("GameX86.DLL"));
    EXPECT_EQ(platform::findModLibrary(b.path()), QStringLiteral("game.so"));
    EXPECT_TRUE(platform::findModLibrary(c.path()).isEmpty());
}

TEST(Paths, JoinAndSplitKeepTheRootFolder)
{
    EXPECT_EQ(platform::joinPath(QStringLiteral("/"), QStringLiteral("x")), QStringLiteral("/x"));
    EXPECT_EQ(platform::joinPath(QStringLiteral("/a"), QStringLiteral("x")), QStringLiteral("/a/x"));
    EXPECT_EQ(platform::folderOf(QStringLiteral("/quake2")), QStringLiteral("/"));
    EXPECT_EQ(platform::folderOf(QStringLiteral("/a b/quake2")), QStringLiteral("/a b"));
}

} // namespace
