#include "command/DMFlagsRules.h"

namespace torvik {
namespace {

struct Flag {
    int box;
    int value;
    bool addsWhenTicked;
};

// In the order the page adds them up.
constexpr Flag kFlags[] = {
    {2, 4, true},       {3, 16, true},      {4, 2, false},     {5, 1, false},     {6, 2048, false},
    {7, 512, true},     {8, 32, true},      {9, 1024, true},   {10, 4096, true},  {11, 8192, true},
    {12, 16384, true},  {13, 256, true},    {14, 32768, true}, {19, 8, false},    {16, 128, true},
    {47, 64, true},
};
constexpr Flag kCtfFlags[] = {{29, 131072, true}, {28, 262144, true}, {27, 524288, true}};

bool ticked(const DMFlagBoxes& boxes, int box)
{
    const auto it = boxes.find(box);
    return it != boxes.end() && it->second;
}

int sum(const DMFlagBoxes& boxes, bool ctf, bool friendlyFireWhenTicked)
{
    int total = 0;
    for (const Flag& f : kFlags) {
        bool adds = f.addsWhenTicked;
        if (f.box == 13)
            adds = friendlyFireWhenTicked;
        if (ticked(boxes, f.box) == adds)
            total += f.value;
    }
    if (ctf)
        for (const Flag& f : kCtfFlags)
            if (ticked(boxes, f.box))
                total += f.value;
    return total;
}

} // namespace

int dmflagsForTitle(const DMFlagBoxes& boxes, bool ctf) { return sum(boxes, ctf, false); }
int dmflagsForGame(const DMFlagBoxes& boxes, bool ctf) { return sum(boxes, ctf, true); }

} // namespace torvik
