#include "demo/DemoInstall.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QSaveFile>
#include <QStringList>

#include <cmath>
#include <numbers>

namespace demo {
namespace {

// --- little-endian helpers: every binary format here is a PC format ---

void putLe16(QByteArray& out, int value)
{
    out.append(char(value & 0xff));
    out.append(char((value >> 8) & 0xff));
}

void putLe32(QByteArray& out, qint32 value)
{
    const quint32 u = quint32(value);
    for (int shift = 0; shift < 32; shift += 8)
        out.append(char((u >> shift) & 0xff));
}

void setLe32(QByteArray& out, qsizetype at, qint32 value)
{
    const quint32 u = quint32(value);
    for (int i = 0; i < 4; ++i)
        out[at + i] = char((u >> (8 * i)) & 0xff);
}

// --- game file formats, reduced to what Torvik and a title reader look at ---

// A title reader finds the world's "message" in the entity text, the way it
// does in a real map.
QByteArray fakeBsp(const QByteArray& title)
{
    constexpr int lumpCount = 19;
    constexpr int headerSize = 8 + lumpCount * 8;
    QByteArray entities = "{\n\"classname\" \"worldspawn\"\n\"message\" \"" + title + "\"\n}\n"
                          "{\n\"classname\" \"info_player_deathmatch\"\n\"origin\" \"0 0 24\"\n}\n";
    entities.append('\0');

    QByteArray out("IBSP");
    putLe32(out, 38);
    putLe32(out, headerSize);
    putLe32(out, qint32(entities.size()));
    for (int lump = 1; lump < lumpCount; ++lump) {
        putLe32(out, qint32(headerSize + entities.size()));
        putLe32(out, 0);
    }
    return out + entities;
}

// An MD2 header with no frames: enough for the sweep of the players folder,
// which only asks whether a "*.md2" is there, and for a viewer to reject it
// politely instead of crashing on garbage.
QByteArray fakeMd2(int skinWidth, int skinHeight)
{
    constexpr int headerSize = 17 * 4;
    QByteArray out("IDP2");
    putLe32(out, 8);
    putLe32(out, skinWidth);
    putLe32(out, skinHeight);
    for (int count = 0; count < 7; ++count) // frame size and the six counts
        putLe32(out, 0);
    for (int offset = 0; offset < 6; ++offset) // five lump offsets and the end
        putLe32(out, headerSize);
    return out;
}

struct Rgb {
    int r, g, b;
};

// Pixels as palette indices, row by row, and a 256-entry RGB palette.
struct Picture {
    int width = 0;
    int height = 0;
    QByteArray pixels;
    QByteArray palette;

