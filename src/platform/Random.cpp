#include "platform/Random.h"

#include <QRandomGenerator>
#include <QTime>

namespace platform {
namespace {

class DesktopRandom final : public RandomSource {
public:
    double fraction() override { return generator_.generateDouble(); }

private:
    QRandomGenerator generator_{quint32(QTime::currentTime().msecsSinceStartOfDay())};
};

RandomSource* current = nullptr;

} // namespace

RandomSource& randomSource()
{
    static DesktopRandom desktop;
    return current ? *current : desktop;
}

void setRandomSource(RandomSource* source) { current = source; }

double randomFraction()
{
    const double f = randomSource().fraction();
    // A source that strays out of range must not pick a node that isn't there.
    return f >= 0.0 && f < 1.0 ? f : 0.0;
}

} // namespace platform
