// The demo install is what the scenario tests and a developer's first run
// stand on, so these tests read it back with readers of their own, written
// from the file formats rather than from the generator.
#include "demo/DemoInstall.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <optional>

namespace {

QByteArray readAll(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return f.readAll();
}

// The entry of folder whose name matches without regard to case, as Torvik
// looks files up; empty if none or if the match is ambiguous.
QString findIgnoringCase(const QString& folder, const QString& relative)
{
    QString path = folder;
    for (const QString& part : relative.split(QLatin1Char('/'))) {
        QStringList hits;
        for (const QString& e : QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
            if (e.compare(part, Qt::CaseInsensitive) == 0)
                hits << e;
        if (hits.size() != 1)
            return {};
        path += QLatin1Char('/') + hits.first();
    }
    return path;
}

qint32 le32(const QByteArray& data, qsizetype at)
{
    quint32 v = 0;
    for (int i = 3; i >= 0; --i)
        v = (v << 8) | quint8(data[at + i]);
    return qint32(v);
}

int le16(const QByteArray& data, qsizetype at) { return quint8(data[at]) | (quint8(data[at + 1]) << 8); }

// --- PAK directory reader ---

struct PakEntry {
    QString name;
    qint32 position;
    qint32 length;
};

// Reads the directory the way the map catalogue does, but strictly: any
// entry or member outside the file, or a name without its NUL, is a fault.
std::optional<QList<PakEntry>> readPak(const QString& path, QString* why)
{
    const QByteArray data = readAll(path);
    if (data.size() < 12 || !data.startsWith("PACK")) {
        *why = QStringLiteral("no PACK header");
        return std::nullopt;
    }
    const qint32 dirOffset = le32(data, 4);
    const qint32 dirLength = le32(data, 8);
    if (dirOffset < 12 || dirLength < 0 || dirLength % 64 != 0 || qsizetype(dirOffset) + dirLength > data.size()) {
        *why = QStringLiteral("directory %1+%2 doesn't fit a file of %3").arg(dirOffset).arg(dirLength).arg(data.size());
        return std::nullopt;
    }
    QList<PakEntry> entries;
    for (qint32 pos = dirOffset; pos < dirOffset + dirLength; pos += 64) {
        const QByteArray rawName = data.mid(pos, 56);
        const qsizetype nul = rawName.indexOf('\0');
        if (nul < 0) {
            *why = QStringLiteral("entry at %1 has no NUL in its name").arg(pos);
            return std::nullopt;
        }
        PakEntry e{QString::fromLatin1(rawName.left(nul)), le32(data, pos + 56), le32(data, pos + 60)};
        if (e.position < 12 || e.length < 0 || qsizetype(e.position) + e.length > dirOffset) {
            *why = QStringLiteral("member %1 lies outside the data area").arg(e.name);
            return std::nullopt;
        }
        entries << e;
    }
    return entries;
}

QStringList names(const QList<PakEntry>& entries)
{
    QStringList out;
    for (const PakEntry& e : entries)
        out << e.name;
    return out;
}

// Map names as the catalogue takes them: "maps/" and ".bsp", both case-sensitive.
QStringList mapNames(const QStringList& members)
{
    QStringList out;
    for (const QString& m : members)
        if (m.startsWith(QLatin1String("maps/")) && m.endsWith(QLatin1String(".bsp")))
            out << m.mid(5, m.size() - 9);
    return out;
}

// The title a map reader finds in a BSP that begins at offset of data.
QString bspTitle(const QByteArray& data, qsizetype offset)
{
    if (data.mid(offset, 4) != "IBSP" || le32(data, offset + 4) != 38)
        return {};
    const qint32 entOffset = le32(data, offset + 8);
    const qint32 entLength = le32(data, offset + 12);
    const QByteArray entities = data.mid(offset + entOffset, entLength);
    if (entities.size() != entLength)
        return {};
    const QRegularExpression message(QStringLiteral("\"message\"\\s+\"([^\"]*)\""));
    const auto match = message.match(QString::fromLatin1(entities));
    return match.hasMatch() ? match.captured(1) : QString();
}

// --- PCX decoder ---

struct Pcx {
    int width = 0;
    int height = 0;
    QList<QRgb> pixels;
};

std::optional<Pcx> decodePcx(const QByteArray& data, QString* why)
{
    if (data.size() < 128 + 769) {
        *why = QStringLiteral("too short");
        return std::nullopt;
    }
    if (quint8(data[0]) != 0x0a || data[1] != 5 || data[2] != 1 || data[3] != 8 || data[65] != 1) {
        *why = QStringLiteral("not an 8-bit, one-plane, RLE PCX of version 5");
        return std::nullopt;
    }
    Pcx pcx;
    pcx.width = le16(data, 8) - le16(data, 4) + 1;
    pcx.height = le16(data, 10) - le16(data, 6) + 1;
    const int bytesPerLine = le16(data, 66);
    if (pcx.width <= 0 || pcx.height <= 0 || bytesPerLine < pcx.width || bytesPerLine % 2 != 0) {
        *why = QStringLiteral("bad size fields");
        return std::nullopt;
    }
    const qsizetype paletteMark = data.size() - 769;
    if (data[paletteMark] != 0x0c) {
        *why = QStringLiteral("no 256-colour palette at the end");
        return std::nullopt;
    }
    QByteArray indices;
    qsizetype pos = 128;
    const qsizetype wanted = qsizetype(bytesPerLine) * pcx.height;
    while (indices.size() < wanted && pos < paletteMark) {
        const quint8 b = quint8(data[pos++]);
        if ((b & 0xc0) == 0xc0) {
            if (pos >= paletteMark)
                break;
            indices.append(QByteArray(b & 0x3f, data[pos++]));
        } else {
            indices.append(char(b));
        }
    }
    if (indices.size() != wanted || pos != paletteMark) {
        *why = QStringLiteral("run-length data gives %1 bytes for %2, ends at %3 of %4")
                   .arg(indices.size())
                   .arg(wanted)
                   .arg(pos)
                   .arg(paletteMark);
        return std::nullopt;
    }
    for (int y = 0; y < pcx.height; ++y)
        for (int x = 0; x < pcx.width; ++x) {
            const int i = quint8(indices[y * bytesPerLine + x]);
            const qsizetype p = paletteMark + 1 + 3 * i;
            pcx.pixels << qRgb(quint8(data[p]), quint8(data[p + 1]), quint8(data[p + 2]));
        }
    return pcx;
}

QRgb mostCommon(const QList<QRgb>& pixels)
{
    QHash<QRgb, int> counts;
    for (QRgb p : pixels)
        ++counts[p];
    QRgb best = 0;
    int bestCount = -1;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        if (it.value() > bestCount) {
            best = it.key();
            bestCount = it.value();
        }
    return best;
}

// --- bots.cfg rows, read as the fixed-column scanner reads them ---

struct BotRow {
    QString name;
    QString modelSkin;
    QList<int> columns; // six one-character columns, then the ping
};

struct TeamRow {
    QString name;
    QString abbreviation;
    QString modelSkin;
    QStringList members;
};

// The scanner takes one character per column and steps one over; any row
// that only reads right with a looser parser would break Torvik.
std::optional<BotRow> scanBot(const QString& line)
{
    static const QRegularExpression row(
        QStringLiteral("^\"([^\"]*)\"\\s*\"([^\"]*)\" *(\\d) (\\d) (\\d) (\\d) (\\d) (\\d) (\\d{1,5})$"));
    const auto m = row.match(line);
    if (!m.hasMatch())
        return std::nullopt;
    BotRow bot{m.captured(1), m.captured(2), {}};
    for (int i = 3; i <= 9; ++i)
        bot.columns << m.captured(i).toInt();
    return bot;
}

std::optional<TeamRow> scanTeam(const QString& line)
{
    static const QRegularExpression row(
        QStringLiteral("^\"([^\"]*)\"\\s+\"([^\"]*)\"\\s+\"([^\"]*)\"\\s+\\[((?:\"[^\"]+\" )*)\\]$"));
    const auto m = row.match(line);
    if (!m.hasMatch())
        return std::nullopt;
    TeamRow team{m.captured(1), m.captured(2), m.captured(3), {}};
    static const QRegularExpression member(QStringLiteral("\"([^\"]+)\""));
    for (auto it = member.globalMatch(m.captured(4)); it.hasNext();)
        team.members << it.next().captured(1);
    return team;
}

struct BotsFile {
    QStringList before;
    QList<BotRow> bots;
    QList<TeamRow> teams;
    QStringList badRows;
    bool hasBots = false;
    bool hasTeams = false;
};

BotsFile readBotsCfg(const QByteArray& data)
{
    BotsFile file;
    QStringList lines = QString::fromLatin1(data).split(QStringLiteral("\r\n"));
    int section = 0; // 0 before [bots], 1 bots, 2 teams
    for (const QString& line : lines) {
        if (section == 0 && line.startsWith(QLatin1String("[bots]"))) {
            section = 1;
            file.hasBots = true;
        } else if (section == 1 && line == QLatin1String("[teams]")) {
            section = 2;
            file.hasTeams = true;
        } else if (section > 0 && line.startsWith(QLatin1Char('"'))) {
            if (section == 1) {
                if (auto bot = scanBot(line))
                    file.bots << *bot;
                else
                    file.badRows << line;
            } else if (auto team = scanTeam(line)) {
                file.teams << *team;
            } else {
                file.badRows << line;
            }
        } else if (section == 0) {
            file.before << line;
        }
    }
    return file;
}

// A bot is listed when its model folder, skin and face are all there.
bool installed(const QString& base, const QString& modelSkin)
{
    const qsizetype slash = modelSkin.indexOf(QLatin1Char('/'));
    if (slash < 0)
        return false;
    const QString model = findIgnoringCase(base, QStringLiteral("players/") + modelSkin.left(slash));
    const QString skin = modelSkin.mid(slash + 1);
    return !model.isEmpty() && QFileInfo(model).isDir()
           && !findIgnoringCase(model, skin + QStringLiteral(".pcx")).isEmpty()
           && !findIgnoringCase(model, skin + QStringLiteral("_i.pcx")).isEmpty();
}

// Every line break is CR LF, and the last line has one.
bool crlfOnly(const QByteArray& text)
{
    if (text.isEmpty() || !text.endsWith("\r\n"))
        return false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r'))
            return false;
        if (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n'))
            return false;
    }
    return true;
}

class DemoInstallTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(tmp_.isValid());
        root_ = tmp_.path() + QStringLiteral("/demo");
        QString error;
        ASSERT_TRUE(demo::createDemoInstall(root_, &error)) << error.toStdString();
        base_ = findIgnoringCase(root_, QStringLiteral("baseq2"));
        mod_ = findIgnoringCase(root_, QStringLiteral("gorvan"));
        ASSERT_FALSE(base_.isEmpty());
        ASSERT_FALSE(mod_.isEmpty());
    }

