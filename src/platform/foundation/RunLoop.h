// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace zelvo::foundation {

/// Owns a timer or a delayed call and ends it when destroyed. Movable; empty by default. It may
/// outlive its run loop.
class Timer {
public:
    Timer() = default;

    explicit Timer(std::function<void()> end)
        : invalidator(std::move(end)) {}

    Timer(Timer&& other) noexcept;
    Timer& operator=(Timer&& other) noexcept;
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer();

    /// Ends it: nothing is called any more. Does nothing if it is empty.
    void invalidate();

    [[nodiscard]] bool isValid() const { return static_cast<bool>(invalidator); }

private:
    std::function<void()> invalidator;
};

/// A serial queue: jobs run one after another, in the order of posting. With the wall clock it has
/// a thread; with the virtual clock the run loop runs the jobs in a fixed order. Results are sent
/// back with RunLoop::post.
class SerialQueue {
public:
    virtual ~SerialQueue() = default;

    /// Queues the job and returns at once. Any thread.
    virtual void async(std::function<void()> work) = 0;
};

/// The speed of the loop's clock.
enum class Pacing {
    realTime, ///< like the wall clock (the virtual clock never waits)
    /// Does not wait: the next due timer is called at once and time jumps to it. For exports: each
    /// frame written takes one frame of the loop's time, however long it took to make.
    unpaced,
};

/// The main queue, delayed calls and timers, with one interface for two clocks: the wall clock for
/// the application (on Qt's event loop), and the virtual clock for the command line, tests and
/// benchmarks. Only the run loop reads a wall clock or sleeps.
///
/// Times are in seconds. Calls that are due together run in the order in which they were made. All
/// functions except `post` must be called on the thread that made the loop; callbacks run there,
/// too.
class RunLoop {
public:
    virtual ~RunLoop() = default;

    /// The loop's time; 0 when the loop was made.
    [[nodiscard]] virtual double now() const = 0;

    /// Queues a call after those already queued. Any thread.
    virtual void post(std::function<void()> call) = 0;

    /// Calls once after the delay, at the earliest in the next turn of the loop. Cannot be
    /// cancelled.
    virtual void asyncAfter(double delay, std::function<void()> call) = 0;

    /// Calls once after the delay, unless the timer is ended before.
    [[nodiscard]] virtual Timer scheduleOnce(double delay, std::function<void()> call) = 0;

    /// Calls at every interval from now on. Missed calls are skipped. The call may end its own
    /// timer.
    [[nodiscard]] virtual Timer scheduleRepeating(double interval, std::function<void()> call) = 0;

    [[nodiscard]] virtual std::unique_ptr<SerialQueue> makeSerialQueue(std::string label) = 0;

    virtual void setPacing(Pacing pacing) = 0;

    /// Runs queued calls and due timers until `done` returns true (asked after each call) or
    /// nothing is left to run. Returns whether `done` was reached.
    virtual bool runUntil(const std::function<bool()>& done) = 0;
};

/// Jumps from one due call to the next, so a run of ten seconds takes milliseconds. Exactly
/// repeatable. Posts from other threads (such as an encoder's completion) run in the order of
/// arrival.
class VirtualRunLoop final : public RunLoop {
public:
    VirtualRunLoop();
    ~VirtualRunLoop() override;

    [[nodiscard]] double now() const override;
    void post(std::function<void()> call) override;
    void asyncAfter(double delay, std::function<void()> call) override;
    [[nodiscard]] Timer scheduleOnce(double delay, std::function<void()> call) override;
    [[nodiscard]] Timer scheduleRepeating(double interval, std::function<void()> call) override;
    [[nodiscard]] std::unique_ptr<SerialQueue> makeSerialQueue(std::string label) override;
    void setPacing(Pacing pacing) override;
    bool runUntil(const std::function<bool()>& done) override;

    /// Runs all calls due up to and including that time, and sets the clock to it.
    void runTo(double time);
    /// runTo(now() + duration).
    void runFor(double duration);
    /// Runs the calls that are due now, without advancing the clock.
    void drain();

    /// As long as the result is held, runUntil waits for posts from other threads when nothing else
    /// is left, instead of returning. End it on the loop's thread.
    [[nodiscard]] Timer expectPosts();

private:
    struct State;
    std::shared_ptr<State> state;
};

/// The wall clock, on Qt's event loop; needs a QCoreApplication. Each serial queue has a thread. In
/// unpaced mode the clock jumps from one due call to the next, and Qt handles its events between
/// two calls.
class WallRunLoop final : public RunLoop {
public:
    WallRunLoop();
    ~WallRunLoop() override;

    [[nodiscard]] double now() const override;
    void post(std::function<void()> call) override;
    void asyncAfter(double delay, std::function<void()> call) override;
    [[nodiscard]] Timer scheduleOnce(double delay, std::function<void()> call) override;
    [[nodiscard]] Timer scheduleRepeating(double interval, std::function<void()> call) override;
    [[nodiscard]] std::unique_ptr<SerialQueue> makeSerialQueue(std::string label) override;
    void setPacing(Pacing pacing) override;
    bool runUntil(const std::function<bool()>& done) override;

private:
    struct State;
    std::shared_ptr<State> state;
};

} // namespace zelvo::foundation