    void fill(int x0, int y0, int w, int h, int index)
    {
        for (int y = qMax(0, y0); y < qMin(height, y0 + h); ++y)
            for (int x = qMax(0, x0); x < qMin(width, x0 + w); ++x)
                pixels[y * width + x] = char(index);
    }
};

// Palette slots the pictures draw with. The accent sits above 0xBF on purpose:
// such a value can't be stored as a literal byte in PCX run-length data, so
// every picture exercises the escape a decoder has to get right.
enum Slot { Black = 0, Base = 1, Dark = 2, Light = 3, White = 4, Accent = 200 };

QByteArray paletteFor(Rgb base)
{
    QByteArray pal(768, '\0');
    for (int i = 0; i < 256; ++i)
        pal[3 * i] = pal[3 * i + 1] = pal[3 * i + 2] = char(i);
    auto set = [&pal](int index, Rgb c) {
        pal[3 * index] = char(c.r);
        pal[3 * index + 1] = char(c.g);
        pal[3 * index + 2] = char(c.b);
    };
    set(Black, {0, 0, 0});
    set(Base, base);
    set(Dark, {base.r / 2, base.g / 2, base.b / 2});
    set(Light, {(base.r + 255) / 2, (base.g + 255) / 2, (base.b + 255) / 2});
    set(White, {255, 255, 255});
    set(Accent, {255 - base.r, 255 - base.g, 255 - base.b});
    return pal;
}

// ZSoft PCX, version 5, run-length encoded: one 8-bit plane with the palette
// at the end behind its 0x0C mark, the kind of file the game's skins are; or,
// with trueColour, three planes of red, green and blue and no palette.
QByteArray encodePcx(const Picture& pic, bool trueColour = false)
{
    const int planes = trueColour ? 3 : 1;
    const int bytesPerLine = pic.width + (pic.width & 1); // lines are even
    QByteArray out;
    out.append(char(0x0a)); // ZSoft
    out.append(char(5));    // version 3.0 and later, with palette
    out.append(char(1));    // run-length encoding
    out.append(char(8));    // bits per pixel per plane
    putLe16(out, 0);
    putLe16(out, 0);
    putLe16(out, pic.width - 1);
    putLe16(out, pic.height - 1);
    putLe16(out, 72);
    putLe16(out, 72);
    out.append(QByteArray(48, '\0')); // 16-colour palette, unused at 8 bits
    out.append(char(0));
    out.append(char(planes));
    putLe16(out, bytesPerLine);
    putLe16(out, 1); // colour palette
    putLe16(out, 0);
    putLe16(out, 0);
    out.append(QByteArray(54, '\0'));

    for (int y = 0; y < pic.height; ++y) {
        for (int plane = 0; plane < planes; ++plane) {
            QByteArray line = pic.pixels.mid(qsizetype(y) * pic.width, pic.width);
            if (trueColour)
                for (char& p : line)
                    p = pic.palette[3 * quint8(p) + plane];
            line.append(QByteArray(bytesPerLine - pic.width, '\0'));
            // Runs stop at the end of a line: older readers decode line by line.
            for (int x = 0; x < bytesPerLine;) {
                const char value = line[x];
                int run = 1;
                while (x + run < bytesPerLine && run < 63 && line[x + run] == value)
                    ++run;
                if (run > 1 || quint8(value) >= 0xc0)
                    out.append(char(0xc0 | run));
                out.append(value);
                x += run;
            }
        }
    }
    if (!trueColour) {
        out.append(char(0x0c));
        out.append(pic.palette);
    }
    return out;
}

// A skin sheet: the base colour with bands, a stripe, a frame and an accent
// mark, so a stretched display still shows which skin it is.
QByteArray skinPicture(Rgb base, bool trueColour = false)
{
    Picture pic{96, 64, QByteArray(96 * 64, char(Base)), paletteFor(base)};
    for (int y = 12; y < pic.height; y += 16)
        pic.fill(0, y, pic.width, 4, Dark);
    pic.fill(40, 0, 16, pic.height, Light);
    pic.fill(0, 0, pic.width, 1, Black);
    pic.fill(0, pic.height - 1, pic.width, 1, Black);
    pic.fill(0, 0, 1, pic.height, Black);
    pic.fill(pic.width - 1, 0, 1, pic.height, Black);
    pic.fill(8, 4, 6, 6, Accent);
    pic.fill(70, 40, 10, 6, White);
    for (int x = 60; x < 90; x += 2) // single accent pixels: the escaped form
        pic.fill(x, 52, 1, 1, Accent);
    return encodePcx(pic, trueColour);
}

// The face icon the bot lists show: a round face in the skin's colour.
QByteArray facePicture(Rgb base)
{
    Picture pic{32, 32, QByteArray(32 * 32, char(Dark)), paletteFor(base)};
    for (int y = 0; y < pic.height; ++y)
        for (int x = 0; x < pic.width; ++x)
            if ((x - 16) * (x - 16) + (y - 16) * (y - 16) <= 13 * 13)
                pic.pixels[y * pic.width + x] = char(Base);
    pic.fill(10, 12, 4, 3, Black);
    pic.fill(19, 12, 4, 3, Black);
    pic.fill(11, 12, 1, 1, Accent); // a glint, one pixel: the escaped form
    pic.fill(20, 12, 1, 1, Accent);
    pic.fill(12, 22, 9, 2, Black);
    pic.fill(14, 6, 4, 2, Light);
    return encodePcx(pic);
}

// A short fading tone as 8-bit mono PCM, for the model sounds of the bot
// examination.
QByteArray toneWav(double frequency, int milliseconds)
{
    constexpr int rate = 11025;
    const int samples = rate * milliseconds / 1000;
    QByteArray pcm;
    pcm.reserve(samples);
    for (int i = 0; i < samples; ++i) {
        const double fade = 1.0 - double(i) / samples;
        const double wave = std::sin(2.0 * std::numbers::pi * frequency * i / rate);
        pcm.append(char(quint8(128 + std::lround(90.0 * fade * wave))));
    }
    QByteArray out("RIFF");
    putLe32(out, qint32(36 + pcm.size()));
    out += "WAVEfmt ";
    putLe32(out, 16);
    putLe16(out, 1); // PCM
    putLe16(out, 1); // mono
    putLe32(out, rate);
    putLe32(out, rate); // bytes per second
    putLe16(out, 1);    // block align
    putLe16(out, 8);    // bits per sample
    out += "data";
    putLe32(out, qint32(pcm.size()));
    return out + pcm;
}

struct PakMember {
    QByteArray name;
    QByteArray data;
};

// The directory goes behind the data, as the game's own tools lay PAKs out.
bool buildPak(const QList<PakMember>& members, QByteArray* pak, QString* why)
{
    constexpr int nameSize = 56;
    QByteArray out("PACK");
    putLe32(out, 0);
    putLe32(out, 0);
    QByteArray dir;
    for (const PakMember& m : members) {
        if (m.name.size() >= nameSize) { // the name needs its NUL
            *why = QStringLiteral("PAK member name too long: %1").arg(QString::fromLatin1(m.name));
            return false;
        }
        dir += m.name;
        dir += QByteArray(nameSize - m.name.size(), '\0');
        putLe32(dir, qint32(out.size()));
        putLe32(dir, qint32(m.data.size()));
        out += m.data;
    }
    setLe32(out, 4, qint32(out.size()));
    setLe32(out, 8, qint32(dir.size()));
    *pak = out + dir;
    return true;
}

QByteArray crlfText(const QStringList& lines)
{
    QByteArray out;
    for (const QString& line : lines)
        out += line.toLatin1() + "\r\n";
    return out;
}

// --- demo content ---

struct DemoSkin {
    const char* name;
    Rgb colour;
    bool face; // a skin without its "_i" face hides the bots that use it
};

struct DemoModel {
    const char* folder;
    const char* mixedFolder; // spelling with DemoOptions::mixedCase
    QList<DemoSkin> skins;
    QList<const char*> sounds;
    bool weaponSkin; // "weapon.pcx", which the skin list must leave out
    bool meshOnDisk = true; // else the mesh is only in baseq2/pak1.pak, or nowhere
    bool trueColour = false; // skins as 24-bit pictures
};

const QList<DemoModel>& demoModels()
{
    static const QList<DemoModel> models = {
        {"male", "male",
         {{"ranger", {46, 110, 60}, true}, {"scout", {170, 140, 70}, true}, {"warden", {60, 70, 150}, true}},
         {"jump1.wav", "taunt.wav"},
         true},
        {"female", "female",
         {{"lynx", {190, 90, 30}, true}, {"siren", {150, 30, 120}, true}, {"nova", {230, 220, 80}, false}},
         {"jump1.wav"},
         false},
        {"cyborg", "cyborg", {{"unit7", {120, 120, 130}, true}, {"chrome", {200, 200, 215}, true}}, {}, false},
        {"skarn", "Skarn", {{"ember", {210, 50, 20}, true}, {"frost", {90, 180, 230}, true}}, {"growl.wav"}, false},
        // Skins of the user's own beside a mesh that lives in an archive, and
        // names the skin list must tell apart.
        {"grunt", "grunt",
         {{"olive", {110, 120, 40}, true}, {"Weapon2", {90, 60, 30}, false}, {"foo_i", {200, 0, 200}, false}},
         {}, false, false, true},
        // Skins with no mesh anywhere: not a model, but not ours to delete.
        {"decals", "decals", {{"stripe", {250, 250, 0}, true}}, {}, false, false},
    };
    return models;
}

struct DemoBot {
    const char* name;
    const char* modelSkin;
    int accuracy, aggressiveness, combat, weapon, quad, camper, ping;
};

// File order on purpose: the lists sort by name, the file doesn't.
const QList<DemoBot>& demoBots()
{
    static const QList<DemoBot> bots = {
        {"Harrow", "male/warden", 5, 4, 5, 9, 1, 0, 75},
        {"Cinder", "skarn/ember", 5, 5, 3, 8, 1, 0, 50},
        {"Kestrel", "female/nova", 4, 4, 4, 4, 0, 0, 100},
        {"Dagny", "female/lynx", 3, 4, 5, 2, 0, 1, 150},
        {"Brannock", "male/ranger", 4, 3, 4, 7, 0, 0, 100},
        {"Mordecai", "ghoul/pale", 5, 1, 5, 8, 0, 0, 90},
        {"Echo", "cyborg/unit7", 2, 2, 2, 0, 0, 0, 200},
        {"Frostbite", "skarn/frost", 4, 2, 4, 5, 1, 1, 250},
        {"Lurch", "cyborg/rust", 3, 3, 3, 3, 0, 1, 350},
        {"Gunnar", "male/scout", 1, 3, 2, 3, 0, 0, 300},
        {"Isolde", "female/siren", 3, 5, 3, 6, 0, 0, 125},
        {"Nix", "male/", 2, 5, 1, 1, 1, 0, 60},
        {"Jax", "cyborg/chrome", 2, 4, 1, 1, 1, 1, 400},
    };
    return bots;
}

struct DemoTeam {
    const char* name;
    const char* abbreviation;
    const char* modelSkin;
    QList<const char*> members;
};

const QList<DemoTeam>& demoTeams()
{
    static const QList<DemoTeam> teams = {
        {"IronWolves", "IW", "male/ranger", {"Brannock", "Gunnar", "Harrow"}},
        {"EmberCourt", "EC", "skarn/ember", {"Cinder", "Frostbite", "Kestrel"}},
        {"ChromeSaints", "CS", "cyborg/chrome", {"Echo", "Jax", "Lurch"}},
        {"Nightjars", "NJ", "", {"Dagny", "Isolde", "Mordecai"}},
    };
    return teams;
}

QString quoted(const QString& text) { return QLatin1Char('"') + text + QLatin1Char('"'); }

QString padded(const QString& text, int width)
{
    return text + QString(qMax(0, width - int(text.size())), QLatin1Char(' '));
}

// Laid out as Torvik's own editors write rows, so that a save of an unchanged
// list only drops what the editors are meant to drop.
QByteArray botsCfg()
{
    QStringList lines = {
        QStringLiteral("# Gorvan Bot bots file, demo copy made by torvik-demo-install."),
        QStringLiteral("# name, model/skin, accuracy, aggressiveness, combat skills,"),
        QStringLiteral("# favourite weapon, quad freak, camper, ping"),
        QStringLiteral("[bots]"),
    };
    bool commented = false;
    for (const DemoBot& b : demoBots()) {
        if (!commented && QByteArray(b.name) == "Echo") {
            lines << QStringLiteral("# Rows stay in the file when their model or skin is missing; lists hide them.");
            commented = true;
        }
        lines << padded(quoted(QString::fromLatin1(b.name)), 17) + padded(quoted(QString::fromLatin1(b.modelSkin)), 21)
                     + QStringLiteral("%1 %2 %3 %4 %5 %6 %7")
                           .arg(b.accuracy)
                           .arg(b.aggressiveness)
                           .arg(b.combat)
                           .arg(b.weapon)
                           .arg(b.quad)
                           .arg(b.camper)
                           .arg(b.ping);
    }
    lines << QStringLiteral("[teams]");
    lines << QStringLiteral("# name, abbreviation, model/skin, members");
    for (const DemoTeam& t : demoTeams()) {
        const QString name = quoted(QString::fromLatin1(t.name));
        const QString gap(qMax(0, 23 - int(name.size())), QLatin1Char(' '));
        QString members;
        for (const char* m : t.members)
            members += quoted(QString::fromLatin1(m)) + QLatin1Char(' ');
        lines << name + gap + quoted(QString::fromLatin1(t.abbreviation)) + gap
                     + padded(quoted(QString::fromLatin1(t.modelSkin)), 21) + QLatin1Char('[') + members
                     + QLatin1Char(']');
    }
    lines << QString(); // the editors' single print leaves an empty last line
    return crlfText(lines);
}

QByteArray chatTxt()
{
    return crlfText({
        QStringLiteral("# Gorvan Bot chat file, demo copy made by torvik-demo-install."),
        QStringLiteral("#"),
        QStringLiteral("# NOTE: where you see a %s, that means a string goes there. All strings"),
        QStringLiteral("#       must appear in the same order for each section."),
        QStringLiteral("#"),
        QStringLiteral("# 1. Greetings"),
        QStringLiteral("#    Said when a bot joins a team, or when you join a bot's team."),
        QStringLiteral("# 2. Insults (general)"),
        QStringLiteral("#    Said at any time. %s is the player being insulted."),
        QStringLiteral("# 3. Insults (kicking ass)"),
        QStringLiteral("#    Said while the bot is beating you."),
        QStringLiteral("# 4. Insults (losing, coming back)"),
        QStringLiteral("#    Said when the bot is behind but has just fragged you."),
        QStringLiteral("# 5. Come-backs"),
        QStringLiteral("#    Said when the bot has been insulted."),
        QStringLiteral("# 6. TEAMPLAY: Help!"),
        QStringLiteral("#    Said when the bot is in trouble; near an item the game adds where."),
        QStringLiteral("# 7. TEAMPLAY: Drop Item"),
        QStringLiteral("#    Said when the bot carries more than it needs: the item, then the player."),
        QStringLiteral("# 8. TEAMPLAY: Let's Group!"),
        QStringLiteral("#    Said when the bot gathers its team for an attack."),
        QStringLiteral("#"),
        QStringLiteral("-- Greetings"),
        QStringLiteral("Hello all, glad to be on this side."),
        QStringLiteral("Reporting in. Try to keep up."),
        QStringLiteral("Evening, team."),
        QStringLiteral("-- Insults (general)"),
        QStringLiteral("%s, was that meant to hurt?"),
        QStringLiteral("My grandmother strafes better than that."),
        QStringLiteral("Nice aim, %s. Pity about the target."),
        QStringLiteral("-- Insults (kicking ass)"),
        QStringLiteral("Keep coming back, %s, I need the practice."),
        QStringLiteral("That's another one for the wall."),
        QStringLiteral("-- Insults (losing, coming back)"),
        QStringLiteral("Enjoy your lead while it lasts, %s."),
        QStringLiteral("The tide turns here."),
        QStringLiteral("-- Come-backs"),
        QStringLiteral("Talk is cheap, %s."),
        QStringLiteral("Words won't save you."),
        QStringLiteral("-- TEAMPLAY: Help!"),
        QStringLiteral("Need backup %s!"),
        QStringLiteral("Taking heavy fire, anyone near?"),
        QStringLiteral("-- TEAMPLAY: Drop Item (not implemented yet)"),
        QStringLiteral("Dropping %s for %s."),
        QStringLiteral("Spare %s here, come get it %s."),
        QStringLiteral("-- TEAMPLAY: Let's Group!"),
        QStringLiteral("Form up on me %s."),
        QStringLiteral("Regroup, we push together."),
    });
}

QByteArray mapsTxt()
{
    return crlfText({QStringLiteral("q2dm1"), QStringLiteral("demo_arena"), QStringLiteral("gorvan_pit"),
                     QStringLiteral("demo_yard"), QStringLiteral("base1")});
}

QByteArray mapEntry(const QByteArray& name) { return "maps/" + name + ".bsp"; }

QList<PakMember> basePak0()
{
    QList<PakMember> members;
    // Stock names: counted by the catalogue, hidden from the PAK category.
    for (const char* name : {"base1", "base2", "base3", "city1", "boss1"})
        members << PakMember{mapEntry(name), fakeBsp("Torvik demo stand-in for " + QByteArray(name))};
    for (const char* name : {"q2dm1", "q2dm2", "q2ctf1"})
        members << PakMember{mapEntry(name), fakeBsp("Torvik demo " + QByteArray(name))};
    members << PakMember{"pics/demo_logo.pcx", skinPicture({40, 40, 40})};
    members << PakMember{"sound/demo/hum.wav", toneWav(110.0, 120)};
    // Lookalikes that are no maps: wrong extension, wrong case.
    members << PakMember{"maps/readme.txt", "Maps of the Torvik demo install.\r\n"};
    members << PakMember{"MAPS/LOUD.BSP", fakeBsp("Upper-case entry")};
    return members;
}

QList<PakMember> basePak1()
{
    return {{mapEntry("demo_arena"), fakeBsp("Demo Arena")},
            {mapEntry("demo_canyon"), fakeBsp("Demo Canyon")},
            {"players/grunt/tris.md2", fakeMd2(64, 32)}};
}

QList<PakMember> gorvanPak()
{
    return {{mapEntry("gorvan_pit"), fakeBsp("The Gorvan Pit")},
            {mapEntry("gorvan_spire"), fakeBsp("Gorvan Spire")},
            {"docs/gorvan.txt", "Gorvan demo maps.\r\n"}};
}

// --- writing ---

class TreeWriter {
public:
    explicit TreeWriter(QString* error)
        : error_(error)
    {
    }

