#pragma once
// The bot shown by the examination form: ten texts that whoever opens the
// form fills from a list row just before showing it. They stay set until the
// next examination.
#include <QString>
#include <QStringList>

class QWidget;

namespace torvik {

inline QString ExamineName;
inline QString ExamineModel; // model/skin cut at its first slash
inline QString ExamineSkin;
inline QString ExamineAccuracy;
inline QString ExamineAggressiveness;
inline QString ExamineCombatSkills;
inline QString ExamineFavoriteWeapon;
inline QString ExamineQuadFreak;
inline QString ExamineCamper;
inline QString ExaminePing;

// The one way to examine a bot, for every list that shows bots: the row's
// nine cells (name, model/skin, the six attributes, ping) fill the values
// above, and the examination form shows them modally.
void examineBot(const QStringList& rowCells, QWidget* parent);

} // namespace torvik
