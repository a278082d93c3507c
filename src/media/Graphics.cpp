#include "media/Graphics.h"
namespace media {
struct GraphicsComponent::Impl {};
GraphicsComponent::~GraphicsComponent() = default;
GraphicsComponent::LoadResult GraphicsComponent::load(const QString&, std::unique_ptr<GraphicsComponent>&) { return LoadResult::Missing; }
QImage GraphicsComponent::picture(const QString&) const { return {}; }
QStringList GraphicsComponent::keys() const { return {}; }
bool ShowGraphic(const QString&, QLabel*) { return false; }
}
namespace media { QPixmap splashLogo() { return {}; } }
