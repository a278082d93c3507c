#include "maps/MapCatalogue.h"

namespace torvik {

void resetMapCatalogue()
{
    MapCatalogueCount = 0;
    MapCatalogue = QList<MapCatalogueEntry>(1);
}

bool storeMapCatalogueRow(const QString& name, qint32 position, const QString& sourceFile)
{
    if (MapCatalogueCount >= MapCatalogueLastRow)
        return false;
    MapCatalogue.resize(MapCatalogueCount + 1);
    MapCatalogue.append(MapCatalogueEntry{name, position, sourceFile});
    ++MapCatalogueCount;
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
