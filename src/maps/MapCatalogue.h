#pragma once
// The map catalogue: every map found in a PAK directory or in the loose maps
// folder, with where it lies, so that the map information form can open a map
// inside an archive without anybody unpacking it. Also the stock game's maps,
// which the PAK categories leave out.
#include <QList>
#include <QString>
#include <QStringList>

#include <array>

namespace torvik {

struct MapCatalogueEntry {
    QString MapName;      // without folder and ".bsp", case as stored
    qint32 FilePosition = 0; // the member's data in the PAK; 0 for a loose file
    QString SourceFile;   // the PAK, or the loose ".bsp", full path as on disk
};

// Rows 1 to MapCatalogueLastRow are usable; row 0 stays empty so that the
// count is also the index of the last row. Collectors keep tens of thousands
// of maps, so the catalogue grows as maps are found, up to a bound that only
// a broken install reaches.
inline constexpr int MapCatalogueLastRow = 100000;

inline QList<MapCatalogueEntry> MapCatalogue = QList<MapCatalogueEntry>(1);
inline qint32 MapCatalogueCount = 0;

// Set when the PAK categories were taken out of the starting map tree. The
// tree drops categories by position, so later removals need to know which
// earlier ones are already gone.
inline int NoInternalPakMaps = 0;
inline int NoGorvanPakMaps = 0;

// Empties the catalogue: count 0, every row blank again.
void resetMapCatalogue();
// Stores the next row. False, with nothing stored and the count unchanged,
// when the catalogue already holds MapCatalogueLastRow rows.
bool storeMapCatalogueRow(const QString& name, qint32 position, const QString& sourceFile);

struct BuiltInMap {
    const char* displayed; // as "Internal Maps" shows it
    const char* compared;  // upper case, what a found name is held against
};

// The stock game's 40 maps, in the order "Internal Maps" shows them.
inline constexpr std::array<BuiltInMap, 40> BuiltInMaps{{
    {"Base1", "BASE1"},       {"Base2", "BASE2"},     {"Base3", "BASE3"},     {"Train", "TRAIN"},
    {"Bunk1", "BUNK1"},       {"Ware1", "WARE1"},     {"Ware2", "WARE2"},     {"Jail1", "JAIL1"},
    {"Jail2", "JAIL2"},       {"Jail3", "JAIL3"},     {"Jail4", "JAIL4"},     {"Jail5", "JAIL5"},
    {"Security", "SECURITY"}, {"Match1", "MATCH1"},   {"Mintro", "MINTRO"},   {"Mine1", "MINE1"},
    {"Mine2", "MINE2"},       {"Mine3", "MINE3"},     {"Mine4", "MINE4"},     {"Fact1", "FACT1"},
    {"Fact2", "FACT2"},       {"Fact3", "FACT3"},     {"Power1", "POWER1"},   {"Power2", "POWER2"},
    {"Cool1", "COOL1"},       {"Waste1", "WASTE1"},   {"Waste2", "WASTE2"},   {"Waste3", "WASTE3"},
    {"Biggun", "BIGGUN"},     {"Hangar1", "HANGAR1"}, {"Hangar2", "HANGAR2"}, {"Lab", "LAB"},
    {"Command", "COMMAND"},   {"Strike", "STRIKE"},   {"Space", "SPACE"},     {"City1", "CITY1"},
    {"City2", "CITY2"},       {"City3", "CITY3"},     {"Boss1", "BOSS1"},     {"Boss2", "BOSS2"},
}};

// Whether the name, upper-cased, is one of the stock maps ("bAsE1" is).
bool isBuiltInMap(const QString& name);
// The display names, in order.
QStringList builtInMapNames();

} // namespace torvik
