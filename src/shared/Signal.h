// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zelvo::ui {

/// A typed broadcast. A subscription ends with the lifetime of the listener, even during a firing.
/// `fire` calls all listeners at once, in the order of subscribing. A listener that subscribes
/// meanwhile is called from the next time on. Not synchronised: use a signal on one thread only.
template <class... Data> class Signal {
public:
    using Callback = std::function<void(const Data&...)>;

    void subscribe(const foundation::Lifetime& listener, Callback callback) {
        listeners.push_back({listener.watch(), std::move(callback)});
    }

    void fire(const Data&... data) {
        std::erase_if(
            listeners, [](const Listener& listener) { return listener.owner.hasEnded(); });
        // Listeners may subscribe or delete others while they are called.
        const std::vector<Listener> current = listeners;
        for (const Listener& listener : current) {
            if (!listener.owner.hasEnded())
                listener.callback(data...);
        }
    }

private:
    struct Listener {
        foundation::Lifetime::Watch owner;
        Callback callback;
    };

    std::vector<Listener> listeners;
};

/// The data of timeSignal, sent once a tick.
struct TimeState {
    double time = 0;          ///< seconds, including the count-in
    double wholeFraction = 0; ///< time divided by count-in plus duration
    /// progress of the run, 0 to 1; during the count-in, progress of the count-in
    double runFraction = 0;
    bool isCountIn = true;   ///< time is not after startCounter
    double startCounter = 0; ///< seconds, length of the count-in
    /// No run: the stage shows the frame of `time` itself. In a run, `time` is that of the next frame.
    bool isParked = false;
};

/// The process-wide signals. They are in one place so that senders and listeners need not know each
/// other.
struct Signals {
    Signal<TimeState> timeSignal;
    Signal<bool> isPlayingSignal;
    Signal<> undoStateSignal;
    Signal<> durationSignal;           ///< the performance has another duration
    Signal<std::string> messageSignal; ///< a short message for the value label
};

[[nodiscard]] Signals& signals();

} // namespace zelvo::ui
