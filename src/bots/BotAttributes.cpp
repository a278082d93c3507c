#include "bots/BotAttributes.h"

#include "media/Graphics.h"

#include <QLabel>

namespace torvik {

QString attributePictureKey(Attribute attribute, int value)
{
    auto ranged = [value](const char* prefix, int low, int high) {
        return value >= low && value <= high ? QString::fromLatin1(prefix) + QString::number(value) : QString();
    };
    switch (attribute) {
    case Attribute::Accuracy:
        return ranged("acc", 1, 5);
    case Attribute::Aggressiveness:
        return ranged("agg", 1, 5);
    case Attribute::CombatSkills:
        return ranged("cs", 1, 5);
    case Attribute::FavoriteWeapon:
        // The file's 0 is the tenth weapon.
        return value == 0 ? QStringLiteral("fw10") : ranged("fw", 1, 9);
    case Attribute::QuadFreak:
        return value == 1 ? QStringLiteral("quad1") : value == 0 ? QStringLiteral("quad2") : QString();
    case Attribute::Camper:
        return value == 1 ? QStringLiteral("camper1") : value == 0 ? QStringLiteral("camper2") : QString();
    }
    return QString();
}

void showAttributePicture(QLabel* box, Attribute attribute, int value)
{
    const QString key = attributePictureKey(attribute, value);
    if (key.isEmpty() || !media::ShowGraphic(key, box)) {
        box->clear();
        box->setProperty(media::kPictureKeyProperty, QString());
    }
}

QStringList botCells(const BotRecord& bot)
{
    return {bot.Name,
            bot.ModelSkin,
            QString::number(bot.Accuracy),
            QString::number(bot.Aggressiveness),
            QString::number(bot.CombatSkills),
            QString::number(bot.FavoriteWeapon),
            QString::number(bot.QuadFreak),
            QString::number(bot.Camper),
            QString::number(bot.Ping)};
}

std::optional<BotRecord> botFromCells(const QStringList& cells)
{
    if (cells.size() < 9)
        return std::nullopt;
    BotRecord bot;
    bot.Name = cells[0];
    bot.ModelSkin = cells[1];
    qint16* numbers[] = {&bot.Accuracy, &bot.Aggressiveness, &bot.CombatSkills, &bot.FavoriteWeapon,
                         &bot.QuadFreak, &bot.Camper, &bot.Ping};
    for (int i = 0; i < 7; ++i) {
        bool ok = false;
        const short value = cells[2 + i].toShort(&ok);
        if (!ok)
            return std::nullopt;
        *numbers[i] = value;
    }
    return bot;
}

} // namespace torvik
