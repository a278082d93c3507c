#include "media/Graphics.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <map>

namespace {

using media::GraphicsComponent;
using LoadResult = media::GraphicsComponent::LoadResult;

const QString kBuiltComponent = QStringLiteral(TORVIK_BUILD_PROGRAM_DIR "/TKGraphics.dll");

const QStringList kBannerKeys = {
    QStringLiteral("showwelcome"),     QStringLiteral("showgametype"),   QStringLiteral("showstartmap"),
    QStringLiteral("showteamselect"),  QStringLiteral("showspawnbots"),  QStringLiteral("showdmflags"),
    QStringLiteral("showgorvanflags"), QStringLiteral("showctfflags"),   QStringLiteral("showplayersetup"),
    QStringLiteral("showcmdline"),     QStringLiteral("showalldone"),    QStringLiteral("showpref"),
    QStringLiteral("showteameditor"),
};
const QStringList kLogoKeys = {QStringLiteral("gorvanlogo"), QStringLiteral("mklogo")};

// Rendering text and QLabel both need a GUI application; one for the whole
// test program, as Qt allows only one.
void ensureApplication()
{
    if (QCoreApplication::instance())
        return;
    static int argc = 1;
    static char name[] = "torvik_tests";
    static char* argv[] = {name, nullptr};
    new QApplication(argc, argv);
}

class GraphicsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ensureApplication();
        ASSERT_TRUE(dir.isValid());
        ASSERT_TRUE(QFile::exists(kBuiltComponent)) << "build the TKGraphics target first";
    }
    void TearDown() override { media::GraphicsObject = nullptr; }

    QString place(const QString& name) const
    {
        const QString target = dir.filePath(name);
        EXPECT_TRUE(QFile::copy(kBuiltComponent, target));
        return target;
    }

    std::unique_ptr<GraphicsComponent> loadPlaced()
    {
        place(QStringLiteral("TKGraphics.dll"));
        std::unique_ptr<GraphicsComponent> component;
        EXPECT_EQ(GraphicsComponent::load(dir.path(), component), LoadResult::Ok);
        return component;
    }

    QTemporaryDir dir;
};

// Share of pixels that differ noticeably between two pictures of one size.
double differingShare(const QImage& a, const QImage& b)
{
    const QImage x = a.convertToFormat(QImage::Format_ARGB32);
    const QImage y = b.convertToFormat(QImage::Format_ARGB32);
    int differing = 0;
    for (int row = 0; row < x.height(); ++row) {
        for (int col = 0; col < x.width(); ++col) {
            const QRgb p = x.pixel(col, row);
            const QRgb q = y.pixel(col, row);
            const int delta = qAbs(qRed(p) - qRed(q)) + qAbs(qGreen(p) - qGreen(q)) + qAbs(qBlue(p) - qBlue(q));
            if (delta > 48)
                ++differing;
        }
    }
    return double(differing) / (x.width() * x.height());
}

// Share of opaque, light pixels: the lettering and the emblem, all drawn
// light on dark. A picture whose text or drawing failed to render is left
// with almost none.
double lightShare(const QImage& image)
{
    const QImage x = image.convertToFormat(QImage::Format_ARGB32);
    int light = 0;
    for (int row = 0; row < x.height(); ++row) {
        for (int col = 0; col < x.width(); ++col) {
            const QRgb p = x.pixel(col, row);
            if (qAlpha(p) == 255 && qGray(p) > 170)
                ++light;
        }
    }
    return double(light) / (x.width() * x.height());
}

void writeFile(const QString& path, const QByteArray& data)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    ASSERT_EQ(f.write(data), data.size());
}

// A shared library of the system that is already mapped into this process
// and has no initialisation to speak of, so a second copy is harmless.
QString someOtherSharedLibrary()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly | QIODevice::Text))
        return QString();
    const QString text = QString::fromLocal8Bit(maps.readAll());
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        const qsizetype at = line.indexOf(QLatin1Char('/'));
        if (at < 0)
            continue;
        const QString path = line.mid(at).trimmed();
        if (path.contains(QLatin1String("/libz.so")))
            return path;
    }
    return QString();
}

