// Every file Torvik writes survives a write that can't be completed: a file
// the user locked, a folder standing in the file's place, a disk that fills
// up (a file size limit stands in for it). The old bytes and mode stay.
#include "bots/BotStore.h"
#include "harness/Doubles.h"
#include "maps/MapCycles.h"
#include "media/Graphics.h"
#include "platform/Files.h"
#include "platform/ProgramContext.h"
#include "wizard/Locations.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <optional>
#include <sys/resource.h>

namespace {

struct Writer {
    const char* what;
    QString file;                // below the scratch folder
    std::function<bool()> write; // true when it reports success
};

enum class Obstacle { ReadOnly, FolderInPlace, DiskFull };

// A size limit makes every write past a few bytes fail with EFBIG.
class SizeLimit {
public:
    SizeLimit()
    {
        getrlimit(RLIMIT_FSIZE, &old_);
        previous_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit small = old_;
        small.rlim_cur = 4;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, previous_);
    }

private:
    rlimit old_{};
    void (*previous_)(int) = nullptr;
};

void put(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly)) << path.toStdString();
    f.write(bytes);
}

TEST(SafeWrites, ARefusedWriteLeavesTheOldFile)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString root = tmp.path();
    harness::RecordingDialogs dialogs;
    auto& context = platform::programContext;
    context.programFolder = root;
    context.gorvanLocation = root + QStringLiteral("/gorvan/GAMEX86.DLL");
    for (const char* folder : {"/gorvan", "/Saved", "/repair"})
        QDir().mkpath(root + QLatin1String(folder));
    put(root + QStringLiteral("/repair/TKGraphics.dll"), "a spare copy of the picture component");

    const torvik::BotRecord bot{QStringLiteral("Ranger"), QStringLiteral("male/ranger"), 3, 3, 3, 1, 0, 0, 50};
    const Writer writers[] = {
        {"the writer itself", "notes.txt", [&] { return platform::writeFile(root + "/notes.txt", "new text"); }},
        {"quake2.loc", "quake2.loc",
         [] { return torvik::writeLocationFile(QStringLiteral("quake2.loc"), QStringLiteral("/games/q2/quake2")); }},
        {"bots.cfg (bots)", "gorvan/bots.cfg", [&] { return torvik::SaveBots({bot}); }},
        {"bots.cfg (teams)", "gorvan/bots.cfg", [&] { return torvik::SaveFile({bot}, {}); }},
        {"a saved cycle", "Saved/Duel.mc", [] { return torvik::SaveMapCycle(QStringLiteral("Duel"), {"q2dm1"}); }},
        {"maps.txt at Start", "gorvan/maps.txt", [] { return torvik::replaceCurrentCycle(QStringLiteral("Duel")); }},
        {"the picture component", "TKGraphics.dll", [&] { return media::GraphicsComponent::repair(root); }},
    };
    const QByteArray old = "[bots]\r\nold bytes the user wants to keep\r\n[teams]\r\n";
    for (const Obstacle obstacle : {Obstacle::ReadOnly, Obstacle::FolderInPlace, Obstacle::DiskFull}) {
        for (const Writer& w : writers) {
            const std::string label = std::string(w.what) + ", obstacle " + std::to_string(int(obstacle));
            const QString path = root + QLatin1Char('/') + w.file;
            // The cycle put in force at Start must be there to be read.
            const QString duel = root + QStringLiteral("/Saved/Duel.mc");
            QDir(duel).removeRecursively();
            QFile::setPermissions(duel, QFile::ReadOwner | QFile::WriteOwner);
            put(duel, "q2dm2\r\n\r\n");
            QDir(path).removeRecursively();
            QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
            QFile::remove(path);
            QFileDevice::Permissions mode;
            if (obstacle == Obstacle::FolderInPlace) {
                ASSERT_TRUE(QDir().mkpath(path + QStringLiteral("/inside")));
            } else {
                put(path, old);
                if (obstacle == Obstacle::ReadOnly)
                    QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup);
                mode = QFile::permissions(path);
            }
            bool written = false;
            {
                std::optional<SizeLimit> limit;
                if (obstacle == Obstacle::DiskFull)
                    limit.emplace();
                written = w.write();
            }
            EXPECT_FALSE(written) << label;
            if (obstacle == Obstacle::FolderInPlace) {
                EXPECT_TRUE(QFileInfo(path + QStringLiteral("/inside")).isDir()) << label;
                continue;
            }
            QByteArray now;
            EXPECT_TRUE(platform::readFile(path, now)) << label;
            EXPECT_EQ(now, old) << label;
            EXPECT_EQ(QFile::permissions(path), mode) << label;
            // Nothing half-written is left beside it either.
            EXPECT_EQ(QDir(QFileInfo(path).path()).entryList(QDir::Files | QDir::Hidden).filter(QStringLiteral(".tmp")),
                      QStringList())
                << label;
        }
    }
    // The bots file writers and the cycle saver tell the user each time.
    EXPECT_EQ(dialogs.boxes.size(), 9u);
    context = {};
}

} // namespace

// A file put back from a backup outlives the saves on the way out; others are written.
TEST(SafeWrites, ARestoredFileOutlivesTheSavesAtTheEnd)
{
    QTemporaryDir tmp;
    const QString restored = tmp.path() + QStringLiteral("/Script.TK"), other = tmp.path() + QStringLiteral("/x");
    put(restored, "restored");
    platform::keepRestoredFile(restored);
    platform::programContext.ended = true;
    const bool saved = platform::writeFile(tmp.path() + QStringLiteral("/script.tk"), "lost") && platform::writeFile(other, "+");
    platform::programContext.ended = false;
    QByteArray a, b;
    EXPECT_TRUE(saved && platform::readFile(restored, a) && platform::readFile(other, b));
    EXPECT_EQ(a + b, QByteArray("restored+"));
}
