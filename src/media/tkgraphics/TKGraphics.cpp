#include "TKGraphicsApi.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstring>

namespace {

// One SVG per key in tkgraphics.qrc, named after the key.
constexpr const char* kKeys[] = {
    "showwelcome",
    "showgametype",
    "showstartmap",
    "showteamselect",
    "showspawnbots",
    "showdmflags",
    "showgorvanflags",
    "showctfflags",
    "showplayersetup",
    "showcmdline",
    "showalldone",
    "showpref",
    "showteameditor",
    "gorvanlogo",
    "mklogo",
    // The attribute pictures of the bot editor and the examination.
    "acc1",
    "acc2",
    "acc3",
    "acc4",
    "acc5",
    "agg1",
    "agg2",
    "agg3",
    "agg4",
    "agg5",
    "cs1",
    "cs2",
    "cs3",
    "cs4",
    "cs5",
    "fw1",
    "fw2",
    "fw3",
    "fw4",
    "fw5",
    "fw6",
    "fw7",
    "fw8",
    "fw9",
    "fw10",
    "quad1",
    "quad2",
    "camper1",
    "camper2",
    nullptr,
};

bool isKey(const char* key)
{
    for (const char* const* k = kKeys; *k; ++k) {
        if (std::strcmp(*k, key) == 0)
            return true;
    }
    return false;
}

} // namespace

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
    // Only listed keys reach the resource path, so no caller text can name
    // some other resource of the process.
    if (!key || !out || !isKey(key))
        return false;
    // Without a QGuiApplication the font database ends the process with a
    // fatal error as soon as text is drawn; a refusal is kinder.
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return false;

    QSvgRenderer renderer(QStringLiteral(":/tkgraphics/%1.svg").arg(QLatin1String(key)));
    if (!renderer.isValid())
        return false;
    QImage image(renderer.defaultSize(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return false;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    renderer.render(&painter);
    painter.end();
    *out = image;
    return true;
}
