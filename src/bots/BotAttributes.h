#pragma once
// What the bot editor and the examination share: the picture keys of the six
// attributes, the nine cells of a bot's list row, and the attributes' ranges.
#include "bots/BotStore.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

class QLabel;

namespace torvik {

// The six attributes in the order of the file's columns.
enum class Attribute { Accuracy, Aggressiveness, CombatSkills, FavoriteWeapon, QuadFreak, Camper };
inline constexpr std::array<Attribute, 6> kAttributes{Attribute::Accuracy,       Attribute::Aggressiveness,
                                                       Attribute::CombatSkills,   Attribute::FavoriteWeapon,
                                                       Attribute::QuadFreak,      Attribute::Camper};

// The picture key of an attribute's value as the file holds it ("acc3",
// "fw10" for weapon 0, "quad1" for a quad freak); empty outside the range.
QString attributePictureKey(Attribute attribute, int value);
// Shows that picture in the box; a value without a picture leaves it blank.
void showAttributePicture(QLabel* box, Attribute attribute, int value);

// The cells of a bot's row in the lists: name, model/skin, the six
// attributes, the ping.
QStringList botCells(const BotRecord& bot);
// The record of a row's cells; nullopt when a number cell isn't a number
// the file can hold.
std::optional<BotRecord> botFromCells(const QStringList& cells);

} // namespace torvik