    QString file(const QString& folder, const QString& relative) const
    {
        return findIgnoringCase(folder, relative);
    }

    QTemporaryDir tmp_;
    QString root_, base_, mod_;
};

// --- the tree ---

TEST_F(DemoInstallTest, GameAndModFilesAreWhereTorvikLooks)
{
    const QFileInfo exe(demo::gameExecutable(root_));
    EXPECT_TRUE(exe.isFile());
    EXPECT_TRUE(exe.isExecutable());
    EXPECT_EQ(readAll(exe.filePath()), readAll(QStringLiteral(TORVIK_STUB_GAME)));

    EXPECT_EQ(QFileInfo(demo::modFolder(root_)).canonicalFilePath(), QFileInfo(mod_).canonicalFilePath());
    EXPECT_EQ(QFileInfo(demo::baseFolder(root_)).canonicalFilePath(), QFileInfo(base_).canonicalFilePath());
    // The mod folder is accepted on these two being there.
    EXPECT_TRUE(QFileInfo(file(mod_, QStringLiteral("gamex86.dll"))).isFile());
    EXPECT_TRUE(QFileInfo(file(mod_, QStringLiteral("bots.cfg"))).isFile());
    EXPECT_TRUE(QFileInfo(file(mod_, QStringLiteral("chat.txt"))).isFile());
    EXPECT_TRUE(QFileInfo(file(mod_, QStringLiteral("maps.txt"))).isFile());
}

