// A picture component that loads and answers like the real one but knows
// only the two logos, so that the start-up meets missing page pictures.
#include "media/tkgraphics/TKGraphicsApi.h"

#include <QImage>

#include <cstring>

namespace {
constexpr const char* kKeys[] = {"gorvanlogo", "mklogo", nullptr};
}

extern "C" TKGRAPHICS_EXPORT int tkgraphics_abi_version() { return TKGRAPHICS_ABI_VERSION; }

extern "C" TKGRAPHICS_EXPORT const char* const* tkgraphics_keys() { return kKeys; }

extern "C" TKGRAPHICS_EXPORT bool tkgraphics_picture(const char* key, QImage* out)
{
    for (const char* const* k = kKeys; key && out && *k; ++k) {
        if (std::strcmp(*k, key) == 0) {
            *out = QImage(8, 8, QImage::Format_ARGB32);
            out->fill(Qt::darkGray);
            return true;
        }
    }
    return false;
}
