#pragma once
// What the two map trees show, worked out without any widget: the starting
// map page's tree (which also fills the catalogue) and the cycle editor's
// tree (which drops duplicates). The tree controls only draw a MapTree.
#include "maps/PakDirectory.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace torvik {

inline const QString kInternalMapsText = QStringLiteral("Internal Maps");
inline const QString kBaseq2PakMapsText = QStringLiteral("Baseq2 PAK File Maps");
inline const QString kGorvanPakMapsText = QStringLiteral("Gorvan PAK File Maps");
inline const QString kExternalMapsText = QStringLiteral("External Maps");
inline const QString kInternalMapsKey = QStringLiteral("IM");
inline const QString kBaseq2PakMapsKey = QStringLiteral("Base");
inline const QString kGorvanPakMapsKey = QStringLiteral("Gorvan");
inline const QString kExternalMapsKey = QStringLiteral("EM");

// Exactly one of the four category texts (case counts): a map called
// "External Maps" is taken for the category, as the tree handlers always have.
bool isCategoryName(const QString& text);
// Where a category stands in a full tree: "Internal Maps" 1, "Baseq2 PAK File
// Maps" 2, "Gorvan PAK File Maps" 3, "External Maps" 4; 0 for any other text.
// Fixed by the name, whatever was taken out of the tree since.
int categoryPosition(const QString& text);

struct MapTreeCategory {
    QString text;
    QString key;
    QStringList maps; // in the order they were added
};

// The tree as its node collection sees it. Nodes are counted from 1: the
// categories first, then the maps of each category in category order, which
// is the order in which both trees add them. Positions matter: empty
// categories are dropped by position, and the random pick and "add all"
// buttons walk the nodes by number.
struct MapTree {
    QList<MapTreeCategory> categories;

    void addCategory(const QString& text, const QString& key);
    // False when no category has that key (nothing added).
    bool addMap(const QString& key, const QString& name);
    const MapTreeCategory* category(const QString& key) const;

    int nodeCount() const;
    // Empty for a position outside 1..nodeCount().
    QString nodeText(int position) const;
    QStringList nodeTexts() const;
    // The nodes below the node at that position, in order: a category's
    // maps. Nothing for a map or a position outside 1..nodeCount().
    QStringList childrenOf(int position) const;
    // Drops the node at that position, a category together with its maps.
    // Nothing happens for a position outside 1..nodeCount().
    void removeNode(int position);
};

// The four categories, empty, in their fixed order.
MapTree mapTreeRoots();
// Adds the 40 stock maps, in display form, below "Internal Maps".
void LoadDef(MapTree& tree);
// The single player tree: "Internal Maps" alone, with the stock maps.
MapTree singlePlayerMapTree();

// "Pick Random" on both trees: r = the whole part of fraction() times the
// node count, drawn again while r is 0 or node r is a category. r stays below
// the count, so the last node is never picked, on purpose. 0 when no node can
// be picked at all, where drawing again would never end.
int pickRandomNode(const MapTree& tree, const std::function<double()>& fraction);

// --- the starting map page ---
// Each fills the catalogue and the tree as far as it gets; on a failure the
// tree is left as it stands, for the page's recovery to decide.

// The PAKs of gameFolder's "baseq2". With at least one PAK the catalogue is
// emptied first; with none it is left as it was. Stock maps are catalogued
// but not shown. Sets NoInternalPakMaps and drops the category (node 2) when
// nothing is shown.
MapScanResult GetInternalPak(const QString& gameFolder, MapTree& tree);
// The PAKs of the mod folder, appended to the catalogue. Sets NoGorvanPakMaps
// and drops the category (node 2 or 3, by NoInternalPakMaps) when nothing is
// shown.
MapScanResult GetNewPak(const QString& modFolder, MapTree& tree);
// The loose "*.bsp" files of gameFolder's "baseq2/maps", all shown (stock
// names too) and catalogued with position 0. Drops "External Maps" (node 2, 3
// or 4, by the two flags) when there are none. A missing maps folder is
// FolderMissing: the page makes the folder and runs again.
MapScanResult AddExternalMaps(const QString& gameFolder, MapTree& tree);
// The multiplayer tree from scratch: the four categories, the stock maps, then
// the three scans above in order, stopping at the first failure.
MapScanResult buildMultiplayerMapTree(const QString& gameFolder, const QString& modFolder, MapTree& tree);

// --- the map cycle editor ---
namespace mapeditor {

inline const QString kGetMapsFailedText = QStringLiteral("Error getting maps! Ending Torvik");
inline const QString kCheckMapsFailedText = QStringLiteral("Couldn't check for duplicate map names.");

// The editor's working lists: List1 the baseq2 PAK maps, List2 the loose
// maps, List3 the mod's PAK maps.
struct EditorMaps {
    MapTree tree;
    QStringList List1;
    QStringList List2;
    QStringList List3;
};

// Names of the maps in the PAKs of modFolder, appended to List3 in list
// order, duplicates and stock maps included.
MapScanResult GetNewPak(const QString& modFolder, QStringList& List3);
// The same for the PAKs of a folder (the editor points it at "baseq2"), into List1.
MapScanResult GetInternalPak(const QString& folder, QStringList& List1);

// Drops stock maps from List1 and duplicates across the lists, names compared
// upper-cased; List1 wins over List2 and List3, List2 over List3. Rows are
// compared by index, and a row at the same index in the other list is skipped
// even though it is another list: that map stays in both. A row read past a
// list's end is empty text. False when a row to be removed isn't there any
// more (the lists are then partly cleaned).
// Rows are found by name, so thousands of maps take a few passes, one more
// for each stock map row in List1.
bool CheckMaps(QStringList& List1, QStringList& List2, QStringList& List3);

// Puts the cleaned lists below their categories, dropping each empty category
// by position as it goes.
void AddRestofNodes(MapTree& tree, const QStringList& List1, const QStringList& List2, const QStringList& List3);

// The editor's whole tree: loose maps, the four categories, the stock maps,
// the mod's PAKs, the baseq2 PAKs, the duplicate check, the rest of the nodes.
MapScanResult GetMaps(const QString& gameFolder, const QString& modFolder, EditorMaps& out);

// The text the editor shows for a failed GetMaps before it ends the program.
QString failureText(const MapScanResult& result);

} // namespace mapeditor
} // namespace torvik
