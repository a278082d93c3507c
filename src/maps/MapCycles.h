#pragma once
// Map cycles: the mod's "maps.txt" and the cycles saved beside Torvik as
// "<title>.mc". Both have one format (a map a line, CR LF), so putting a saved
// cycle in force is a plain copy.
#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace torvik {

// Row 0 of the cycle lists: keep the mod's own maps.txt.
inline const QString kCurrentMapCycle = QStringLiteral("Current Map Cycle");
// The CycleTitle of the open cycle when it is maps.txt itself. Exact case:
// "maps.txt" is an ordinary saved cycle called "maps.txt".
inline const QString kCurrentCycleTitle = QStringLiteral("Maps.txt");
inline QString CycleTitle;

inline constexpr int MaxCycleTitleLength = 15;

inline const QString kCycleTitleBoxTitle = QStringLiteral("Title Name");
inline const QString kCycleTitlePrompt =
    QStringLiteral("Type in the name of the Map Cycle. {i.e. CTF1) {Limit to 15 Characters}");
inline const QString kTitleTooLongText = QStringLiteral("File name to long...Try again.");
inline const QString kTitleBadCharacterText =
    QStringLiteral("File name can't hold / \\ : * ? \" < > | or control characters...Try again.");
inline const QString kNothingToSaveText = QStringLiteral("There's nothing to save!");
inline const QString kCycleNotSavedText = QStringLiteral("Couldn't save the map cycle.");
inline const QString kFixMapCycleFailedText = QStringLiteral("Error! Couldn't fix up the map cycle. Ending Torvik.");

// The maps of a cycle file: lines ended by CR LF (a lone CR or LF also ends a
// line), exactly empty lines skipped, nothing trimmed. Map names keep the
// bytes of their file names.
QStringList parseMapCycle(const QByteArray& bytes);
// The file as Torvik writes it: each map and CR LF, then one more CR LF.
QByteArray mapCycleText(const QStringList& maps);
std::optional<QStringList> readMapCycle(const QString& path);
// Replaces the file whole.
bool writeMapCycle(const QString& path, const QStringList& maps);

// The mod folder's maps.txt, spelled as on disk when it is there.
QString currentCyclePath();
// "Saved/<title>.mc" in the program folder, spelled as on disk when there.
QString savedCyclePath(const QString& title);
// Where saving a cycle with this title writes: maps.txt for "Maps.txt",
// otherwise the saved cycle. In a program folder at the root, "Saved" and the
// title run together ("/SavedCTF1.mc"), as they always have. Empty when the
// title would lead out of that folder ("/" or NUL in it).
QString cycleSavePath(const QString& title);

std::optional<QStringList> readCurrentMapCycle();
std::optional<QStringList> readSavedMapCycle(const QString& title);

// Titles of the saved cycles, in file list order, without ".mc".
QStringList savedCycleTitles();
// The rows of the cycle drop-down (and of the load form's list):
// "Current Map Cycle", then the saved titles.
QStringList LoadMapCycles();

enum class CycleTitleCheck { Ok, Empty, TooLong, BadCharacter };
// A new title: not empty, at most 15 characters, and nothing a file name
// can't hold ("/" or NUL).
CycleTitleCheck checkCycleTitle(const QString& title);
// Asks for a new cycle's title until it passes, telling why a title didn't.
// Empty when the user gave no title (or cancelled).
QString askCycleTitle();

// Writes a cycle under its title (see cycleSavePath). An empty list shows
// "There's nothing to save!" and writes nothing; so does a title that would
// lead out of the Saved folder, with its own message. False when nothing was
// written.
bool SaveMapCycle(const QString& title, const QStringList& maps);
// Deletes a saved cycle; false when it wasn't there or couldn't be deleted.
bool deleteSavedCycle(const QString& title);

// Puts the saved cycle `title` in force: its bytes replace maps.txt (under the
// spelling maps.txt already has). The saved cycle is read before maps.txt is
// touched, so a missing cycle costs nothing. False with a reason otherwise.
bool replaceCurrentCycle(const QString& title, QString* why = nullptr);
// Run before the game starts with the drop-down's text and its first row.
// The text of the first row ("Current Map Cycle", or nothing while the list
// was never filled) leaves maps.txt alone. On a failure tells the user and
// ends the program; false then.
bool FixMapCycle(const QString& combo2Text, const QString& combo2FirstRow = kCurrentMapCycle);

} // namespace torvik
