#include "command/Composer.h"

#include "platform/Files.h"

namespace torvik {
namespace {

const QString CRLF = QStringLiteral("\r\n");

QString flag(bool on) { return on ? QStringLiteral("1") : QStringLiteral("0"); }

// Word one is what stands before the first "{"; the "{" and the character
// behind it are skipped; word two runs to the next "{".
QString customToken(const QString& text)
{
    const qsizetype first = text.indexOf(QLatin1Char('{'));
    const QString one = first < 0 ? text : text.left(first);
    QString two;
    if (first >= 0) {
        const QString rest = text.mid(first + 2);
        const qsizetype next = rest.indexOf(QLatin1Char('{'));
        two = next < 0 ? rest : rest.left(next);
    }
    return CRLF + QLatin1Char('+') + one + QLatin1Char(' ') + two;
}

QString botLines(const ComposerInput& in)
{
    if (in.gameTypeCode == QLatin1String("DMT")) {
        qsizetype selected = 0;
        for (bool s : in.teamSelected)
            selected += s ? 1 : 0;
        if (selected == 0)
            return QString();
        QString token = CRLF + QStringLiteral("+sv teams");
        for (qsizetype i = 0; i < in.teamRows.size(); ++i) {
            if (i >= in.teamSelected.size() || !in.teamSelected[i])
                continue;
            if (in.teamRows[i] != in.ownTeam)
                token += QLatin1Char(' ') + in.teamRows[i];
            else if (selected == 1)
                return QString();
        }
        return CRLF + QStringLiteral("+cmd join ") + in.ownTeam + token;
    }

    QString token;
    if (in.specificBots) {
        if (in.selectedCount == QLatin1String("0"))
            return QString();
        if (in.specificTeams) {
            if (!in.redBots.isEmpty()) {
                token = CRLF + QStringLiteral("+sv redbots");
                for (const QString& b : in.redBots)
                    token += QLatin1Char(' ') + b;
            }
            if (!in.blueBots.isEmpty()) {
                token += QLatin1Char(' ') + CRLF + QStringLiteral("+sv bluebots");
                for (const QString& b : in.blueBots)
                    token += QLatin1Char(' ') + b;
            }
        } else {
            token = CRLF + QStringLiteral("+sv bots");
            for (const QString& b : in.selectedBots)
                token += QLatin1Char(' ') + b;
        }
    }
    if (in.gameTypeCode == QLatin1String("CTF")) {
        if (in.teamChoice == 1)
            token += CRLF + QStringLiteral("+cmd team red");
        else if (in.teamChoice >= 2)
            token += CRLF + QStringLiteral("+cmd team blue");
    }
    return token;
}

} // namespace

int rateForIndex(int index)
{
    static const int rates[] = {0, 2500, 3200, 5000, 5500, 10000, 10000, 25000, 25000};
    return index >= 0 && index < 9 ? rates[index] : 0;
}

QString composeCommandLine(const ComposerInput& in)
{
    const bool ctf = in.gameTypeCode == QLatin1String("CTF");
    QString c = in.quake2Location;
    if (in.dedicated)
        c += QStringLiteral(" +set dedicated 1");
    c += QStringLiteral(" +set game ") + in.modShortName + QLatin1Char(' ');
    c += QStringLiteral(" +set deathmatch 1");
    for (const CustomOption& option : in.customOptions)
        if (option.ticked)
            c += customToken(option.text);
    c += CRLF + QStringLiteral("+set teamplay ") + flag(in.gameTypeCode == QLatin1String("DMT"));
    if (in.setName)
        c += CRLF + QStringLiteral("+set name \"") + in.playerName + QLatin1Char('"');
    c += CRLF + QStringLiteral("+set skill ") + QString::number(in.skill);
    c += CRLF + QStringLiteral("+set view_weapons ") + flag(in.viewWeapons);
    c += CRLF + QStringLiteral("+set cheats ") + flag(in.cheats);
    if (in.timeLimitOn)
        c += CRLF + QStringLiteral("+set timelimit ") + in.timeLimit;
    if (in.fragLimitOn)
        c += CRLF + QStringLiteral("+set fraglimit ") + in.fragLimit;
    c += CRLF + QStringLiteral("+set bot_chat ") + flag(in.botChat);
    c += CRLF + QStringLiteral("+set bot_auto_skill ") + flag(in.autoSkill);
    c += CRLF + QStringLiteral("+set bot_allow_client_commands ") + flag(in.clientCommands);
    c += CRLF + QStringLiteral("+set bot_show_connect_info ") + flag(in.connectInfo);
    c += CRLF + QStringLiteral("+set bot_calc_nodes ") + flag(in.calcNodes);
    if (ctf && in.captureLimitOn)
        c += CRLF + QStringLiteral("+set capturelimit ") + in.captureLimit;
    const bool autoTeams = ctf && in.ctfAutoTeams;
    if (autoTeams) {
        c += CRLF + QStringLiteral("+set ctf_auto_teams ") + in.ctfTeamSize;
    } else {
        if (in.maxPlayersOn)
            c += CRLF + QStringLiteral("+set maxclients ") + in.maxPlayers;
        if (in.randomBots && in.randomBotCount != QLatin1String("0"))
            c += CRLF + QStringLiteral("+set bot_num ") + in.randomBotCount;
    }
    if (in.freeSlotsOn)
        c += CRLF + QStringLiteral("+set bot_free_clients ") + in.freeSlots;
    c += CRLF + QStringLiteral("+set dmflags ") + QString::number(dmflagsForGame(in.dmflags, ctf));
    if (in.gameTypeCode == QLatin1String("DMT"))
        c += CRLF + QStringLiteral("+set players_per_team ") + in.playersPerTeam;
    c += CRLF + QStringLiteral("+set mapmod_random ") + flag(in.mapmodRandom);
    if (in.tarzanEnabled)
        c += CRLF + QStringLiteral("+set bot_tarzan ") + flag(in.tarzan);
    if (in.handOn)
        c += CRLF + QStringLiteral("+set hand ") + QString::number(in.handIndex);
    if (in.crosshairOn)
        c += CRLF + QStringLiteral("+set crosshair ") + QString::number(in.crosshairIndex);
    if (in.skinOn)
        c += CRLF + QStringLiteral("+set skin \"") + in.model + QLatin1Char('/') + in.skin + QLatin1Char('"');
    if (ctf)
        c += CRLF + QStringLiteral("+set ctf 1");
    if (!in.rateText.isEmpty() && in.rateIndex > 0)
        c += CRLF + QStringLiteral("+set rate ") + QString::number(rateForIndex(in.rateIndex));
    // Special and human-only teams count only while the automatic team size is off.
    if (!in.ctfAutoTeams && in.specialTeams)
        c += CRLF + QStringLiteral("+set ctf_special_teams ") + in.specialTeamsBots;
    if (!in.ctfAutoTeams && in.humanOnlyTeams)
        c += CRLF + QStringLiteral("+set ctf_humanonly_teams 1");
    if (in.downloads) {
        c += CRLF + QStringLiteral("+set allow_download 1");
        c += CRLF + QStringLiteral("+set allow_download_maps ") + flag(in.downloadMaps);
        c += CRLF + QStringLiteral("+set allow_download_models ") + flag(in.downloadModels);
        c += CRLF + QStringLiteral("+set allow_download_sounds ") + flag(in.downloadSounds);
        c += CRLF + QStringLiteral("+set allow_download_players ") + flag(in.downloadPlayers);
    } else {
        c += CRLF + QStringLiteral("+set allow_download 0");
    }
    if (in.connect)
        c += CRLF + QStringLiteral("+set connect \"") + in.address[0] + QLatin1Char('.') + in.address[1]
            + QLatin1Char('.') + in.address[2] + QLatin1Char('.') + in.address[3] + QLatin1Char('"');
    c += CRLF + QStringLiteral("+map ") + in.map;
    if (in.lagOn)
        c += CRLF + QStringLiteral("+cmd lag \"") + in.lag + QLatin1Char('"');
    c += botLines(in);
    return c;
}

SplitCommand splitCommandLine(const QString& text, bool dedicated)
{
    QString out;
    out.reserve(text.size());
    bool outsideQuotes = true;
    bool alias = false;
    QString match;
    for (const QChar c : text) {
        if (c == QLatin1Char('"')) {
            if (alias && match == QLatin1String("ALIAS")) {
                match.clear();
                alias = false;
            }
            outsideQuotes = !outsideQuotes;
        }
        // The matcher only needs the letters of "alias" in order, the last
        // two side by side: custom aliases rely on that looseness.
        const QChar u = c.toUpper();
        if (match.isEmpty() && u == QLatin1Char('A'))
            match = QStringLiteral("A");
        else if (match == QLatin1String("A") && u == QLatin1Char('L'))
            match = QStringLiteral("AL");
        else if (match == QLatin1String("AL") && u == QLatin1Char('I'))
            match = QStringLiteral("ALI");
        else if (match == QLatin1String("ALI") && u == QLatin1Char('A'))
            match = QStringLiteral("ALIA");
        else if (match == QLatin1String("ALIA")) {
            if (u == QLatin1Char('S')) {
                match = QStringLiteral("ALIAS");
                alias = true;
            } else {
                match.clear();
                alias = false;
            }
        }
        if (c == QLatin1Char('+')) {
            if (alias && match == QLatin1String("ALIAS")) {
                match.clear();
                alias = false;
            } else if (outsideQuotes) {
                alias = false;
                match.clear();
                continue;
            }
        }
        out += c;
    }
    const qsizetype p = out.indexOf(QLatin1String("deathmatch 1"));
    qsizetype n = p + 13;
    if (dedicated)
        ++n;
    SplitCommand result;
    if (n == -1)
        return result;
    result.ok = true;
    result.launchHead = text.left(n + 1);
    result.config = out.mid(n);
    return result;
}

QStringList splitHead(const QString& head, const QString& gamePath)
{
    QStringList words;
    QString rest = head;
    if (!gamePath.isEmpty() && (rest == gamePath || rest.startsWith(gamePath + QLatin1Char(' ')))) {
        words << gamePath;
        rest = rest.mid(gamePath.size());
    }
    QString word;
    bool quoted = false;
    bool inWord = false;
    for (const QChar c : rest) {
        if (c == QLatin1Char('"')) {
            quoted = !quoted;
            inWord = true;
        } else if (c == QLatin1Char(' ') && !quoted) {
            if (inWord)
                words << word;
            word.clear();
            inWord = false;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (inWord)
        words << word;
    return words;
}

QByteArray configFileBytes(const QString& config)
{
    static const QString kMap = QStringLiteral("map ");
    QByteArray out;
    const QStringList lines = config.split(QStringLiteral("\r\n"));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (i > 0)
            out += "\r\n";
        const QString& line = lines[i];
        if (line.startsWith(kMap))
            out += kMap.toLatin1() + platform::fileNameBytes(line.mid(kMap.size()));
        else
            out += line.toLatin1();
    }
    return out;
}

} // namespace torvik
