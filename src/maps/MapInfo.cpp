#include "maps/MapInfo.h"

#include "maps/MapInfoForm.h"

namespace torvik {

void ShowMapInfoForm(QWidget* parent)
{
    MapInfoForm form(parent);
    if (form.loadMap())
        form.exec();
}

} // namespace torvik
