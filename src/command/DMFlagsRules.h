#pragma once
// The game's dmflags number, made of nineteen check boxes. The page title
// and the number sent to the game read "Friendly Fire" in opposite senses;
// players know the title that way, so both are kept.
#include <map>

namespace torvik {

// Ticked state of the counted boxes by their number (2 to 14, 16, 19, 27 to
// 29, 47); a box not in the map counts as unticked.
using DMFlagBoxes = std::map<int, bool>;

int dmflagsForTitle(const DMFlagBoxes& boxes, bool ctf);
int dmflagsForGame(const DMFlagBoxes& boxes, bool ctf);

} // namespace torvik
