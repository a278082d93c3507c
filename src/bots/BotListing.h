#pragma once
// Which bots the lists show: only those the game can draw, i.e. whose model
// folder, skin and face picture are installed under baseq2/players.
#include "bots/BotStore.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <optional>
#include <vector>

namespace torvik {

class ProgressBar;

// The player models on disk, read once: each model folder's name with the
// names of the files in it, all upper-cased, since installs made on Windows
// spell them any way. A load of thousands of bots asks this, never the disk.
class PlayersIndex {
public:
    PlayersIndex() = default;
    // Reads the players folder (spelling looked up without regard to case);
    // a folder that isn't there gives an empty index.
    explicit PlayersIndex(const QString& playersFolder);

    // The model folder holds <skin>.pcx and its face <skin>_i.pcx.
    bool isInstalled(const QString& model, const QString& skin) const;
    int modelCount() const { return int(files_.size()); }

private:
    // Folders that differ only in case pool their files, as they would be one
    // folder on the system the mod came from.
    QHash<QString, QSet<QString>> files_;
};

// The rows of bots to list (indexes into bots), in name order without regard
// to case; equal names keep the file's order and duplicates stay. Nullopt
// when a model/skin has no slash, which fails the whole load. Each listed bot
// steps progress, if given.
std::optional<std::vector<int>> listInstalledBots(const std::vector<BotRecord>& bots,
                                                  const PlayersIndex& index, ProgressBar* progress = nullptr);

} // namespace torvik