TEST_F(DemoInstallTest, PakDirectoriesListTheIntendedMembers)
{
    struct Expected {
        QString pak;
        QStringList maps;
        int others;
    };
    const QList<Expected> paks = {
        {base_ + QStringLiteral("/pak0.pak"),
         {QStringLiteral("base1"), QStringLiteral("base2"), QStringLiteral("base3"), QStringLiteral("city1"),
          QStringLiteral("boss1"), QStringLiteral("q2dm1"), QStringLiteral("q2dm2"), QStringLiteral("q2ctf1")},
         4},
        {base_ + QStringLiteral("/pak1.pak"), {QStringLiteral("demo_arena"), QStringLiteral("demo_canyon")}, 0},
        {mod_ + QStringLiteral("/pak0.pak"), {QStringLiteral("gorvan_pit"), QStringLiteral("gorvan_spire")}, 1},
    };
    for (const Expected& want : paks) {
        SCOPED_TRACE(want.pak.toStdString());
        QString why;
        const auto entries = readPak(want.pak, &why);
        ASSERT_TRUE(entries.has_value()) << why.toStdString();
        const QStringList members = names(*entries);
        EXPECT_EQ(mapNames(members), want.maps);
        EXPECT_EQ(members.size() - want.maps.size(), want.others);

        // Each map member is a BSP at its recorded position, with a title.
        const QByteArray data = readAll(want.pak);
        for (const PakEntry& e : *entries) {
            if (e.name.endsWith(QLatin1String(".bsp"), Qt::CaseInsensitive)) {
                EXPECT_FALSE(bspTitle(data.mid(e.position, e.length), 0).isEmpty()) << e.name.toStdString();
            }
        }
    }

    QString why;
    const auto pak0 = readPak(base_ + QStringLiteral("/pak0.pak"), &why);
    ASSERT_TRUE(pak0.has_value());
    const QStringList members = names(*pak0);
    // Lookalikes the catalogue must pass over.
    EXPECT_TRUE(members.contains(QStringLiteral("MAPS/LOUD.BSP")));
    EXPECT_TRUE(members.contains(QStringLiteral("maps/readme.txt")));
    EXPECT_TRUE(members.contains(QStringLiteral("pics/demo_logo.pcx")));
}

