#include "platform/Timer.h"

#include <QTimer>

#include <algorithm>
#include <vector>

namespace platform {

struct TimerRegistry {
    bool manual = false;
    qint64 now = 0;
    std::vector<Timer*> timers;
};

namespace {
TimerRegistry registry;
}

Timer::Timer(QObject* parent, int intervalMs, bool enabled) : QObject(parent), interval_(intervalMs)
{
    registry.timers.push_back(this);
    if (!registry.manual) {
        qtimer_ = new QTimer(this);
        qtimer_->setInterval(interval_);
        connect(qtimer_, &QTimer::timeout, this, &Timer::fire);
    }
    setEnabled(enabled);
}

Timer::~Timer()
{
    std::erase(registry.timers, this);
}

void Timer::arm()
{
    if (qtimer_) {
        if (enabled_ && interval_ > 0)
            qtimer_->start(interval_);
        else
            qtimer_->stop();
    }
    due_ = registry.now + std::max(interval_, 1);
}

void Timer::setEnabled(bool on)
{
    enabled_ = on;
    arm();
}

void Timer::setInterval(int ms)
{
    interval_ = ms;
    if (qtimer_)
        qtimer_->setInterval(ms);
    arm();
}

void Timer::fire()
{
    if (!enabled_ || interval_ <= 0)
        return;
    due_ = registry.now + interval_;
    emit timeout();
}

void Timer::useManualClock(bool manual) { registry.manual = manual; }
bool Timer::manualClock() { return registry.manual; }

void Timer::advance(int ms)
{
    const qint64 end = registry.now + ms;
    for (;;) {
        Timer* next = nullptr;
        for (Timer* t : registry.timers) {
            if (t->qtimer_ || !t->enabled_ || t->interval_ <= 0 || t->due_ > end)
                continue;
            if (!next || t->due_ < next->due_)
                next = t;
        }
        if (!next)
            break;
        registry.now = next->due_;
        next->fire();
    }
    // A handler may have opened a modal form in which the clock moved on.
    registry.now = std::max(registry.now, end);
}

} // namespace platform
