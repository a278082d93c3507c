#include "maps/MapTree.h"

#include "maps/MapCatalogue.h"
#include "maps/MapDuplicates.h"
#include "platform/Files.h"

#include <QFileInfo>

namespace torvik {
namespace {

const QStringList kPakPattern{QStringLiteral("*.pak")};
const QStringList kMapPattern{QStringLiteral("*.bsp")};

MapScanResult folderMissing(const QString& folder)
{
    return MapScanResult{MapScanFailure::FolderMissing, QStringLiteral("The folder %1 can't be found").arg(folder), {}};
}

// The folder as spelled on disk; empty when it isn't a folder.
QString realFolder(const QString& folder)
{
    const QString real = platform::resolvePath(folder);
    return !real.isEmpty() && QFileInfo(real).isDir() ? real : QString();
}

QString withoutExtension(const QString& fileName, int extensionLength)
{
    return fileName.left(qMax<qsizetype>(0, fileName.size() - extensionLength));
}

// One PAK into the catalogue and below the category `key`. Every map gets its
// row, since the map information form needs the stock maps' positions too;
// only the others are shown, and only they count as found.
MapScanResult cataloguePak(const QString& pakPath, const QString& key, MapTree& tree, bool& found, QString& leftOut)
{
    const PakMapScan scan = readCatalogueMaps(pakPath);
    for (const PakMap& map : scan.maps) {
        if (!storeMapCatalogueRow(map.MapName, map.FilePosition, pakPath)) {
            if (leftOut.isEmpty())
                leftOut = map.MapName;
            break;
        }
        if (!isBuiltInMap(map.MapName)) {
            tree.addMap(key, map.MapName);
            found = true;
        }
    }
    return scan.result;
}

MapScanResult withLeftOut(const QString& leftOut)
{
    MapScanResult result;
    result.leftOut = leftOut;
    return result;
}

} // namespace

bool isCategoryName(const QString& text)
{
    return text == kInternalMapsText || text == kBaseq2PakMapsText || text == kGorvanPakMapsText
           || text == kExternalMapsText;
}

int categoryPosition(const QString& text)
{
    if (text == kInternalMapsText)
        return 1;
    if (text == kBaseq2PakMapsText)
        return 2;
    if (text == kGorvanPakMapsText)
        return 3;
    if (text == kExternalMapsText)
        return 4;
    return 0;
}

void MapTree::addCategory(const QString& text, const QString& key) { categories.append(MapTreeCategory{text, key, {}}); }

bool MapTree::addMap(const QString& key, const QString& name)
{
    for (MapTreeCategory& c : categories) {
        if (c.key == key) {
            c.maps.append(name);
            return true;
        }
    }
    return false;
}

const MapTreeCategory* MapTree::category(const QString& key) const
{
    for (const MapTreeCategory& c : categories) {
        if (c.key == key)
            return &c;
    }
    return nullptr;
}

int MapTree::nodeCount() const
{
    qsizetype n = categories.size();
    for (const MapTreeCategory& c : categories)
        n += c.maps.size();
    return int(n);
}

QString MapTree::nodeText(int position) const
{
    if (position < 1)
        return QString();
    qsizetype at = position - 1;
    if (at < categories.size())
        return categories[at].text;
    at -= categories.size();
    for (const MapTreeCategory& c : categories) {
        if (at < c.maps.size())
            return c.maps[at];
        at -= c.maps.size();
    }
    return QString();
}

QStringList MapTree::nodeTexts() const
{
    QStringList texts;
    for (const MapTreeCategory& c : categories)
        texts << c.text;
    for (const MapTreeCategory& c : categories)
        texts << c.maps;
    return texts;
}

QStringList MapTree::childrenOf(int position) const
{
    if (position < 1 || position > categories.size())
        return QStringList();
    return categories[position - 1].maps;
}

void MapTree::removeNode(int position)
{
    if (position < 1)
        return;
    qsizetype at = position - 1;
    if (at < categories.size()) {
        categories.removeAt(at);
        return;
    }
    at -= categories.size();
    for (MapTreeCategory& c : categories) {
        if (at < c.maps.size()) {
            c.maps.removeAt(at);
            return;
        }
        at -= c.maps.size();
    }
}

MapTree mapTreeRoots()
{
    MapTree tree;
    tree.addCategory(kInternalMapsText, kInternalMapsKey);
    tree.addCategory(kBaseq2PakMapsText, kBaseq2PakMapsKey);
    tree.addCategory(kGorvanPakMapsText, kGorvanPakMapsKey);
    tree.addCategory(kExternalMapsText, kExternalMapsKey);
    return tree;
}

void LoadDef(MapTree& tree)
{
    for (const QString& name : builtInMapNames())
        tree.addMap(kInternalMapsKey, name);
}

MapTree singlePlayerMapTree()
{
    MapTree tree;
    tree.addCategory(kInternalMapsText, kInternalMapsKey);
    LoadDef(tree);
    return tree;
}

int pickRandomNode(const MapTree& tree, const std::function<double()>& fraction)
{
    const QStringList texts = tree.nodeTexts();
    const int n = int(texts.size());
    auto pickable = [&texts](int position) { return !isCategoryName(texts[position - 1]); };
    bool any = false;
    for (int i = 1; i < n && !any; ++i)
        any = pickable(i);
    if (!any)
        return 0;
    for (;;) {
        const int r = int(fraction() * n);
        if (r >= 1 && r < n && pickable(r))
            return r;
    }
}

MapScanResult GetInternalPak(const QString& gameFolder, MapTree& tree)
{
    const QString wanted = platform::joinPath(gameFolder, QStringLiteral("baseq2"));
    const QString base = realFolder(wanted);
    if (base.isEmpty())
        return folderMissing(wanted);
    NoInternalPakMaps = 0;
    const QStringList paks = platform::listFiles(base, kPakPattern);
    if (paks.isEmpty()) {
        tree.removeNode(2);
        NoInternalPakMaps = 1;
        return {};
    }
    resetMapCatalogue();
    bool found = false;
    QString leftOut;
    for (const QString& pak : paks) {
        const MapScanResult r = cataloguePak(platform::joinPath(base, pak), kBaseq2PakMapsKey, tree, found, leftOut);
        if (!r.ok())
            return r;
    }
    if (!found) {
        tree.removeNode(2);
        NoInternalPakMaps = 1;
    }
    return withLeftOut(leftOut);
}

MapScanResult GetNewPak(const QString& modFolder, MapTree& tree)
{
    const QString mod = realFolder(modFolder);
    if (mod.isEmpty())
        return folderMissing(modFolder);
    NoGorvanPakMaps = 0;
    // "Baseq2 PAK File Maps" may already be gone, which moves this one up.
    const int position = NoInternalPakMaps == 1 ? 2 : 3;
    const QStringList paks = platform::listFiles(mod, kPakPattern);
    bool found = false;
    QString leftOut;
    for (const QString& pak : paks) {
        const MapScanResult r = cataloguePak(platform::joinPath(mod, pak), kGorvanPakMapsKey, tree, found, leftOut);
        if (!r.ok())
            return r;
    }
    if (!found) {
        tree.removeNode(position);
        NoGorvanPakMaps = 1;
    }
    return withLeftOut(leftOut);
}

MapScanResult AddExternalMaps(const QString& gameFolder, MapTree& tree)
{
    const QString wanted = platform::joinPath(gameFolder, QStringLiteral("baseq2/maps"));
    const QString maps = realFolder(wanted);
    if (maps.isEmpty())
        return folderMissing(wanted);
    const QStringList files = platform::listFiles(maps, kMapPattern);
    QString leftOut;
    bool shown = false;
    for (const QString& file : files) {
        const QString name = withoutExtension(file, 4);
        if (!storeMapCatalogueRow(name, 0, platform::joinPath(maps, file))) {
            leftOut = name;
            break;
        }
        tree.addMap(kExternalMapsKey, name);
        shown = true;
    }
    if (!shown) {
        const int gone = NoInternalPakMaps + NoGorvanPakMaps;
        tree.removeNode(4 - gone);
    }
    return withLeftOut(leftOut);
}

MapScanResult buildMultiplayerMapTree(const QString& gameFolder, const QString& modFolder, MapTree& tree)
{
    tree = mapTreeRoots();
    LoadDef(tree);
    MapScanResult r = GetInternalPak(gameFolder, tree);
    QString leftOut = r.leftOut;
    if (r.ok()) {
        r = GetNewPak(modFolder, tree);
        leftOut = leftOut.isEmpty() ? r.leftOut : leftOut;
    }
    if (r.ok()) {
        r = AddExternalMaps(gameFolder, tree);
        leftOut = leftOut.isEmpty() ? r.leftOut : leftOut;
    }
    r.leftOut = leftOut;
    return r;
}

namespace mapeditor {
namespace {

MapScanResult listPakMaps(const QString& folder, QStringList& list)
{
    const QString real = realFolder(folder);
    if (real.isEmpty())
        return folderMissing(folder);
    for (const QString& pak : platform::listFiles(real, kPakPattern)) {
        const PakMapScan scan = readEditorMaps(platform::joinPath(real, pak));
        if (!scan.result.ok())
            return scan.result;
        for (const PakMap& map : scan.maps)
            list << map.MapName;
    }
    return {};
}

} // namespace

MapScanResult GetNewPak(const QString& modFolder, QStringList& List3) { return listPakMaps(modFolder, List3); }

MapScanResult GetInternalPak(const QString& folder, QStringList& List1) { return listPakMaps(folder, List1); }

bool CheckMaps(QStringList& List1, QStringList& List2, QStringList& List3)
{
    const bool anyEmpty = List1.contains(QString()) || List2.contains(QString()) || List3.contains(QString());
    return anyEmpty ? checkMapsByScan(List1, List2, List3) : checkMapsIndexed(List1, List2, List3);
}

void AddRestofNodes(MapTree& tree, const QStringList& List1, const QStringList& List2, const QStringList& List3)
{
    bool noBase = false;
    bool noGorvan = false;
    if (List1.isEmpty()) {
        tree.removeNode(2);
        noBase = true;
    } else {
        for (const QString& name : List1)
            tree.addMap(kBaseq2PakMapsKey, name);
    }
    if (List3.isEmpty()) {
        tree.removeNode(noBase ? 2 : 3);
        noGorvan = true;
    } else {
        for (const QString& name : List3)
            tree.addMap(kGorvanPakMapsKey, name);
    }
    if (List2.isEmpty()) {
        tree.removeNode(4 - int(noBase) - int(noGorvan));
    } else {
        for (const QString& name : List2)
            tree.addMap(kExternalMapsKey, name);
    }
}

MapScanResult GetMaps(const QString& gameFolder, const QString& modFolder, EditorMaps& out)
{
    out = EditorMaps{};
    const QString wantedMaps = platform::joinPath(gameFolder, QStringLiteral("baseq2/maps"));
    const QString maps = realFolder(wantedMaps);
    if (maps.isEmpty())
        return folderMissing(wantedMaps);
    const QString wantedBase = platform::joinPath(gameFolder, QStringLiteral("baseq2"));
    const QString base = realFolder(wantedBase);
    if (base.isEmpty())
        return folderMissing(wantedBase);

    for (const QString& file : platform::listFiles(maps, kMapPattern))
        out.List2 << withoutExtension(file, 4);
    out.tree = mapTreeRoots();
    LoadDef(out.tree);
    MapScanResult r = GetNewPak(modFolder, out.List3);
    if (r.ok())
        r = GetInternalPak(base, out.List1);
    if (!r.ok())
        return r;
    if (!CheckMaps(out.List1, out.List2, out.List3))
        return MapScanResult{MapScanFailure::DuplicateCheck,
                             QStringLiteral("The duplicate check removed a map row that wasn't there"), {}};
    AddRestofNodes(out.tree, out.List1, out.List2, out.List3);
    return {};
}

QString failureText(const MapScanResult& result)
{
    if (result.ok())
        return QString();
    return result.failure == MapScanFailure::DuplicateCheck ? kCheckMapsFailedText : kGetMapsFailedText;
}

} // namespace mapeditor
} // namespace torvik