TEST_F(GraphicsTest, GraphicsEveryKeyRendersAtItsDrawnSize)
{
    const auto component = loadPlaced();
    ASSERT_TRUE(component);

    std::map<QString, QSize> expected;
    for (const QString& key : kBannerKeys)
        expected[key] = QSize(160, 360);
    for (const QString& key : kLogoKeys)
        expected[key] = QSize(150, 60);

    const QStringList keys = component->keys();
    EXPECT_EQ(QSet<QString>(keys.begin(), keys.end()),
              (QSet<QString>(kBannerKeys.begin(), kBannerKeys.end()) + QSet<QString>(kLogoKeys.begin(), kLogoKeys.end())));
    for (const auto& [key, size] : expected) {
        const QImage image = component->picture(key);
        ASSERT_FALSE(image.isNull()) << key.toStdString();
        EXPECT_EQ(image.size(), size) << key.toStdString();
        EXPECT_GT(lightShare(image), 0.02) << key.toStdString() << " shows no title or emblem";
    }
}

TEST_F(GraphicsTest, GraphicsPageBannersDifferFromEachOther)
{
    const auto component = loadPlaced();
    ASSERT_TRUE(component);
    QList<QImage> banners;
    for (const QString& key : kBannerKeys)
        banners.append(component->picture(key));
    for (qsizetype i = 0; i < banners.size(); ++i) {
        for (qsizetype j = i + 1; j < banners.size(); ++j) {
            EXPECT_GT(differingShare(banners[i], banners[j]), 0.05)
                << kBannerKeys[i].toStdString() << " looks like " << kBannerKeys[j].toStdString();
        }
    }
    EXPECT_GT(differingShare(component->picture(QStringLiteral("gorvanlogo")), component->picture(QStringLiteral("mklogo"))),
              0.05);
}

TEST_F(GraphicsTest, GraphicsKeysIgnoreCaseAndUnknownKeysGiveNothing)
{
    const auto component = loadPlaced();
    ASSERT_TRUE(component);
    EXPECT_EQ(component->picture(QStringLiteral("ShowWelcome")), component->picture(QStringLiteral("showwelcome")));
    EXPECT_TRUE(component->picture(QStringLiteral("nosuchpicture")).isNull());
    EXPECT_TRUE(component->picture(QString()).isNull());
    EXPECT_TRUE(component->picture(QStringLiteral("showwelcome.svg")).isNull());
    EXPECT_TRUE(component->picture(QStringLiteral("../artwork/splash")).isNull());
}

TEST_F(GraphicsTest, GraphicsMissingWithoutTheFile)
{
    std::unique_ptr<GraphicsComponent> component;
    EXPECT_EQ(GraphicsComponent::load(dir.path(), component), LoadResult::Missing);
    EXPECT_FALSE(component);

    // A folder of that name is no component either.
    ASSERT_TRUE(QDir(dir.path()).mkdir(QStringLiteral("TKGraphics.dll")));
    EXPECT_EQ(GraphicsComponent::load(dir.path(), component), LoadResult::Missing);
    EXPECT_TRUE(GraphicsComponent::locate(dir.path()).isEmpty());
}

TEST_F(GraphicsTest, GraphicsFindsTheFileWhateverItsCase)
{
    const QString placed = place(QStringLiteral("tkgraphics.DLL"));
    EXPECT_EQ(GraphicsComponent::locate(dir.path()), placed);
    std::unique_ptr<GraphicsComponent> component;
    ASSERT_EQ(GraphicsComponent::load(dir.path(), component), LoadResult::Ok);
    ASSERT_TRUE(component);
    EXPECT_FALSE(component->picture(QStringLiteral("mklogo")).isNull());
}

TEST_F(GraphicsTest, GraphicsTextFileUnderTheNameIsUnusable)
{
    writeFile(dir.filePath(QStringLiteral("TKGraphics.dll")), "This is not a library at all.\r\n");
    std::unique_ptr<GraphicsComponent> component;
    EXPECT_EQ(GraphicsComponent::load(dir.path(), component), LoadResult::Unusable);
    EXPECT_FALSE(component);
}

