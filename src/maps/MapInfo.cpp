#include "maps/MapInfo.h"

namespace torvik {
namespace {
MapInfoOpener& opener()
{
    static MapInfoOpener o;
    return o;
}
} // namespace

void setMapInfoOpener(MapInfoOpener o) { opener() = std::move(o); }

void ShowMapInfoForm(QWidget* parent)
{
    if (opener())
        opener()(parent);
}

} // namespace torvik
