#include "bots/PlayerModels.h"

#include "platform/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dirent.h>

namespace torvik {
namespace {

constexpr int kPakEntrySize = 64;
constexpr int kPakNameSize = 56;
// A directory of a million entries is far beyond any archive of the game.
constexpr qint64 kMaxPakDirectory = qint64(kPakEntrySize) * 1024 * 1024;

qint32 le32(const char* p)
{
    return qint32(quint32(quint8(p[0])) | quint32(quint8(p[1])) << 8 | quint32(quint8(p[2])) << 16
                  | quint32(quint8(p[3])) << 24);
}

void addMeshesOf(const QString& pakPath, QSet<QString>& models)
{
    QFile pak(pakPath);
    if (!pak.open(QIODevice::ReadOnly))
        return;
    const QByteArray header = pak.read(12);
    if (header.size() != 12 || !header.startsWith("PACK"))
        return;
    const qint64 offset = le32(header.constData() + 4);
    const qint64 length = le32(header.constData() + 8);
    if (offset < 12 || length <= 0 || length > kMaxPakDirectory || offset + length > pak.size() || !pak.seek(offset))
        return;
    const QByteArray dir = pak.read(length);
    for (qsizetype at = 0; at + kPakEntrySize <= dir.size(); at += kPakEntrySize) {
        const QByteArray raw(dir.constData() + at, kPakNameSize);
        const QString name = platform::fileNameFromBytes(raw.left(raw.indexOf('\0') < 0 ? kPakNameSize : raw.indexOf('\0'))).toUpper();
        const QStringList parts = name.split(QLatin1Char('/'));
        if (parts.size() == 3 && parts[0] == QLatin1String("PLAYERS") && parts[2] == QLatin1String("TRIS.MD2"))
            models.insert(parts[1]);
    }
}

// Opening the folder is the only true test: asked about permissions, the
// system answers for root as if it could read everything.
bool readableFolder(const QString& path)
{
    DIR* dir = ::opendir(QFile::encodeName(path).constData());
    if (!dir)
        return false;
    ::closedir(dir);
    return true;
}

} // namespace

QStringList skinNamesOf(const QStringList& pcxFileNames)
{
    QStringList skins;
    for (const QString& file : pcxFileNames) {
        const QString stem = file.left(file.size() - 4);
        if (file.right(6).toUpper().startsWith(QLatin1String("_I")) || stem.toUpper() == QLatin1String("WEAPON"))
            continue;
        skins.append(stem);
    }
    return skins;
}

QSet<QString> modelsWithMeshInArchives(const QStringList& folders)
{
    QSet<QString> models;
    for (const QString& folder : folders) {
        const QString real = platform::resolvePath(folder);
        if (real.isEmpty())
            continue;
        for (const QString& pak : platform::listFiles(real, {QStringLiteral("*.pak")}))
            addMeshesOf(platform::joinPath(real, pak), models);
    }
    return models;
}

ModelList findPlayerModels(const QString& playersFolder, const QSet<QString>& meshesInArchives)
{
    ModelList list;
    const QString real = platform::resolvePath(playersFolder);
    if (real.isEmpty())
        return list;
    if (!readableFolder(real)) {
        list.readable = false;
        return list;
    }
    for (const QString& model : platform::listFolders(real)) {
        const QString folder = platform::joinPath(real, model);
        if (!readableFolder(folder)) {
            list.models.append(model);
            continue;
        }
        const bool skin = !platform::listFiles(folder, {QStringLiteral("*.pcx")}).isEmpty();
        const bool mesh = !platform::listFiles(folder, {QStringLiteral("*.md2")}).isEmpty()
                          || meshesInArchives.contains(model.toUpper());
        if (skin && mesh)
            list.models.append(model);
    }
    return list;
}

bool findSkins(const QString& modelFolder, QStringList* skins)
{
    skins->clear();
    const QString real = platform::resolvePath(modelFolder);
    if (real.isEmpty() || !readableFolder(real))
        return false;
    *skins = skinNamesOf(platform::listFiles(real, {QStringLiteral("*.pcx")}));
    return true;
}

} // namespace torvik
