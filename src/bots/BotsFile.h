#pragma once
// The grammar of bots.cfg: line readers and row writers over plain bytes, no
// files and no boxes. The rules are those of the mod's own reader and of the
// editors that wrote the files in the field, including their quirks, since
// files made by either must keep reading the same.
#include "bots/BotStore.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>
#include <vector>

namespace torvik {

// No scan inside a row goes further than this many steps, whatever the row
// holds: it is the working limit of a row and keeps odd input cheap.
inline constexpr int kRowScanLimit = 5000;

// The progress bar a load shares between its read and its listing: a value
// that never runs past its maximum. Reports go to the callback, if any.
class ProgressBar {
public:
    explicit ProgressBar(ProgressFn report = {}) : report_(std::move(report)) {}
    void setMaximum(int maximum); // and the value back to 0
    void step();                  // one on, unless already full
    int value() const { return value_; }
    int maximum() const { return maximum_; }

private:
    ProgressFn report_;
    int value_ = 0;
    int maximum_ = 0;
};

// The file's lines, without their ends. CR LF, a lone CR and a lone LF each
// end a line; a last line without an end still counts, a final line end
// doesn't start another line.
std::vector<QByteArrayView> splitBotsFileLines(QByteArrayView file);

// Index of the line behind the first line whose first six characters are
// "[bots]" (case counts); nullopt when there is none.
std::optional<size_t> SkipToBots(const std::vector<QByteArrayView>& lines);
// The same for "[teams]", seven characters.
std::optional<size_t> SkipToTeams(const std::vector<QByteArrayView>& lines);

// The number of a one-character column or of the ping: optional sign and
// decimal digits, within 16 bits. Anything else is no number.
std::optional<qint16> botNumber(QByteArrayView text);

// Scans one bot row (its first character is the opening quotation mark) into
// bot. False when a column or the ping isn't a number; the columns up to the
// failing one are filled by then.
bool ParseBotLine(QByteArrayView line, BotRecord& bot);
// Scans one team row. A team row can't fail: odd rows give odd fields.
TeamRecord ParseTeamLine(QByteArrayView line);

struct BotsSection {
    bool found = false;          // there was a "[bots]" line
    std::vector<BotRecord> rows; // with the failed row last, when rowFailed
    bool rowFailed = false;      // a row didn't convert or lay past kMaxBots
    QString teamsText;           // lines behind the exact "[teams]" line, CR LF each
};
// Reads the bots section. Progress, when given, is sized by a counting pass
// and stepped once per line of the section.
BotsSection ReadBotsSection(QByteArrayView file, ProgressBar* progress = nullptr);

struct TeamsSection {
    bool found = false;           // there was a "[teams]" line
    std::vector<TeamRecord> rows; // with an empty last row when rowFailed
    bool rowFailed = false;       // a team row lay past kMaxTeams
    int lines = 0;                // lines behind "[teams]", every kind
};
TeamsSection ReadTeamsSection(QByteArrayView file);

// A bot row laid out as the editors write it, without line end; nullopt
// when the quoted name is wider than its 17 columns.
std::optional<QString> botRowText(const BotRecord& bot);
// A team row the same way; nullopt when the quoted name is wider than 23.
std::optional<QString> teamRowText(const TeamRecord& team);

// The whole file as SaveBots writes it: the rows, "[teams]", teamsText,
// then the one line end of the final print. Nullopt when a row doesn't fit.
std::optional<QByteArray> botsFileForBots(const std::vector<BotRecord>& bots, const QString& teamsText);
// The whole file as the team editor writes it, teams rebuilt from rows.
std::optional<QByteArray> botsFileForTeams(const std::vector<BotRecord>& bots,
                                           const std::vector<TeamRecord>& teams);

} // namespace torvik
