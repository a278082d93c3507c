#pragma once
// The picture component: the program's own artwork lives in the separate
// library "TKGraphics.dll" in the program folder, one picture per key.
#include <QImage>
#include <QPixmap>
#include <QString>
#include <QStringList>

#include <memory>

class QLabel;
class QLibrary;

namespace media {

class GraphicsComponent {
public:
    enum class LoadResult { Ok, Missing, Unusable };

    // Loads "TKGraphics.dll" from the folder (name matched without regard to
    // case). Missing: no such file. Unusable: the file is there but isn't a
    // working picture component.
    static LoadResult load(const QString& programFolder, std::unique_ptr<GraphicsComponent>& out);

    // The component file of a folder as spelled on disk, or empty.
    static QString locate(const QString& programFolder);

    // Puts the installed copy ("repair/TKGraphics.dll") back in the program
    // folder, under the spelling the component has there. Like registering a
    // component anew, it takes effect at the next start.
    static bool repair(const QString& programFolder);

    // Clears GraphicsObject if it points here.
    ~GraphicsComponent();

    // The picture of a key ("showwelcome", "gorvanlogo", ...), rendered at
    // the size it was drawn for; the key's case doesn't matter. A null image
    // when the component has no such picture.
    QImage picture(const QString& key) const;
    QStringList keys() const;

private:
    GraphicsComponent() = default;
    struct Impl;
    std::unique_ptr<Impl> d;
};

// The component of the run, loaded by the start form; page pictures come
// from it.
inline GraphicsComponent* GraphicsObject = nullptr;

// The dynamic property of an image control naming the key it shows.
inline constexpr char kPictureKeyProperty[] = "pictureKey";

// Puts the picture of a key into an image control. False when the key has no
// picture or no component is loaded; the control then keeps what it showed.
bool ShowGraphic(const QString& key, QLabel* imageControl);

// The start logo; it lives in the program, as it is shown before the
// component is loaded.
QPixmap splashLogo();

} // namespace media