TEST_F(DemoInstallTest, MapsExistOnlyOnceAndTheCycleNamesKnownMaps)
{
    QStringList all;
    for (const QString& pak : {base_ + QStringLiteral("/pak0.pak"), base_ + QStringLiteral("/pak1.pak"),
                               mod_ + QStringLiteral("/pak0.pak")}) {
        QString why;
        const auto entries = readPak(pak, &why);
        ASSERT_TRUE(entries.has_value()) << why.toStdString();
        all << mapNames(names(*entries));
    }
    const QString maps = file(base_, QStringLiteral("maps"));
    ASSERT_TRUE(QFileInfo(maps).isDir());
    const QStringList loose = QDir(maps).entryList({QStringLiteral("*.bsp")}, QDir::Files);
    EXPECT_EQ(loose.size(), 2);
    for (const QString& f : loose) {
        all << f.left(f.size() - 4);
        EXPECT_FALSE(bspTitle(readAll(maps + QLatin1Char('/') + f), 0).isEmpty()) << f.toStdString();
    }
    EXPECT_EQ(QSet<QString>(all.cbegin(), all.cend()).size(), all.size()) << all.join(QLatin1Char(' ')).toStdString();

    const QByteArray cycle = readAll(file(mod_, QStringLiteral("maps.txt")));
    EXPECT_TRUE(crlfOnly(cycle));
    const QStringList entries = QString::fromLatin1(cycle).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    EXPECT_GE(entries.size(), 3);
    for (const QString& name : entries)
        EXPECT_TRUE(all.contains(name, Qt::CaseInsensitive)) << name.toStdString();
}

TEST_F(DemoInstallTest, PlayerModelsHaveMeshSkinsAndFaces)
{
    const QString players = file(base_, QStringLiteral("players"));
    const QStringList models = QDir(players).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    EXPECT_GE(models.size(), 4);
    QSet<QRgb> skinColours;
    int skins = 0;
    for (const QString& model : models) {
        SCOPED_TRACE(model.toStdString());
        const QString folder = players + QLatin1Char('/') + model;
        const QByteArray md2 = readAll(file(folder, QStringLiteral("tris.md2")));
        ASSERT_GE(md2.size(), 68);
        EXPECT_TRUE(md2.startsWith("IDP2"));
        EXPECT_EQ(le32(md2, 4), 8);

        const QStringList pcxFiles = QDir(folder).entryList({QStringLiteral("*.pcx")}, QDir::Files);
        int faces = 0;
        for (const QString& name : pcxFiles) {
            SCOPED_TRACE(name.toStdString());
            QString why;
            const auto pcx = decodePcx(readAll(folder + QLatin1Char('/') + name), &why);
            ASSERT_TRUE(pcx.has_value()) << why.toStdString();
            // A flat picture would hide a decoder that gets the runs wrong.
            EXPECT_GT(QSet<QRgb>(pcx->pixels.cbegin(), pcx->pixels.cend()).size(), 2);
            const bool face = name.endsWith(QLatin1String("_i.pcx"), Qt::CaseInsensitive);
            if (face) {
                ++faces;
                EXPECT_EQ(pcx->width, 32);
                EXPECT_EQ(pcx->height, 32);
                const QString skin = name.left(name.size() - 6) + QStringLiteral(".pcx");
                EXPECT_FALSE(findIgnoringCase(folder, skin).isEmpty()) << "face without skin";
            } else if (name.compare(QLatin1String("weapon.pcx"), Qt::CaseInsensitive) != 0) {
                ++skins;
                EXPECT_GT(pcx->width, pcx->height);
                skinColours.insert(mostCommon(pcx->pixels));
            }
        }
        EXPECT_GE(faces, 1);
    }
    EXPECT_EQ(skinColours.size(), skins) << "two skins share their main colour";
}

// --- bots.cfg ---

