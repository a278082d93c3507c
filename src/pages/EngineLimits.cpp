#include "pages/EngineLimits.h"

#include <QList>

namespace pages {
namespace {

struct Word {
    qsizetype end; // one past its last character, counted in the line
};

// Words as the engine splits them: runs of characters above a blank, a
// quoted text being one word.
QList<Word> wordsOf(const QByteArray& line)
{
    QList<Word> words;
    qsizetype i = 0;
    const qsizetype n = line.size();
    while (i < n) {
        while (i < n && static_cast<unsigned char>(line[i]) <= ' ')
            ++i;
        if (i >= n)
            break;
        if (line[i] == '"') {
            const qsizetype close = line.indexOf('"', i + 1);
            i = close < 0 ? n : close + 1;
        } else {
            while (i < n && static_cast<unsigned char>(line[i]) > ' ')
                ++i;
        }
        words.append(Word{i});
    }
    return words;
}

bool isBotLine(const QList<QByteArray>& head)
{
    return head.size() == 2 && head[0] == "sv"
        && (head[1] == "bots" || head[1] == "redbots" || head[1] == "bluebots");
}

} // namespace

BotLoss botsTheGameLoses(const QByteArray& config)
{
    BotLoss loss;
    for (const QByteArray& raw : config.split('\n')) {
        // The CR stays part of the line for the engine, so it counts.
        const QByteArray line = raw;
        const QByteArray text = line.endsWith('\r') ? line.chopped(1) : line;
        const QList<QByteArray> head = text.simplified().split(' ').mid(0, 2);
        if (!isBotLine(head))
            continue;
        const QList<Word> words = wordsOf(text);
        for (qsizetype w = 2; w < words.size(); ++w) {
            ++loss.named;
            if (words[w].end > kEngineLineLimit) {
                loss.tooLong = true;
                ++loss.lost;
            } else if (w >= kEngineWordLimit) {
                loss.tooManyWords = true;
                ++loss.lost;
            }
        }
    }
    if (config.size() >= kEngineConfigLimit && loss.named > 0) {
        loss.fileDropped = true;
        loss.lost = loss.named;
    }
    return loss;
}

QString botLossWarning(const BotLoss& loss)
{
    if (loss.lost == 0)
        return QString();
    QString text = QStringLiteral("The game will not get %1 of the %2 bots named here").arg(loss.lost).arg(loss.named);
    QStringList why;
    if (loss.fileDropped)
        why << QStringLiteral("it ignores a whole configuration of %1 KB or more").arg(kEngineConfigLimit / 1024);
    if (loss.tooLong && !loss.fileDropped)
        why << QStringLiteral("it reads no more than %1 characters of a line").arg(kEngineLineLimit);
    if (loss.tooManyWords && !loss.fileDropped)
        why << QStringLiteral("it reads no more than %1 words of a command").arg(kEngineWordLimit);
    return text + QStringLiteral(": ") + why.join(QStringLiteral(", and ")) + QStringLiteral(". Choose fewer bots.");
}

QString gameFolderWarning(const QString& gameFolder)
{
    if (!gameFolder.contains(QLatin1Char('+')))
        return QString();
    return QStringLiteral("The game folder \"%1\" has a \"+\" in its path. The game reads everything after a \"+\" "
                          "as a command, so it will start without the settings you choose here. Move the game to "
                          "a folder without \"+\" to play with them.")
        .arg(gameFolder);
}

QString modFolderWarning(const QString& modShortName)
{
    if (modShortName.contains(QLatin1Char(' ')))
        return QStringLiteral("The mod folder \"%1\" has a blank in its name. The game takes only \"%2\" as the "
                              "mod's name and won't find the bots. Rename the folder without blanks.")
            .arg(modShortName, modShortName.section(QLatin1Char(' '), 0, 0));
    if (modShortName.contains(QLatin1Char('+')))
        return QStringLiteral("The mod folder \"%1\" has a \"+\" in its name. The game reads everything after a "
                              "\"+\" as a command and won't find the mod. Rename the folder without \"+\".")
            .arg(modShortName);
    return QString();
}

} // namespace pages
