#include "maps/MapTitle.h"

#include "maps/MapCatalogue.h"
#include "maps/mapname/MapNameApi.h"
#include "platform/Files.h"
#include "platform/ProgramContext.h"

#include <QFile>
#include <QFileInfo>
#include <QLibrary>

namespace torvik {
namespace {

// The library's path as spelt on disk, or "" when no such file is there.
QString libraryPath()
{
    const QString path = platform::resolvePath(
        platform::joinPath(platform::programContext.programFolder, QString::fromLatin1(mapname::kLibraryFileName)));
    return QFileInfo(path).isFile() ? path : QString();
}

// The entry point, or nullptr. The library stays loaded: it is asked again on
// every opening of the form and keeps nothing between calls.
mapname::BspNameFunction titleFunction(const QString& path)
{
    QLibrary library(path);
    if (!library.load())
        return nullptr;
    return reinterpret_cast<mapname::BspNameFunction>(library.resolve(mapname::kEntryPoint));
}

} // namespace

QByteArray titleRecord(const QString& sourceFile)
{
    QByteArray record = QFile::encodeName(sourceFile) + '\0';
    record.truncate(mapname::kRecordSize);
    return record;
}

QString GetMapTitle(const QString& mapName)
{
    const QString library = libraryPath();
    if (library.isEmpty())
        return kNoMapTitleText;
    const MapCatalogueEntry* row = nullptr;
    for (qint32 i = 1; i <= MapCatalogueCount && i < MapCatalogue.size(); ++i) {
        if (MapCatalogue[i].MapName.compare(mapName, Qt::CaseInsensitive) == 0) {
            row = &MapCatalogue[i];
            break;
        }
    }
    if (!row)
        return QString();
    const mapname::BspNameFunction bspname = titleFunction(library);
    if (!bspname)
        return kNoMapTitleText;
    QByteArray record = titleRecord(row->SourceFile);
    record.resize(mapname::kRecordSize, '\0');
    if (qint16(bspname(record.data(), row->FilePosition)) == -1)
        return kNoMapTitleText;
    // 8-bit text at the library's side; every byte stands for one character.
    return QString::fromLatin1(record.constData(), qstrnlen(record.constData(), mapname::kRecordSize));
}

} // namespace torvik
