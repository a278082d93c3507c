#include "media/Graphics.h"

#include "media/tkgraphics/TKGraphicsApi.h"
#include "platform/Files.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLibrary>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cstring>

#include <elf.h>

// The splash artwork sits in torvik_core, a static library: without a
// reference its resource object would be dropped by the linker. The macro
// must stand outside any namespace.
static void initArtworkResource()
{
    Q_INIT_RESOURCE(artwork);
}

namespace media {

namespace {

constexpr char kComponentFileName[] = "TKGraphics.dll";

#if __SIZEOF_POINTER__ == 8
using ElfHeader = Elf64_Ehdr;
using ElfSegment = Elf64_Phdr;
constexpr unsigned char kElfClass = ELFCLASS64;
#else
using ElfHeader = Elf32_Ehdr;
using ElfSegment = Elf32_Phdr;
constexpr unsigned char kElfClass = ELFCLASS32;
#endif

bool within(quint64 offset, quint64 length, quint64 size)
{
    return offset <= size && length <= size - offset;
}

// The system loader maps a library's segments without checking them against
// the file's length, and touching a page past the end of a cut-off copy kills
// the process with SIGBUS. So the file's own tables are checked first: every
// part they name must lie inside the file. The section table normally comes
// last, which makes it the tell-tale of a copy that stopped early.
bool wholeLibraryFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const quint64 size = quint64(file.size());
    ElfHeader header;
    if (file.read(reinterpret_cast<char*>(&header), sizeof header) != qint64(sizeof header))
        return false;
    if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 || header.e_ident[EI_CLASS] != kElfClass)
        return false;
    if (header.e_phentsize != sizeof(ElfSegment) || header.e_phnum == 0
        || !within(header.e_phoff, quint64(header.e_phnum) * sizeof(ElfSegment), size))
        return false;
    if (header.e_shoff != 0 && !within(header.e_shoff, quint64(header.e_shnum) * header.e_shentsize, size))
        return false;
    if (!file.seek(qint64(header.e_phoff)))
        return false;
    for (int i = 0; i < header.e_phnum; ++i) {
        ElfSegment segment;
        if (file.read(reinterpret_cast<char*>(&segment), sizeof segment) != qint64(sizeof segment))
            return false;
        if (!within(segment.p_offset, segment.p_filesz, size))
            return false;
    }
    return true;
}

} // namespace

struct GraphicsComponent::Impl {
    QLibrary library;
    tkgraphics::PictureFn picture = nullptr;
    QStringList keys;
};

QString GraphicsComponent::locate(const QString& programFolder)
{
    const QString path = platform::resolvePath(platform::joinPath(programFolder, QString::fromLatin1(kComponentFileName)));
    // A folder of that name is no component, as the look-up of files sees it.
    if (path.isEmpty() || !QFileInfo(path).isFile())
        return QString();
    return path;
}

GraphicsComponent::LoadResult GraphicsComponent::load(const QString& programFolder,
                                                      std::unique_ptr<GraphicsComponent>& out)
{
    out.reset();
    const QString path = locate(programFolder);
    if (path.isEmpty())
        return LoadResult::Missing;

    if (!wholeLibraryFile(path))
        return LoadResult::Unusable;

    auto impl = std::make_unique<Impl>();
    impl->library.setFileName(path);
    if (!impl->library.load())
        return LoadResult::Unusable;

    // Any shared library loads; only the entry points tell that this one is
    // ours, and only a matching version that the QImage it fills is laid out
    // as the program's own.
    const auto abiVersion = reinterpret_cast<tkgraphics::AbiVersionFn>(impl->library.resolve(tkgraphics::kAbiVersionSymbol));
    const auto keysOf = reinterpret_cast<tkgraphics::KeysFn>(impl->library.resolve(tkgraphics::kKeysSymbol));
    impl->picture = reinterpret_cast<tkgraphics::PictureFn>(impl->library.resolve(tkgraphics::kPictureSymbol));
    const char* const* keys = nullptr;
    if (abiVersion && keysOf && impl->picture && abiVersion() == TKGRAPHICS_ABI_VERSION)
        keys = keysOf();
    if (!keys) {
        impl->library.unload();
        return LoadResult::Unusable;
    }
    for (const char* const* k = keys; *k; ++k)
        impl->keys.append(QString::fromLatin1(*k));

    out.reset(new GraphicsComponent);
    out->d = std::move(impl);
    return LoadResult::Ok;
}

bool GraphicsComponent::repair(const QString& programFolder)
{
    const QString spare = platform::resolvePath(platform::joinPath(programFolder, QStringLiteral("repair/TKGraphics.dll")));
    if (spare.isEmpty())
        return false;
    const QString wanted = platform::joinPath(programFolder, QString::fromLatin1(kComponentFileName));
    const QString existing = platform::resolvePath(wanted);
    return platform::copyFile(spare, existing.isEmpty() ? wanted : existing);
}

GraphicsComponent::~GraphicsComponent()
{
    if (GraphicsObject == this)
        GraphicsObject = nullptr;
    // The library stays mapped. All QLibrary objects of one file share one
    // handle, and Qt's unload closes it even while another component of the
    // same file still calls into it; a small library kept to the end of the
    // run costs less than that crash.
}

QImage GraphicsComponent::picture(const QString& key) const
{
    // Keys were method names called by name, where case never mattered.
    for (const QString& known : d->keys) {
        if (known.compare(key, Qt::CaseInsensitive) != 0)
            continue;
        QImage image;
        if (!d->picture(known.toLatin1().constData(), &image))
            return QImage();
        return image;
    }
    return QImage();
}

QStringList GraphicsComponent::keys() const
{
    return d->keys;
}

bool ShowGraphic(const QString& key, QLabel* imageControl)
{
    if (!imageControl || !GraphicsObject)
        return false;
    const QImage image = GraphicsObject->picture(key);
    if (image.isNull())
        return false;
    imageControl->setPixmap(QPixmap::fromImage(image));
    // The control remembers which picture it holds, for whoever asks what the
    // user sees (screen readers and the scenario runner alike).
    imageControl->setProperty(kPictureKeyProperty, key);
    return true;
}

// Drawn once, for the splash and the About panel alike: parsing the SVG was
// a tenth of the start. The label shows it at its own size, so it is drawn at
// that size, in the screen's pixels.
QPixmap splashLogo()
{
    static const QString cacheKey = QStringLiteral("torvik/splashLogo");
    QPixmap pixmap;
    if (QPixmapCache::find(cacheKey, &pixmap))
        return pixmap;
    initArtworkResource();
    QSvgRenderer renderer(QStringLiteral(":/artwork/splash.svg"));
    if (!renderer.isValid())
        return QPixmap();
    const qreal ratio = qApp ? qApp->devicePixelRatio() : 1.0;
    pixmap = QPixmap(renderer.defaultSize() * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    {
        QPainter painter(&pixmap);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
        renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(renderer.defaultSize())));
    }
    QPixmapCache::insert(cacheKey, pixmap);
    return pixmap;
}

} // namespace media