    bool fail(const QString& message)
    {
        if (error_)
            *error_ = message;
        return false;
    }

    // parent/name as a folder spelled exactly so. An earlier install's folder
    // spelt in another case is renamed rather than left beside the new one,
    // or a case-blind look-up would have two candidates.
    bool folder(const QString& parent, const QString& name, QString* path)
    {
        *path = parent + QLatin1Char('/') + name;
        const QFileInfo info(*path);
        if (info.exists() || info.isSymLink())
            return info.isDir() ? true : fail(QStringLiteral("Can't make the folder %1: a file of that name is in the way.").arg(*path));
        for (const QString& other : caseVariants(parent, name)) {
            if (!QFileInfo(parent + QLatin1Char('/') + other).isDir())
                continue;
            if (QDir(parent).rename(other, name))
                return true;
            return fail(QStringLiteral("Can't rename the folder %1/%2 to %3.").arg(parent, other, name));
        }
        if (!QDir(parent).mkdir(name))
            return fail(QStringLiteral("Can't make the folder %1.").arg(*path));
        return true;
    }

    bool file(const QString& folder, const QString& name, const QByteArray& data)
    {
        const QString path = folder + QLatin1Char('/') + name;
        for (const QString& other : caseVariants(folder, name)) {
            const QString otherPath = folder + QLatin1Char('/') + other;
            if (!QFileInfo(otherPath).isDir() && !QFile::remove(otherPath))
                return fail(QStringLiteral("Can't remove %1, left by an earlier install.").arg(otherPath));
        }
        if (QFileInfo(path).isDir())
            return fail(QStringLiteral("Can't write %1: a folder of that name is in the way.").arg(path));
        QSaveFile out(path);
        if (!out.open(QIODevice::WriteOnly))
            return fail(QStringLiteral("Can't write %1: %2").arg(path, out.errorString()));
        if (out.write(data) != data.size() || !out.commit())
            return fail(QStringLiteral("Can't write %1: %2").arg(path, out.errorString()));
        return true;
    }

