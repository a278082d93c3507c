#include "maps/MapCatalogue.h"

namespace torvik {

void resetMapCatalogue()
{
    MapCatalogueCount = 0;
    MapCatalogue = QList<MapCatalogueEntry>(MapCatalogueLastRow + 1);
}

bool storeMapCatalogueRow(const QString& name, qint32 position, const QString& sourceFile)
{
    // The count never passes the last row, so rows 1..count stay safe to read
    // for whoever looks a map up after a scan broke off at the limit.
    if (MapCatalogueCount >= MapCatalogueLastRow)
        return false;
    if (MapCatalogue.size() != MapCatalogueLastRow + 1)
        MapCatalogue.resize(MapCatalogueLastRow + 1);
    ++MapCatalogueCount;
    MapCatalogue[MapCatalogueCount] = MapCatalogueEntry{name, position, sourceFile};
    return true;
}

bool isBuiltInMap(const QString& name)
{
    if (name.isEmpty())
        return false;
    const QString upper = name.toUpper();
    for (const BuiltInMap& map : BuiltInMaps) {
        if (upper == QLatin1String(map.compared))
            return true;
    }
    return false;
}

QStringList builtInMapNames()
{
    QStringList names;
    names.reserve(qsizetype(BuiltInMaps.size()));
    for (const BuiltInMap& map : BuiltInMaps)
        names << QString::fromLatin1(map.displayed);
    return names;
}

} // namespace torvik
