#pragma once
// The bot shown by the examination form: ten texts that whoever opens the
// form fills from a list row just before showing it. They stay set until the
// next examination.
#include <QString>

#include <functional>

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

// Shows the examination form modally for the values above. Until that form
// exists, examining a bot only fills them.
inline std::function<void()> ShowExamineForm;

} // namespace torvik
