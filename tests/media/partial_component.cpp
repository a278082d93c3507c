// A picture component that has lost most of its pictures: it loads and
// answers like the real one, but knows only the two logos. The start-up must
// notice the missing page pictures and stop cleanly.
#include "media/tkgraphics/TKGraphicsApi.h"

#include <QColor>
#include <QImage>

#include <cstring>

namespace {
constexpr const char* kKeys[] = {"gorvanlogo", "mklogo", nullptr};
}

extern "C" TKGRAPHICS_EXPORT int tkgraphics_abi_version()
{
    return TKGRAPHICS_ABI_VERSION;
}

extern "C" TKGRAPHICS_EXPORT const char* const* tkgraphics_keys()
{
    return kKeys;
}

extern "C" TKGRAPHICS_EXPORT bool tkgraphics_picture(const char* key, QImage* out)
{
    if (!key || !out)
        return false;
    for (const char* const* k = kKeys; *k; ++k) {
        if (std::strcmp(*k, key) == 0) {
            QImage image(8, 8, QImage::Format_ARGB32);
            image.fill(QColor(40, 40, 40));
            *out = image;
            return true;
        }
    }
    return false;
}
