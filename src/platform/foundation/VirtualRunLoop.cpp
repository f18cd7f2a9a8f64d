// SPDX-License-Identifier: MIT
#include "platform/foundation/CallQueue.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/RunLoop.h"

#include <condition_variable>
#include <deque>
#include <limits>
#include <mutex>
#include <thread>

namespace zelvo::foundation {

namespace {

constexpr double kForever = std::numeric_limits<double>::infinity();

/// A queue whose jobs are run by the run loop itself, each as a posted call, in one fixed order.
class LoopDrivenQueue final : public SerialQueue {
public:
    explicit LoopDrivenQueue(VirtualRunLoop& owner)
        : loop(owner) {}

    void async(std::function<void()> work) override { loop.post(std::move(work)); }

private:
    VirtualRunLoop& loop;
};

} // namespace

struct VirtualRunLoop::State {
    CallQueue timed;
    double now = 0;
    int expecting = 0; ///< number of holders of expectPosts
    std::thread::id thread = std::this_thread::get_id();

    std::mutex mutex;
    std::condition_variable posted;
    std::deque<std::function<void()>> posts; ///< guarded by mutex

    [[nodiscard]] std::function<void()> takePost() {
        const std::scoped_lock lock(mutex);
        if (posts.empty())
            return {};
        auto call = std::move(posts.front());
        posts.pop_front();
        return call;
    }

    /// Runs one posted call, or else the next timed call due by `limit`. False if there is neither.
    bool runOne(double limit) {
        if (const auto call = takePost()) {
            call();
            return true;
        }
        const auto due = timed.nextDue();
        if (!due || *due > limit)
            return false;
        now = std::max(now, *due);
        timed.runNext(now);
        return true;
    }

    /// Waits for a post of another thread if one is expected.
    bool waitForPost() {
        if (expecting == 0)
            return false;
        std::unique_lock lock(mutex);
        posted.wait(lock, [this] { return !posts.empty(); });
        return true;
    }
};

VirtualRunLoop::VirtualRunLoop()
    : state(std::make_shared<State>()) {}

VirtualRunLoop::~VirtualRunLoop() = default;

double VirtualRunLoop::now() const {
    return state->now;
}

void VirtualRunLoop::post(std::function<void()> call) {
    {
        const std::scoped_lock lock(state->mutex);
        state->posts.push_back(std::move(call));
    }
    state->posted.notify_one();
}

void VirtualRunLoop::asyncAfter(double delay, std::function<void()> call) {
    CHECK(
        std::this_thread::get_id() == state->thread, "asyncAfter belongs to the run loop's thread");
    state->timed.add(state->now + std::max(delay, 0.0), {std::move(call), 0, nullptr});
}

Timer VirtualRunLoop::scheduleOnce(double delay, std::function<void()> call) {
    auto cancelled = std::make_shared<bool>(false);
    state->timed.add(state->now + std::max(delay, 0.0), {std::move(call), 0, cancelled});
    return Timer([cancelled] { *cancelled = true; });
}

Timer VirtualRunLoop::scheduleRepeating(double interval, std::function<void()> call) {
    CHECK(interval > 0, "a repeating timer needs an interval above 0, not {}", interval);
    auto cancelled = std::make_shared<bool>(false);
    state->timed.add(state->now + interval, {std::move(call), interval, cancelled});
    return Timer([cancelled] { *cancelled = true; });
}

std::unique_ptr<SerialQueue> VirtualRunLoop::makeSerialQueue(std::string) {
    return std::make_unique<LoopDrivenQueue>(*this);
}

// This clock never waits, so pacing makes no difference.
void VirtualRunLoop::setPacing(Pacing) {}

bool VirtualRunLoop::runUntil(const std::function<bool()>& done) {
    while (!done()) {
        if (!state->runOne(kForever) && !state->waitForPost())
            return false;
    }
    return true;
}

void VirtualRunLoop::runTo(double time) {
    while (state->runOne(time)) {
    }
    state->now = std::max(state->now, time);
}

void VirtualRunLoop::runFor(double duration) {
    runTo(now() + duration);
}

void VirtualRunLoop::drain() {
    runTo(now());
}

Timer VirtualRunLoop::expectPosts() {
    ++state->expecting;
    return Timer([held = state] { --held->expecting; });
}

} // namespace zelvo::foundation
