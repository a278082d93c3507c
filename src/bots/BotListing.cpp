#include "bots/BotListing.h"

#include "bots/BotsFile.h"
#include "platform/Files.h"

#include <QDir>

#include <algorithm>

namespace torvik {

PlayersIndex::PlayersIndex(const QString& playersFolder)
{
    const QString real = platform::resolvePath(playersFolder);
    if (real.isEmpty())
        return;
    // Plain directory reads: the helpers' sorting and pattern matching buy
    // nothing for a set, and a big players folder makes them show.
    const QDir players(real);
    for (const QString& model : players.entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot)) {
        const QStringList names =
            QDir(players.filePath(model)).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted);
        QSet<QString>& files = files_[model.toUpper()];
        files.reserve(files.size() + names.size());
        for (const QString& name : names)
            files.insert(name.toUpper());
    }
}

bool PlayersIndex::isInstalled(const QString& model, const QString& skin) const
{
    const auto it = files_.constFind(model.toUpper());
    if (it == files_.constEnd())
        return false;
    const QString stem = skin.toUpper();
    return it->contains(stem + QStringLiteral(".PCX")) && it->contains(stem + QStringLiteral("_I.PCX"));
}

std::optional<std::vector<int>> listInstalledBots(const std::vector<BotRecord>& bots,
                                                  const PlayersIndex& index, ProgressBar* progress)
{
    std::vector<int> listed;
    // Big files name a few hundred model/skin pairs for thousands of bots:
    // each pair is looked up once.
    QHash<QString, bool> installed;
    for (size_t i = 0; i < bots.size(); ++i) {
        const QString& modelSkin = bots[i].ModelSkin;
        auto known = installed.constFind(modelSkin);
        if (known == installed.constEnd()) {
            const qsizetype slash = modelSkin.indexOf(QLatin1Char('/'));
            if (slash < 0)
                return std::nullopt;
            known = installed.insert(modelSkin, index.isInstalled(modelSkin.left(slash), modelSkin.mid(slash + 1)));
        }
        if (!*known)
            continue;
        listed.push_back(int(i));
        if (progress)
            progress->step();
    }
    // Folded once per bot rather than once per comparison.
    std::vector<std::pair<QString, int>> keyed;
    keyed.reserve(listed.size());
    for (int i : listed)
        keyed.emplace_back(bots[size_t(i)].Name.toCaseFolded(), i);
    std::stable_sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (size_t k = 0; k < keyed.size(); ++k)
        listed[k] = keyed[k].second;
    return listed;
}

} // namespace torvik
