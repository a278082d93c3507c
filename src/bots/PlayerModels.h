#pragma once
// The player models and skins under the game's baseq2/players folder, found
// without regard to case. Nothing here changes the disk: a model folder that
// can't work is left out of the lists and left where it is, as it may hold
// the user's own skins for a model whose mesh lives in an archive.
#include <QSet>
#include <QString>
#include <QStringList>

namespace torvik {

// The skins of a model folder's "*.pcx" file names, in their order: the name
// without its extension, leaving out the faces ("<skin>_i.pcx") and the
// weapon picture ("weapon.pcx"). "Weapon2.pcx" is a skin.
QStringList skinNamesOf(const QStringList& pcxFileNames);

// The upper-cased model folder names whose mesh "players/<model>/tris.md2" is
// a member of a "*.pak" archive of these folders. Only each archive's
// directory is read; a damaged archive adds nothing.
QSet<QString> modelsWithMeshInArchives(const QStringList& folders);

struct ModelList {
    bool readable = true; // false: the players folder is there but can't be listed
    QStringList models;   // folder names as on disk, in the order a folder list shows them
};

// The model folders that hold a skin picture and a mesh, on disk (any
// "*.md2") or in an archive. A missing players folder has no models. A model
// folder that can't be read is listed: whether it works can't be told.
ModelList findPlayerModels(const QString& playersFolder, const QSet<QString>& meshesInArchives);

// The skins of one model folder; false when the folder can't be read.
bool findSkins(const QString& modelFolder, QStringList* skins);

} // namespace torvik
