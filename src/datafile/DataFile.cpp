#include "datafile/DataFile.h"

#include <array>

namespace datafile {
namespace {

constexpr char kVersion = '9';

// Check boxes of the first part, in the order of their places 38 to 102
// (every second byte); place 66 is the dedicated server box of the
// multiplayer options.
constexpr std::array<const char*, 33> kPartOneChecks = {
    "Check2",  "Check3",  "Check4",  "Check5",  "Check6",  "Check7",  "Check8",  "Check9",  "Check10",
    "Check11", "Check12", "Check13", "Check14", "Check15", "Advanced.Check16", "Check17", "Check18",
    "Check19", "Check20", "Check21", "Check22", "Check23", "Check24", "Check25", "Check26", "Check27",
    "Check28", "Check29", "Check31", "Check32", "Check35", "Check36", "Check37"};

// The tail's boxes from its start, one every second byte, behind the four
// list digits.
constexpr std::array<const char*, 5> kTailChecks = {"Check39", "Check40", "Check41", "Check42", "Check43"};
constexpr std::array<const char*, 9> kTailChecks2 = {"Advanced.Check1", "Advanced.Check2", "Advanced.Check3",
                                                     "Advanced.Check4", "Advanced.Check5", "Check16",
                                                     "Check47",         "Check45",         "Check46"};

// Places are counted from 1, as the format has always told them.
class Writer {
public:
    void put(int place, const QByteArray& bytes)
    {
        const qsizetype end = place - 1 + bytes.size();
        if (bytes_.size() < end)
            bytes_.resize(end, '\0');
        for (qsizetype i = 0; i < bytes.size(); ++i)
            bytes_[place - 1 + i] = bytes[i];
    }
    void put(int place, char c) { put(place, QByteArray(1, c)); }
    void digit(int place, bool on) { put(place, on ? '1' : '0'); }
    void fixed(int place, const QString& text, int size)
    {
        QByteArray bytes = text.toLatin1().left(size);
        bytes.append(QByteArray(size - bytes.size(), ' '));
        put(place, bytes);
    }
    // The type word 8 and the length, then the text.
    void counted(int place, const QString& text)
    {
        const QByteArray bytes = text.toLatin1();
        const auto n = static_cast<quint16>(bytes.size());
        put(place, QByteArray("\x08\x00", 2) + char(n & 0xff) + char(n >> 8) + bytes);
    }
    int size() const { return static_cast<int>(bytes_.size()); }
    QByteArray bytes_;
};

QString nameList(const QStringList& names)
{
    QString text;
    for (const QString& n : names)
        text += QLatin1Char(' ') + n;
    return text + QLatin1Char(' ');
}

QString ctfLists(const QStringList& red, const QStringList& blue)
{
    QString text;
    for (const QString& n : red)
        text += QLatin1Char(' ') + n;
    text += QStringLiteral(" #");
    for (const QString& n : blue)
        text += QLatin1Char(' ') + n;
    return text + QStringLiteral(" #");
}

char listDigit(int index, int highest) { return index >= 1 && index <= highest ? char('0' + index) : '0'; }

// Reading never fails on a short file: what isn't there reads as zero bytes,
// which then fail as numbers where a number is wanted.
class Reader {
public:
    explicit Reader(const QByteArray& bytes) : bytes_(bytes) {}
    char at(qsizetype place) const
    {
        return place >= 1 && place <= bytes_.size() ? bytes_[place - 1] : '\0';
    }
    QByteArray take(qsizetype place, int size) const
    {
        QByteArray out;
        for (int i = 0; i < size; ++i)
            out += at(place + i);
        return out;
    }
    // An open text runs on into the next fields; its end is the first zero byte.
    static QString upToZero(const QByteArray& bytes)
    {
        const qsizetype zero = bytes.indexOf('\0');
        return QString::fromLatin1(zero < 0 ? bytes : bytes.left(zero));
    }
    static QString withoutBlanks(const QByteArray& bytes)
    {
        QByteArray b = bytes;
        b.replace(' ', QByteArray());
        return upToZero(b);
    }
    int number(qsizetype place)
    {
        const char c = at(place);
        if (c < '0' || c > '9') {
            bad = true;
            return 0;
        }
        return c - '0';
    }
    // Names between blanks from a place on, up to the stop byte or the end.
    // Returns the place of the stop byte, or 0 when the file ended first.
    qsizetype names(qsizetype place, char stop, QStringList* out) const
    {
        QByteArray gathered;
        for (; place <= bytes_.size(); ++place) {
            const char c = at(place);
            if (c == stop)
                return place;
            if (c == ' ') {
                if (!gathered.isEmpty())
                    *out << QString::fromLatin1(gathered);
                gathered.clear();
            } else {
                gathered += c;
            }
        }
        return 0;
    }
    qsizetype size() const { return bytes_.size(); }
    bool bad = false;

private:
    const QByteArray& bytes_;
};

// The player name: quotes are skipped, and a quote before a blank ends it.
// The name box takes 23 characters, which cuts what ran on behind the name.
QString playerName(const QByteArray& field)
{
    QByteArray name;
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] == '"') {
            if (i + 1 < field.size() && field[i + 1] == ' ')
                break;
            continue;
        }
        name += field[i];
    }
    return Reader::upToZero(name).left(23);
}

} // namespace