TEST_F(DemoInstallTest, BotsFileHasBothSectionsAndRowsTheScannerReads)
{
    const QByteArray data = readAll(file(mod_, QStringLiteral("bots.cfg")));
    EXPECT_TRUE(crlfOnly(data));
    const BotsFile bots = readBotsCfg(data);
    EXPECT_TRUE(bots.hasBots);
    EXPECT_TRUE(bots.hasTeams);
    EXPECT_TRUE(bots.badRows.isEmpty()) << bots.badRows.join(QLatin1Char('\n')).toStdString();
    EXPECT_GE(bots.bots.size(), 12);

    QStringList botNames;
    for (const BotRow& b : bots.bots) {
        SCOPED_TRACE(b.name.toStdString());
        botNames << b.name;
        EXPECT_LE(b.name.size(), 14);
        EXPECT_TRUE(b.modelSkin.contains(QLatin1Char('/')));
        for (int i = 0; i < 3; ++i) {
            EXPECT_GE(b.columns[i], 1);
            EXPECT_LE(b.columns[i], 5);
        }
        EXPECT_LE(b.columns[4], 1);
        EXPECT_LE(b.columns[5], 1);
        EXPECT_GE(b.columns[6], 1);
        EXPECT_LE(b.columns[6], 999);
    }
    QStringList sorted = botNames;
    sorted.sort(Qt::CaseInsensitive);
    EXPECT_NE(botNames, sorted) << "the file order should differ from the lists' name order";
    EXPECT_EQ(QSet<QString>(botNames.cbegin(), botNames.cend()).size(), botNames.size());

    // Attributes vary, or the pictures of the examination all look alike.
    for (int column = 0; column < 7; ++column) {
        QSet<int> values;
        for (const BotRow& b : bots.bots)
            values.insert(b.columns[column]);
        EXPECT_GE(values.size(), 2) << "column " << column;
    }

    ASSERT_GE(bots.teams.size(), 3);
    ASSERT_LE(bots.teams.size(), 4);
    bool emptyModel = false;
    for (const TeamRow& t : bots.teams) {
        SCOPED_TRACE(t.name.toStdString());
        EXPECT_LE(t.name.size(), 20);
        EXPECT_FALSE(t.name.contains(QLatin1Char(' '))) << "team names go blank-separated on the command line";
        EXPECT_LE(t.abbreviation.size(), 3);
        EXPECT_FALSE(t.members.isEmpty());
        for (const QString& m : t.members)
            EXPECT_TRUE(botNames.contains(m)) << m.toStdString();
        emptyModel = emptyModel || t.modelSkin.isEmpty();
    }
    EXPECT_TRUE(emptyModel);
}

TEST_F(DemoInstallTest, SomeBotsAreInstalledAndSomeAreNot)
{
    const BotsFile bots = readBotsCfg(readAll(file(mod_, QStringLiteral("bots.cfg"))));
    QStringList shown, hidden;
    for (const BotRow& b : bots.bots)
        (installed(base_, b.modelSkin) ? shown : hidden) << b.name;
    shown.sort();
    hidden.sort();
    EXPECT_EQ(shown, (QStringList{QStringLiteral("Brannock"), QStringLiteral("Cinder"), QStringLiteral("Dagny"),
                                  QStringLiteral("Echo"), QStringLiteral("Frostbite"), QStringLiteral("Gunnar"),
                                  QStringLiteral("Harrow"), QStringLiteral("Isolde"), QStringLiteral("Jax")}));
    EXPECT_EQ(hidden, (QStringList{QStringLiteral("Kestrel"), QStringLiteral("Lurch"), QStringLiteral("Mordecai"),
                                   QStringLiteral("Nix")}));
    // Each kind of gap once: a missing face, a missing skin, a missing model.
    const QString players = file(base_, QStringLiteral("players"));
    EXPECT_TRUE(QFileInfo(players + QStringLiteral("/female/nova.pcx")).isFile());
    EXPECT_FALSE(QFileInfo(players + QStringLiteral("/female/nova_i.pcx")).exists());
    EXPECT_TRUE(QFileInfo(players + QStringLiteral("/cyborg")).isDir());
    EXPECT_FALSE(QFileInfo(players + QStringLiteral("/cyborg/rust.pcx")).exists());
    EXPECT_FALSE(QFileInfo(players + QStringLiteral("/ghoul")).exists());
}

// --- chat.txt ---

TEST_F(DemoInstallTest, ChatFileHasEveryMarkerInOrderWithReachableSayings)
{
    const QByteArray data = readAll(file(mod_, QStringLiteral("chat.txt")));
    EXPECT_TRUE(crlfOnly(data));
    const QStringList markers = {
        QStringLiteral("-- Greetings"),
        QStringLiteral("-- Insults (general)"),
        QStringLiteral("-- Insults (kicking ass)"),
        QStringLiteral("-- Insults (losing, coming back)"),
        QStringLiteral("-- Come-backs"),
        QStringLiteral("-- TEAMPLAY: Help!"),
        QStringLiteral("-- TEAMPLAY: Drop Item (not implemented yet)"),
        QStringLiteral("-- TEAMPLAY: Let's Group!"),
    };
    const QStringList lines = QString::fromLatin1(data).split(QStringLiteral("\r\n"));
    ASSERT_FALSE(lines.isEmpty());
    EXPECT_TRUE(lines.first().startsWith(QLatin1Char('#')));
    EXPECT_TRUE(lines.contains(QStringLiteral("# NOTE: where you see a %s, that means a string goes there. All strings")));
    EXPECT_TRUE(lines.contains(QStringLiteral("#       must appear in the same order for each section.")));

    qsizetype at = 0;
    for (const QString& marker : markers) {
        SCOPED_TRACE(marker.toStdString());
        const qsizetype found = lines.indexOf(marker, at);
        ASSERT_GE(found, at) << "missing or out of order";
        // The sayings the editor reaches: up to the first line that ends the section.
        QStringList sayings;
        for (at = found + 1; at < lines.size(); ++at) {
            const QString& line = lines[at];
            if (line.isEmpty() || line.startsWith(QLatin1Char('#')) || line.startsWith(QLatin1Char(' '))
                || markers.contains(line))
                break;
            EXPECT_FALSE(line.startsWith(QLatin1Char('"')));
            sayings << line;
        }
        EXPECT_GE(sayings.size(), 2);
        for (const QString& s : sayings) {
            const qsizetype holes = s.count(QStringLiteral("%s"));
            if (marker.contains(QLatin1String("Drop Item")))
                EXPECT_EQ(holes, 2) << s.toStdString();
            else if (marker == QLatin1String("-- Greetings"))
                EXPECT_EQ(holes, 0) << s.toStdString();
            else
                EXPECT_LE(holes, 1) << s.toStdString();
        }
    }
    // Nothing but the final line end behind the last section.
    EXPECT_EQ(at, lines.size() - 1);
}

