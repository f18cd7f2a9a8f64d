// SPDX-License-Identifier: MIT
#include "platform/foundation/CallQueue.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/RunLoop.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace zelvo::foundation {

namespace {

/// A worker thread that runs its jobs in order. Jobs still queued at destruction are run first.
class ThreadedQueue final : public SerialQueue {
public:
    ThreadedQueue()
        : worker([this] { work(); }) {}

    ~ThreadedQueue() override {
        {
            const std::scoped_lock lock(mutex);
            isEnding = true;
        }
        wake.notify_one();
        worker.join();
    }

    void async(std::function<void()> item) override {
        {
            const std::scoped_lock lock(mutex);
            items.push_back(std::move(item));
        }
        wake.notify_one();
    }

private:
    void work() {
        std::unique_lock lock(mutex);
        while (true) {
            wake.wait(lock, [this] { return isEnding || !items.empty(); });
            if (items.empty())
                return;
            const auto item = std::move(items.front());
            items.pop_front();
            lock.unlock();
            item();
            lock.lock();
        }
    }

    std::mutex mutex;
    std::condition_variable wake;
    std::deque<std::function<void()>> items; ///< guarded by mutex
    bool isEnding = false;                   ///< guarded by mutex
    std::thread worker;                      // last, because it uses the members above
};

} // namespace

/// The loop's clock is the wall clock plus the jumps of unpaced phases. One Qt timer fires for the
/// next due call. Each turn runs a single call, so that Qt can always handle its own events.
struct WallRunLoop::State {
    QObject receiver; ///< lives on the loop's thread; posts are sent to it
    QTimer wake;
    QElapsedTimer wall;
    CallQueue timed;
    Pacing pacing = Pacing::realTime;
    double offset = 0; ///< seconds added to the wall clock
    double unpacedNow = 0;

    State() {
        wall.start();
        wake.setSingleShot(true);
        wake.setTimerType(Qt::PreciseTimer);
        QObject::connect(&wake, &QTimer::timeout, &receiver, [this] { turn(); });
    }

    [[nodiscard]] double wallSeconds() const {
        return static_cast<double>(wall.nsecsElapsed()) * 1e-9;
    }

    [[nodiscard]] double now() const {
        return pacing == Pacing::unpaced ? unpacedNow : wallSeconds() + offset;
    }

    void turn() {
        const auto due = timed.nextDue();
        if (!due)
            return;
        if (pacing == Pacing::unpaced)
            unpacedNow = std::max(unpacedNow, *due);
        if (*due <= now())
            timed.runNext(now());
        schedule();
    }

    void schedule() {
        const auto due = timed.nextDue();
        if (!due) {
            wake.stop();
            return;
        }
        const double wait = pacing == Pacing::unpaced ? 0 : std::max(0.0, *due - now());
        wake.start(static_cast<int>(std::ceil(wait * 1000)));
    }

    void add(double delay, CallQueue::Entry entry) {
        CHECK(
            receiver.thread() == QThread::currentThread(),
            "timers belong to the run loop's thread");
        timed.add(now() + std::max(delay, 0.0), std::move(entry));
        schedule();
    }
};

WallRunLoop::WallRunLoop()
    : state(std::make_shared<State>()) {
    CHECK(QCoreApplication::instance() != nullptr, "the wall run loop needs a QCoreApplication");
}

WallRunLoop::~WallRunLoop() = default;

double WallRunLoop::now() const {
    return state->now();
}

void WallRunLoop::post(std::function<void()> call) {
    QMetaObject::invokeMethod(&state->receiver, std::move(call), Qt::QueuedConnection);
}

void WallRunLoop::asyncAfter(double delay, std::function<void()> call) {
    state->add(delay, {std::move(call), 0, nullptr});
}

Timer WallRunLoop::scheduleOnce(double delay, std::function<void()> call) {
    auto cancelled = std::make_shared<bool>(false);
    state->add(delay, {std::move(call), 0, cancelled});
    return Timer([cancelled] { *cancelled = true; });
}

Timer WallRunLoop::scheduleRepeating(double interval, std::function<void()> call) {
    CHECK(interval > 0, "a repeating timer needs an interval above 0, not {}", interval);
    auto cancelled = std::make_shared<bool>(false);
    state->add(interval, {std::move(call), interval, cancelled});
    return Timer([cancelled] { *cancelled = true; });
}

std::unique_ptr<SerialQueue> WallRunLoop::makeSerialQueue(std::string) {
    return std::make_unique<ThreadedQueue>();
}

void WallRunLoop::setPacing(Pacing pacing) {
    if (pacing == state->pacing)
        return;
    const double now = state->now();
    state->unpacedNow = now;
    state->offset = now - state->wallSeconds();
    state->pacing = pacing;
    state->schedule();
}

bool WallRunLoop::runUntil(const std::function<bool()>& done) {
    while (!done()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace zelvo::foundation