QByteArray writeDataFile(const SavedAnswers& a)
{
    Writer w;
    w.put(1, QByteArray(1, a.gameType) + ' ');
    w.put(2, kVersion);
    w.put(3, a.map.toLatin1());
    w.digit(21, a.checks.value(QStringLiteral("Check1")));
    w.fixed(23, a.skillName, 10);
    w.put(34, QString::number(a.skill).toLatin1());
    for (int i = 0; i < int(kPartOneChecks.size()); ++i)
        w.digit(38 + 2 * i, a.checks.value(QLatin1String(kPartOneChecks[i])));
    auto text = [&a](const char* name) { return a.texts.value(QLatin1String(name)); };
    auto on = [&a](const char* name) { return a.enabled.value(QLatin1String(name)); };
    w.digit(104, on("Text16"));
    w.put(106, text("Text16").toLatin1());
    w.fixed(117, QLatin1Char('"') + text("Text13") + QLatin1Char('"'), 25);
    w.put(141, text("Text14").toLatin1());
    w.put(152, text("Text10").toLatin1());
    w.digit(163, on("Text10"));
    w.put(165, text("Text11").toLatin1());
    w.digit(176, on("Text11"));
    w.put(178, text("Text4").toLatin1());
    w.digit(189, on("Text4"));
    w.fixed(191, text("Text3"), 10);
    w.digit(211, on("Text3"));
    w.fixed(213, text("Text5"), 10);
    w.digit(224, on("Text5"));

    if (a.gameType == '2') {
        w.fixed(235, text("Text2"), 10);
        w.fixed(246, a.ownTeam, 25);
        if (!a.teams.isEmpty())
            w.counted(270, nameList(a.teams));
    } else if (a.randomBots) {
        w.put(235, '0');
        w.fixed(237, text("Text1"), 2);
        w.fixed(239, QString::number(a.randomSlider), 2);
    } else {
        w.put(235, '1');
        w.fixed(237, a.chosenCount, 10);
        if (a.chosenCount != QLatin1String("0")) {
            const QString bots = nameList(a.bots);
            const int l = static_cast<int>(bots.toLatin1().size());
            w.counted(250, bots);
            w.put(260 + l, '#');
            w.digit(262 + l, a.checks.value(QStringLiteral("Check38")));
            w.counted(264 + l, ctfLists(a.redBots, a.blueBots));
        }
    }

    const int t = w.size() + 2;
    for (int i = 0; i < int(kTailChecks.size()); ++i)
        w.digit(t + 2 * i, a.checks.value(QLatin1String(kTailChecks[i])));
    w.put(t + 10, listDigit(a.handIndex, 2));
    w.put(t + 12, listDigit(a.crosshairIndex, 3));
    w.put(t + 14, listDigit(a.teamChoice, 2));
    w.put(t + 16, listDigit(a.rateIndex, 8));
    for (int i = 0; i < int(kTailChecks2.size()); ++i)
        w.digit(t + 18 + 2 * i, a.checks.value(QLatin1String(kTailChecks2[i])));
    w.fixed(t + 36, text("Text15"), 10);
    QString address;
    for (const char* box : {"Advanced.Text1", "Advanced.Text2", "Advanced.Text3", "Advanced.Text4"})
        address += text(box) + QLatin1Char('.');
    w.fixed(t + 48, address, 25);
    w.digit(t + 80, a.checks.value(QStringLiteral("Advanced.Check6")));
    w.counted(t + 82, QLatin1Char('#') + a.model + QLatin1Char('/') + a.skin + QStringLiteral(" #"));
    return w.bytes_;
}