TEST_F(DemoInstallTest, EveryTextFileUsesCrLf)
{
    for (const QString& name : {QStringLiteral("bots.cfg"), QStringLiteral("chat.txt"), QStringLiteral("maps.txt")}) {
        const QByteArray data = readAll(file(mod_, name));
        EXPECT_TRUE(crlfOnly(data)) << name.toStdString();
    }
}

// --- spellings and rewrites ---

TEST(DemoInstallMixedCase, WindowsSpellingsExistExactlyAndResolveWithoutCase)
{
    QTemporaryDir tmp;
    QString error;
    ASSERT_TRUE(demo::createDemoInstall(tmp.path(), &error, {true})) << error.toStdString();
    const QString root = tmp.path();
    const QStringList spelt = {
        QStringLiteral("BaseQ2/PAK0.PAK"),          QStringLiteral("BaseQ2/pak1.pak"),
        QStringLiteral("BaseQ2/Maps/Demo_Loft.BSP"), QStringLiteral("BaseQ2/Players/Skarn/Tris.MD2"),
        QStringLiteral("BaseQ2/Players/Skarn/Ember.PCX"), QStringLiteral("BaseQ2/Players/Skarn/Ember_I.PCX"),
        QStringLiteral("gorvan/GameX86.DLL"),       QStringLiteral("gorvan/Bots.cfg"),
        QStringLiteral("gorvan/Chat.txt"),          QStringLiteral("gorvan/Maps.TXT"),
        QStringLiteral("gorvan/PAK0.PAK"),          QStringLiteral("quake2"),
    };
    for (const QString& path : spelt) {
        EXPECT_TRUE(QFileInfo(root + QLatin1Char('/') + path).isFile()) << path.toStdString();
        EXPECT_EQ(findIgnoringCase(root, path.toLower()), root + QLatin1Char('/') + path) << path.toStdString();
    }
    EXPECT_FALSE(QFileInfo::exists(root + QStringLiteral("/baseq2")));
    EXPECT_FALSE(QFileInfo::exists(root + QStringLiteral("/gorvan/bots.cfg")));
    EXPECT_EQ(demo::baseFolder(root, {true}), root + QStringLiteral("/BaseQ2"));
    EXPECT_TRUE(QFileInfo(demo::gameExecutable(root)).isExecutable());

    // The bots' model folders are found only by a case-blind look-up.
    const BotsFile bots = readBotsCfg(readAll(root + QStringLiteral("/gorvan/Bots.cfg")));
    int shown = 0;
    for (const BotRow& b : bots.bots)
        shown += installed(root + QStringLiteral("/BaseQ2"), b.modelSkin) ? 1 : 0;
    EXPECT_EQ(shown, 9);
}

