#pragma once
// Form timers. On the desktop they run on Qt's clock; tests switch every
// timer to a manual clock and move it forward without sleeping.
#include <QObject>

class QTimer;

namespace platform {

class Timer : public QObject {
    Q_OBJECT
public:
    Timer(QObject* parent, int intervalMs, bool enabled);
    ~Timer() override;

    // Enabling (again) starts a fresh countdown, as form timers do.
    void setEnabled(bool on);
    bool isEnabled() const { return enabled_; }
    void setInterval(int ms);
    int interval() const { return interval_; }

    // Manual clock: every timer created or enabled from now on counts
    // virtual milliseconds that only advance() moves.
    static void useManualClock(bool manual);
    static bool manualClock();
    // Moves the manual clock and fires each timer that falls due, in order of
    // due time; a timer still enabled after firing is due again one interval later.
    static void advance(int ms);

signals:
    void timeout();

private:
    void arm();
    void fire();

    QTimer* qtimer_ = nullptr;
    int interval_ = 0;
    bool enabled_ = false;
    qint64 due_ = 0;
    friend struct TimerRegistry;
};

} // namespace platform