    bool pak(const QString& folder, const QString& name, const QList<PakMember>& members)
    {
        QByteArray data;
        QString why;
        if (!buildPak(members, &data, &why))
            return fail(QStringLiteral("Can't write %1/%2: %3").arg(folder, name, why));
        return file(folder, name, data);
    }

private:
    static QStringList caseVariants(const QString& folder, const QString& name)
    {
        QStringList found;
        const QStringList entries =
            QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        for (const QString& entry : entries)
            if (entry != name && entry.compare(name, Qt::CaseInsensitive) == 0)
                found << entry;
        return found;
    }

    QString* error_;
};

} // namespace

bool createDemoInstall(const QString& root, QString* error, const DemoOptions& options)
{
    TreeWriter w(error);
    const bool mixed = options.mixedCase;
    auto spell = [mixed](const char* plain, const char* windows) {
        return QString::fromLatin1(mixed ? windows : plain);
    };

    if (root.isEmpty())
        return w.fail(QStringLiteral("No folder given for the demo install."));
    if (QFileInfo(root).exists() && !QFileInfo(root).isDir())
        return w.fail(QStringLiteral("Can't make the demo install in %1: it is a file.").arg(root));
    if (!QDir().mkpath(root))
        return w.fail(QStringLiteral("Can't make the folder %1.").arg(root));

    // The game: the stub stands in for the executable.
    QFile stub(QStringLiteral(TORVIK_STUB_GAME));
    if (!stub.open(QIODevice::ReadOnly))
        return w.fail(QStringLiteral("Can't read the stub game %1: %2").arg(stub.fileName(), stub.errorString()));
    const QByteArray stubBinary = stub.readAll();
    stub.close();
    const QString exe = gameExecutable(root);
    if (!w.file(root, QStringLiteral("quake2"), stubBinary))
        return false;
    if (!QFile::setPermissions(exe, QFile::permissions(exe) | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther))
        return w.fail(QStringLiteral("Can't make %1 executable.").arg(exe));

    QString base;
    if (!w.folder(root, spell("baseq2", "BaseQ2"), &base))
        return false;
    if (!w.pak(base, spell("pak0.pak", "PAK0.PAK"), basePak0()) || !w.pak(base, QStringLiteral("pak1.pak"), basePak1()))
        return false;

    QString maps;
    if (!w.folder(base, spell("maps", "Maps"), &maps)
        || !w.file(maps, QStringLiteral("demo_yard.bsp"), fakeBsp("Demo Yard"))
        || !w.file(maps, spell("demo_loft.bsp", "Demo_Loft.BSP"), fakeBsp("Demo Loft")))
        return false;

    QString players;
    if (!w.folder(base, spell("players", "Players"), &players))
        return false;
    for (const DemoModel& model : demoModels()) {
        const bool windows = mixed && QByteArray(model.mixedFolder) != model.folder;
        auto name = [windows](const QString& plain) { return windows ? plain.left(1).toUpper() + plain.mid(1) : plain; };
        auto ext = [windows](const char* plain) { return windows ? QString::fromLatin1(plain).toUpper() : QString::fromLatin1(plain); };
        QString folder;
        if (!w.folder(players, QString::fromLatin1(mixed ? model.mixedFolder : model.folder), &folder)
            || (model.meshOnDisk && !w.file(folder, name(QStringLiteral("tris")) + ext(".md2"), fakeMd2(96, 64))))
            return false;
        for (const DemoSkin& skin : model.skins) {
            const QString stem = name(QString::fromLatin1(skin.name));
            if (!w.file(folder, stem + ext(".pcx"), skinPicture(skin.colour, model.trueColour)))
                return false;
            if (skin.face && !w.file(folder, stem + ext("_i.pcx"), facePicture(skin.colour)))
                return false;
        }
        if (model.weaponSkin && !w.file(folder, QStringLiteral("weapon.pcx"), skinPicture({128, 128, 128})))
            return false;
        double pitch = 330.0;
        for (const char* sound : model.sounds) {
            if (!w.file(folder, QString::fromLatin1(sound), toneWav(pitch, 250)))
                return false;
            pitch *= 1.5;
        }
    }

    QString mod;
    if (!w.folder(root, QStringLiteral("gorvan"), &mod))
        return false;
    return w.file(mod, spell("gamex86.dll", "GameX86.DLL"), "Torvik demo stand-in for the Gorvan game library.\n")
           && w.file(mod, spell("bots.cfg", "Bots.cfg"), botsCfg()) && w.file(mod, spell("chat.txt", "Chat.txt"), chatTxt())
           && w.file(mod, spell("maps.txt", "Maps.TXT"), mapsTxt())
           && w.pak(mod, spell("pak0.pak", "PAK0.PAK"), gorvanPak());
}

QByteArray bspMap(const QByteArray& title) { return fakeBsp(title); }

QString gameExecutable(const QString& root) { return root + QStringLiteral("/quake2"); }
QString modFolder(const QString& root) { return root + QStringLiteral("/gorvan"); }

QString baseFolder(const QString& root, const DemoOptions& options)
{
    return root + (options.mixedCase ? QStringLiteral("/BaseQ2") : QStringLiteral("/baseq2"));
}

QString stubLog(const QString& root) { return root + QStringLiteral("/stubgame.log"); }

} // namespace demo
