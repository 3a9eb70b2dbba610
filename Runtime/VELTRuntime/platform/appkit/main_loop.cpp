#include "VELTRuntime/platform/appkit/main_loop.h"

#include "VELTRuntime/platform/foundation/loop_driver.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/providers.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>

#include <algorithm>
#include <map>

namespace velt {

namespace {

using std::chrono::milliseconds;

class ApplicationDriver final : public QObject, public LoopDriver {
public:
    explicit ApplicationDriver(LoopCalls calls) : calls_(std::move(calls)) {
        connect(dispatcher(), &QAbstractEventDispatcher::aboutToBlock, this, [this] { calls_.idle(); });
    }
    void wake() override { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }
    void wakeAt(LoopTime time) override {
        if (timer_) killTimer(timer_);
        timer_ = 0;
        if (time == LoopTime::max()) return;
        // Rounded up: a timer that fires early would find nothing to deliver. A day is well below what it can count.
        const LoopTime now = LoopClock::now();
        const auto wait = time <= now ? milliseconds(0) : std::chrono::ceil<milliseconds>(time - now);
        timer_ = startTimer(std::min(wait, milliseconds(std::chrono::hours(24))), Qt::PreciseTimer);
    }
    void watch(int descriptor) override {
        auto& notifier = notifiers_[descriptor];
        notifier.reset(new QSocketNotifier(descriptor, QSocketNotifier::Read));
        connect(notifier.get(), &QSocketNotifier::activated, this, [this, descriptor] { calls_.readable(descriptor); });
    }
    void unwatch(int descriptor) override {
        // It may be the one that calls at this moment.
        if (const auto found = notifiers_.find(descriptor); found != notifiers_.end()) {
            found->second->setEnabled(false);
            found->second.release()->deleteLater();
            notifiers_.erase(found);
        }
    }
    void wait() override { dispatcher()->processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents); }

    bool event(QEvent* event) override {
        if (event->type() != QEvent::User && event->type() != QEvent::Timer) return QObject::event(event);
        if (event->type() == QEvent::Timer) {
            killTimer(timer_);
            timer_ = 0;
        }
        calls_.pass();
        return true;
    }

private:
    static QAbstractEventDispatcher* dispatcher() { return QAbstractEventDispatcher::instance(); }

    LoopCalls calls_;
    std::map<int, std::unique_ptr<QSocketNotifier>> notifiers_;
    int timer_ = 0;
};

}  // namespace

void runWithinApplication() {
    Providers given{};
    given.makeMainLoopDriver = [](LoopCalls calls) -> std::unique_ptr<LoopDriver> {
        return std::make_unique<ApplicationDriver>(std::move(calls));
    };
    provide(given);
    RunLoop::main().prepare();
}

}  // namespace velt