TEST(DemoInstallRewrite, RegeneratingRestoresTheDemoAndKeepsOneSpelling)
{
    QTemporaryDir tmp;
    const QString root = tmp.path() + QStringLiteral("/again");
    QString error;
    ASSERT_TRUE(demo::createDemoInstall(root, &error)) << error.toStdString();
    const QByteArray bots = readAll(root + QStringLiteral("/gorvan/bots.cfg"));
    const QByteArray pak = readAll(root + QStringLiteral("/baseq2/pak0.pak"));

    // Damage the install the way a user or an editor might.
    {
        QFile f(root + QStringLiteral("/gorvan/bots.cfg"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write("[bots]\r\n");
    }
    ASSERT_TRUE(QFile::remove(root + QStringLiteral("/baseq2/players/male/ranger_i.pcx")));
    ASSERT_TRUE(QFile::setPermissions(demo::gameExecutable(root), QFile::ReadOwner | QFile::WriteOwner));
    {
        QFile f(root + QStringLiteral("/baseq2/asdf.cfg"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("set a 1\r\n");
    }

    ASSERT_TRUE(demo::createDemoInstall(root, &error)) << error.toStdString();
    EXPECT_EQ(readAll(root + QStringLiteral("/gorvan/bots.cfg")), bots);
    EXPECT_EQ(readAll(root + QStringLiteral("/baseq2/pak0.pak")), pak);
    EXPECT_TRUE(QFileInfo(root + QStringLiteral("/baseq2/players/male/ranger_i.pcx")).isFile());
    EXPECT_TRUE(QFileInfo(demo::gameExecutable(root)).isExecutable());
    EXPECT_TRUE(QFileInfo(root + QStringLiteral("/baseq2/asdf.cfg")).isFile()) << "files of the user's stay";

    // Switching spellings must not leave two candidates for a case-blind look-up.
    auto spellings = [](const QString& folder, const QString& name) {
        QStringList hits;
        for (const QString& e : QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot))
            if (e.compare(name, Qt::CaseInsensitive) == 0)
                hits << e;
        return hits;
    };
    ASSERT_TRUE(demo::createDemoInstall(root, &error, {true})) << error.toStdString();
    EXPECT_EQ(spellings(root, QStringLiteral("baseq2")), QStringList{QStringLiteral("BaseQ2")});
    EXPECT_EQ(spellings(root + QStringLiteral("/BaseQ2"), QStringLiteral("pak0.pak")), QStringList{QStringLiteral("PAK0.PAK")});
    EXPECT_EQ(spellings(root + QStringLiteral("/gorvan"), QStringLiteral("bots.cfg")), QStringList{QStringLiteral("Bots.cfg")});
    EXPECT_EQ(spellings(root + QStringLiteral("/BaseQ2/Players"), QStringLiteral("skarn")), QStringList{QStringLiteral("Skarn")});
    EXPECT_EQ(spellings(root + QStringLiteral("/BaseQ2/Players/Skarn"), QStringLiteral("ember.pcx")),
              QStringList{QStringLiteral("Ember.PCX")});
    EXPECT_TRUE(QFileInfo(root + QStringLiteral("/BaseQ2/asdf.cfg")).isFile());

    ASSERT_TRUE(demo::createDemoInstall(root, &error)) << error.toStdString();
    EXPECT_EQ(spellings(root, QStringLiteral("baseq2")), QStringList{QStringLiteral("baseq2")});
    EXPECT_EQ(spellings(root + QStringLiteral("/gorvan"), QStringLiteral("bots.cfg")), QStringList{QStringLiteral("bots.cfg")});
    EXPECT_EQ(readAll(root + QStringLiteral("/gorvan/bots.cfg")), bots);
}

TEST(DemoInstallFailure, UnwritablePlacesGiveFalseAndSayWhere)
{
    // Permissions don't stop a privileged user, so the obstacles are files
    // standing where folders must go.
    QTemporaryDir tmp;
    const QString blocker = tmp.path() + QStringLiteral("/plain-file");
    {
        QFile f(blocker);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("x");
    }
    QString error;
    EXPECT_FALSE(demo::createDemoInstall(blocker, &error));
    EXPECT_TRUE(error.contains(blocker)) << error.toStdString();

    error.clear();
    EXPECT_FALSE(demo::createDemoInstall(blocker + QStringLiteral("/demo"), &error));
    EXPECT_TRUE(error.contains(blocker)) << error.toStdString();

    const QString root = tmp.path() + QStringLiteral("/half");
    ASSERT_TRUE(QDir().mkpath(root));
    {
        QFile f(root + QStringLiteral("/gorvan"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    }
    error.clear();
    EXPECT_FALSE(demo::createDemoInstall(root, &error));
    EXPECT_TRUE(error.contains(root + QStringLiteral("/gorvan"))) << error.toStdString();

    error.clear();
    EXPECT_FALSE(demo::createDemoInstall(QString(), &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_FALSE(demo::createDemoInstall(blocker)); // no error text wanted: no crash either
}

// --- the stub game ---

class DemoStubGame : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(tmp_.isValid());
        root_ = QFileInfo(tmp_.path()).canonicalFilePath();
    }

    // Runs the demo's game as Torvik does: from the game folder unless told.
    QStringList run(const QStringList& args, const QString& cwd, QByteArray* out = nullptr)
    {
        QProcess game;
        game.setWorkingDirectory(cwd);
        game.start(demo::gameExecutable(root_), args);
        EXPECT_TRUE(game.waitForFinished(15000)) << game.errorString().toStdString();
        EXPECT_EQ(game.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(game.exitCode(), 0);
        const QByteArray stdoutText = game.readAllStandardOutput();
        if (out)
            *out = stdoutText;
        const QByteArray log = readAll(demo::stubLog(root_));
        EXPECT_EQ(log, stdoutText);
        EXPECT_TRUE(log.endsWith("end\n"));
        QStringList lines = QString::fromLocal8Bit(log).split(QLatin1Char('\n'));
        if (!lines.isEmpty() && lines.last().isEmpty())
            lines.removeLast();
        return lines;
    }

    QTemporaryDir tmp_;
    QString root_;
};

TEST_F(DemoStubGame, LogsEachArgumentExactlyAndTheConfigWithItsLineEnds)
{
    QString error;
    ASSERT_TRUE(demo::createDemoInstall(root_, &error)) << error.toStdString();
    {
        QFile cfg(root_ + QStringLiteral("/baseq2/asdf.cfg"));
        ASSERT_TRUE(cfg.open(QIODevice::WriteOnly));
        cfg.write("set teamplay 0\r\nset name \"Big Al\"\r\nmap base1\r\n");
    }
    const QStringList args = {QStringLiteral("+set"), QStringLiteral("game"), QStringLiteral("gorvan"),
                              QStringLiteral("+set name \"Big Al\""), QString(), QStringLiteral("two  blanks "),
                              QStringLiteral("back\\slash"), QStringLiteral("line\nbreak"), QStringLiteral("+exec"),
                              QStringLiteral("asdf.cfg ")};
    const QStringList log = run(args, root_);
    const QStringList want = {
        QStringLiteral("stubgame 1"),
        QStringLiteral("argc=11"),
        QStringLiteral("arg[0]=") + demo::gameExecutable(root_),
        QStringLiteral("arg[1]=+set"),
        QStringLiteral("arg[2]=game"),
        QStringLiteral("arg[3]=gorvan"),
        QStringLiteral("arg[4]=+set name \"Big Al\""),
        QStringLiteral("arg[5]="),
        QStringLiteral("arg[6]=two  blanks "),
        QStringLiteral("arg[7]=back\\\\slash"),
        QStringLiteral("arg[8]=line\\nbreak"),
        QStringLiteral("arg[9]=+exec"),
        QStringLiteral("arg[10]=asdf.cfg "),
        QStringLiteral("cwd=") + root_,
        QStringLiteral("asdf.cfg: ") + root_ + QStringLiteral("/baseq2/asdf.cfg"),
        QStringLiteral("cfg-line-ends=CRLF"),
        QStringLiteral("cfg[1]=set teamplay 0"),
        QStringLiteral("cfg[2]=set name \"Big Al\""),
        QStringLiteral("cfg[3]=map base1"),
        QStringLiteral("end"),
    };
    EXPECT_EQ(log, want);
}

TEST_F(DemoStubGame, FindsTheConfigWhateverTheCaseAndReportsOddLineEnds)
{
    QString error;
    ASSERT_TRUE(demo::createDemoInstall(root_, &error, {true})) << error.toStdString();
    {
        QFile cfg(root_ + QStringLiteral("/BaseQ2/ASDF.CFG"));
        ASSERT_TRUE(cfg.open(QIODevice::WriteOnly));
        cfg.write("set a 1\nset b 2\r\nmap x");
    }
    const QStringList log = run({}, root_);
    ASSERT_GE(log.size(), 4);
    EXPECT_TRUE(log.contains(QStringLiteral("asdf.cfg: ") + root_ + QStringLiteral("/BaseQ2/ASDF.CFG")));
    EXPECT_TRUE(log.contains(QStringLiteral("cfg-line-ends=mixed")));
    EXPECT_TRUE(log.contains(QStringLiteral("cfg[2]=set b 2")));
    EXPECT_TRUE(log.contains(QStringLiteral("cfg[3]=map x"))) << "a last line without a line end still counts";
    EXPECT_FALSE(log.contains(QStringLiteral("cfg[4]=")));
}

TEST_F(DemoStubGame, WithoutConfigSaysNoneAndLogsBesideItselfNotInTheWorkingFolder)
{
    QString error;
    ASSERT_TRUE(demo::createDemoInstall(root_, &error)) << error.toStdString();
    QTemporaryDir elsewhere;
    const QString cwd = QFileInfo(elsewhere.path()).canonicalFilePath();
    {
        QFile old(demo::stubLog(root_));
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("stale log from an earlier run that is much longer than the new one will be\n"
                  "stale\nstale\nstale\nstale\nstale\nstale\nstale\nstale\nstale\nstale\n");
    }
    const QStringList log = run({QStringLiteral("+map"), QStringLiteral("q2dm1")}, cwd);
    EXPECT_EQ(log, (QStringList{QStringLiteral("stubgame 1"), QStringLiteral("argc=3"),
                                QStringLiteral("arg[0]=") + demo::gameExecutable(root_), QStringLiteral("arg[1]=+map"),
                                QStringLiteral("arg[2]=q2dm1"), QStringLiteral("cwd=") + cwd,
                                QStringLiteral("asdf.cfg: none"), QStringLiteral("end")}));
    EXPECT_FALSE(QFileInfo::exists(cwd + QStringLiteral("/stubgame.log")));
}

} // namespace
