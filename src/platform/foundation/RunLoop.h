// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace zelvo::foundation {

/// Ends a timer or a delayed call when it goes out of scope. Movable; empty by default. It may
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

    /// Ends it now; nothing is called any more. Harmless when there is none.
    void invalidate();

    [[nodiscard]] bool isValid() const { return static_cast<bool>(invalidator); }

private:
    std::function<void()> invalidator;
};

/// A serial queue: work runs one after another, in the order of posting. On the wall clock it has a
/// thread of its own; on the virtual clock the run loop drains it in its own fixed order. Results
/// go back through RunLoop::post.
class SerialQueue {
public:
    virtual ~SerialQueue() = default;

    /// Queues the work and returns at once. Any thread.
    virtual void async(std::function<void()> work) = 0;
};

/// How fast the loop's own clock runs.
enum class Pacing {
    realTime, ///< as the wall clock does (the virtual clock has no such wait and always jumps)
    /// the next due timer is taken at once and time jumps to it: an export, in which one frame of
    /// the loop's clock passes per frame written, however long it took to make
    unpaced,
};

/// The main queue, delayed calls and timers, behind one interface with two clocks: the wall clock
/// for the application (on Qt's event loop) and the virtual clock for the command line, tests and
/// benchmarks. No code outside the run loop reads a wall clock or sleeps.
///
/// Times are seconds. Calls that are due together run in the order of their making. Everything but
/// `post` belongs to the thread that made the loop, and callbacks run on that thread.
class RunLoop {
public:
    virtual ~RunLoop() = default;

    /// The loop's clock: 0 when the loop was made.
    [[nodiscard]] virtual double now() const = 0;

    /// Queues a call behind those already queued. Any thread.
    virtual void post(std::function<void()> call) = 0;

    /// Calls once after the delay (at least one turn of the loop later). Not kept: the call cannot
    /// be taken back.
    virtual void asyncAfter(double delay, std::function<void()> call) = 0;

    /// Calls once after the delay unless the timer has ended before.
    [[nodiscard]] virtual Timer scheduleOnce(double delay, std::function<void()> call) = 0;

    /// Calls every interval from now on. A late call is not made up for. The call may end its own
    /// timer.
    [[nodiscard]] virtual Timer scheduleRepeating(double interval, std::function<void()> call) = 0;

    [[nodiscard]] virtual std::unique_ptr<SerialQueue> makeSerialQueue(std::string label) = 0;

    virtual void setPacing(Pacing pacing) = 0;

    /// Runs queued calls and due timers until `done` says true (asked after each call) or nothing
    /// is left that could ever run; says whether `done` was reached.
    virtual bool runUntil(const std::function<bool()>& done) = 0;
};

/// Jumps from one due call to the next: a test of a ten-second run takes milliseconds. Repeatable
/// to the bit. Posts from other threads (an encoder's completion, say) are taken up in the order of
/// their coming.
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

    /// Runs all that is due up to and including the given time, then stands at that time.
    void runTo(double time);
    /// runTo(now() + duration).
    void runFor(double duration);
    /// Runs what is queued for this very moment, without moving the clock.
    void drain();

    /// While held by at least one owner, runUntil waits for posts of other threads instead of
    /// giving up when nothing else is left. To be ended on the loop's own thread.
    [[nodiscard]] Timer expectPosts();

private:
    struct State;
    std::shared_ptr<State> state;
};

/// The wall clock, on Qt's event loop: needs a QCoreApplication for as long as it lives. Serial
/// queues have a thread each. In unpaced mode its own clock jumps from one due call to the next,
/// while Qt goes on handling events between.
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
