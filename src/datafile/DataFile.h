#pragma once
// The saved answers of one pass through the wizard: the ".tkd" file of
// absolute positions and its ".tke" companion with the custom flags' states.
// Plain functions over bytes; the pages fill and read SavedAnswers.
#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

namespace datafile {

// Control names are the keys; the multiplayer options form's controls carry
// "Advanced." in front, as they share names with the pages'.
struct SavedAnswers {
    // '1' DM (Option1), '2' team DM (Option2), '3' CTF (Option3), '4' single player (Option8).
    char gameType = '1';
    QString map;       // Label24
    QString skillName; // Label31
    int skill = 0;     // HScroll2
    QMap<QString, bool> checks;
    QMap<QString, QString> texts;
    QMap<QString, bool> enabled; // text boxes whose enabled state is kept
    // Team game.
    QString ownTeam;        // Combo1
    QStringList teams;      // selected rows of List3
    // Bot game.
    bool randomBots = true; // Option4, else Option5
    int randomSlider = 0;   // HScroll1
    QString chosenCount = QStringLiteral("0"); // Label36
    QStringList bots;       // selected rows of List2
    QStringList redBots;    // List5
    QStringList blueBots;   // List6
    // List rows by their index; -1 is none.
    int handIndex = -1;      // Combo3
    int crosshairIndex = -1; // Combo4
    int teamChoice = -1;     // Combo7
    int rateIndex = -1;      // Advanced.Combo8
    QString model;           // Combo5
    QString skin;            // Combo6
};

QByteArray writeDataFile(const SavedAnswers& answers);

// A saved pass takes a few hundred bytes and some more per chosen bot; a
// file far beyond that is no data file, and its name lists would only fill
// the memory.
constexpr qsizetype kLargestDataFile = 1 << 20;

struct ReadResult {
    enum Status { Loaded, Old, Damaged } status = Damaged;
    SavedAnswers answers;
    // Single player files keep only the game type and the map.
    bool singlePlayer = false;
};
ReadResult readDataFile(const QByteArray& bytes);

// One custom flag's state as the companion keeps it.
struct FlagState {
    QString name;
    bool on = false;
};
QByteArray writeCompanion(const QList<FlagState>& flags);
QList<FlagState> readCompanion(const QByteArray& bytes);

} // namespace datafile