TEST_F(GraphicsTest, GraphicsTruncatedCopyIsUnusable)
{
    QFile whole(kBuiltComponent);
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    writeFile(dir.filePath(QStringLiteral("TKGraphics.dll")), whole.read(4096));
    std::unique_ptr<GraphicsComponent> component;
    EXPECT_EQ(GraphicsComponent::load(dir.path(), component), LoadResult::Unusable);
    EXPECT_FALSE(component);
}

TEST_F(GraphicsTest, GraphicsOtherSharedLibraryUnderTheNameIsUnusable)
{
    const QString other = someOtherSharedLibrary();
    if (other.isEmpty())
        GTEST_SKIP() << "no system library at hand to stand in";
    ASSERT_TRUE(QFile::copy(other, dir.filePath(QStringLiteral("TKGraphics.dll"))));
    std::unique_ptr<GraphicsComponent> component;
    EXPECT_EQ(GraphicsComponent::load(dir.path(), component), LoadResult::Unusable);
    EXPECT_FALSE(component);
}

TEST_F(GraphicsTest, GraphicsLoadsAgainAfterAnEarlierComponentWasReleased)
{
    // The start-up replaces a component by a new one; the first one's unload
    // must not take the second one's artwork with it.
    auto first = loadPlaced();
    ASSERT_TRUE(first);
    std::unique_ptr<GraphicsComponent> second;
    ASSERT_EQ(GraphicsComponent::load(dir.path(), second), LoadResult::Ok);
    first.reset();
    EXPECT_EQ(second->picture(QStringLiteral("showalldone")).size(), QSize(160, 360));
    second.reset();

    std::unique_ptr<GraphicsComponent> third;
    ASSERT_EQ(GraphicsComponent::load(dir.path(), third), LoadResult::Ok);
    EXPECT_EQ(third->picture(QStringLiteral("gorvanlogo")).size(), QSize(150, 60));
}

TEST_F(GraphicsTest, GraphicsShowGraphicPutsThePictureIntoTheLabel)
{
    auto component = loadPlaced();
    ASSERT_TRUE(component);
    QLabel label;

    EXPECT_FALSE(media::ShowGraphic(QStringLiteral("gorvanlogo"), &label)) << "no component set yet";
    EXPECT_TRUE(label.pixmap().isNull());

    media::GraphicsObject = component.get();
    ASSERT_TRUE(media::ShowGraphic(QStringLiteral("gorvanlogo"), &label));
    const QImage shown = label.pixmap().toImage().convertToFormat(QImage::Format_ARGB32);
    EXPECT_EQ(shown, component->picture(QStringLiteral("gorvanlogo")).convertToFormat(QImage::Format_ARGB32));
    EXPECT_EQ(label.property(media::kPictureKeyProperty).toString(), QStringLiteral("gorvanlogo"));

    // An unknown key leaves the label as it was.
    EXPECT_FALSE(media::ShowGraphic(QStringLiteral("nosuchpicture"), &label));
    EXPECT_EQ(label.pixmap().toImage().convertToFormat(QImage::Format_ARGB32), shown);
    EXPECT_EQ(label.property(media::kPictureKeyProperty).toString(), QStringLiteral("gorvanlogo"));

    ASSERT_TRUE(media::ShowGraphic(QStringLiteral("showpref"), &label));
    EXPECT_EQ(label.pixmap().size(), QSize(160, 360));

    // Releasing the component leaves no dangling global behind.
    component.reset();
    EXPECT_EQ(media::GraphicsObject, nullptr);
    EXPECT_FALSE(media::ShowGraphic(QStringLiteral("showpref"), &label));
}

TEST_F(GraphicsTest, GraphicsSplashLogoShowsTheProgramName)
{
    const QPixmap logo = media::splashLogo();
    ASSERT_FALSE(logo.isNull());
    EXPECT_EQ(logo.size(), QSize(400, 200));
    EXPECT_GT(lightShare(logo.toImage()), 0.03);
}

} // namespace