ReadResult readDataFile(const QByteArray& bytes)
{
    ReadResult result;
    SavedAnswers& a = result.answers;
    Reader r(bytes);
    if (r.at(2) != kVersion) {
        result.status = ReadResult::Old;
        return result;
    }
    result.status = ReadResult::Damaged;
    a.gameType = r.at(1);
    if (a.gameType < '1' || a.gameType > '4' || bytes.size() > kLargestDataFile)
        return result;
    a.map = Reader::withoutBlanks(r.take(3, 25));
    if (a.gameType == '4') {
        result.singlePlayer = true;
        result.status = ReadResult::Loaded;
        return result;
    }

    auto check = [&](const char* name, qsizetype place) { a.checks[QLatin1String(name)] = r.number(place) != 0; };
    auto onAt = [&](const char* name, qsizetype place) { a.enabled[QLatin1String(name)] = r.number(place) == 1; };
    auto text = [&](const char* name, qsizetype place, int size) {
        a.texts[QLatin1String(name)] = Reader::withoutBlanks(r.take(place, size));
    };
    check("Check1", 21);
    a.skillName = Reader::withoutBlanks(r.take(23, 10));
    a.skill = r.number(34);
    for (int i = 0; i < int(kPartOneChecks.size()); ++i)
        check(kPartOneChecks[i], 38 + 2 * i);
    onAt("Text16", 104);
    text("Text16", 106, 25);
    a.texts[QStringLiteral("Text13")] = playerName(r.take(117, 25));
    text("Text14", 141, 25);
    text("Text10", 152, 10);
    onAt("Text10", 163);
    text("Text11", 165, 10);
    onAt("Text11", 176);
    text("Text4", 178, 10);
    onAt("Text4", 189);
    text("Text3", 191, 10);
    onAt("Text3", 211);
    text("Text5", 213, 10);
    onAt("Text5", 224);

    if (a.gameType == '2') {
        text("Text2", 235, 10);
        const QByteArray team = r.take(246, 25);
        a.ownTeam = Reader::upToZero(team.left(team.indexOf(' ') < 0 ? team.size() : team.indexOf(' ')));
        // The list has no end mark; its names are followed by the tail's
        // zero byte, which no team name holds.
        r.names(275, '\0', &a.teams);
    } else if (r.at(235) == '0') {
        a.randomBots = true;
        a.texts[QStringLiteral("Text1")] = QString::fromLatin1(r.take(237, 2)).trimmed();
        const QByteArray slider = r.take(239, 2).trimmed();
        bool ok = false;
        a.randomSlider = slider.toInt(&ok);
        if (!ok)
            return result;
    } else {
        a.randomBots = false;
        const QByteArray count = r.take(237, 10);
        a.chosenCount = QString::fromLatin1(count.left(count.indexOf(' ') < 0 ? count.size() : count.indexOf(' ')));
        // Read even when no bot was chosen: the list then ends at the
        // model's "#", and what follows it comes in as team names that
        // match no chosen bot.
        const qsizetype p = r.names(255, '#', &a.bots);
        if (p > 0) {
            a.checks[QStringLiteral("Check38")] = r.at(p + 2) == '1';
            const qsizetype q = r.names(p + 9, '#', &a.redBots);
            if (q > 0)
                r.names(q + 2, '#', &a.blueBots);
        }
    }

    // The tail from the end backwards: the model and skin text, then the
    // fields before it.
    qsizetype t = r.size() - 2;
    QByteArray gathered;
    bool found = false;
    for (int step = 0; step < 5000 && t >= 1; ++step) {
        const char c = r.at(t);
        if (c == '#') {
            a.model = QString::fromLatin1(gathered);
            t -= 6;
            found = true;
            break;
        }
        if (c == '/') {
            a.skin = QString::fromLatin1(gathered);
            gathered.clear();
        } else {
            gathered.prepend(c);
        }
        --t;
    }
    if (!found || t - 80 < 1)
        return result;
    const qsizetype start = t - 80;
    a.checks[QStringLiteral("Advanced.Check6")] = r.at(t) == '1';
    const QStringList address = QString::fromLatin1(r.take(start + 48, 25)).split(QLatin1Char('.'));
    for (int i = 0; i < 4; ++i)
        a.texts[QStringLiteral("Advanced.Text%1").arg(i + 1)] =
            i < address.size() ? Reader::withoutBlanks(address[i].toLatin1()) : QString();
    text("Text15", start + 36, 10);
    for (int i = 0; i < int(kTailChecks2.size()); ++i)
        check(kTailChecks2[i], start + 18 + 2 * i);
    a.rateIndex = r.number(start + 16);
    a.teamChoice = r.number(start + 14);
    a.crosshairIndex = r.number(start + 12);
    a.handIndex = r.number(start + 10);
    for (int i = 0; i < int(kTailChecks.size()); ++i)
        check(kTailChecks[i], start + 2 * i);
    if (r.bad)
        return result;
    result.status = ReadResult::Loaded;
    return result;
}

QByteArray writeCompanion(const QList<FlagState>& flags)
{
    QByteArray out;
    for (const FlagState& f : flags)
        out += '"' + f.name.toLatin1() + "{}" + (f.on ? '1' : '5') + "\"\r\n";
    return out;
}

// The name runs to the first "{", the value to the next double quote;
// anything after it on the line is not looked at.
QList<FlagState> readCompanion(const QByteArray& bytes)
{
    QList<FlagState> flags;
    for (QByteArray line : bytes.split('\n')) {
        if (line.endsWith('\r'))
            line.chop(1);
        if (line.isEmpty())
            continue;
        const qsizetype brace = line.indexOf('{', 1);
        if (brace < 0)
            continue;
        const qsizetype valueStart = brace + 2;
        const qsizetype quote = line.indexOf('"', valueStart);
        const QByteArray value = line.mid(valueStart, quote < 0 ? -1 : quote - valueStart);
        flags << FlagState{QString::fromLatin1(line.mid(1, brace - 1)), value == "1"};
    }
    return flags;
}

} // namespace datafile
