// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zelvo::ui {

/// A typed broadcast. Listeners subscribe with an owner, held weakly: when the owner is gone the
/// subscription is too. `fire` calls all listeners at once, on the firing thread, in the order of
/// subscribing; a listener that subscribes during a firing is first called by the next one. Not
/// synchronised: a signal belongs to one thread.
template <class... Data> class Signal {
public:
    using Callback = std::function<void(const Data&...)>;

    void subscribe(const std::shared_ptr<const void>& owner, Callback callback) {
        listeners.push_back({owner, std::move(callback)});
    }

    void fire(const Data&... data) {
        std::erase_if(listeners, [](const Listener& listener) { return listener.owner.expired(); });
        const std::vector<Listener> current =
            listeners; // listeners may subscribe or drop owners while called
        for (const Listener& listener : current) {
            if (const auto owner = listener.owner.lock())
                listener.callback(data...);
        }
    }

private:
    struct Listener {
        std::weak_ptr<const void> owner;
        Callback callback;
    };

    std::vector<Listener> listeners;
};

/// What timeSignal carries, once per tick.
struct TimeState {
    double time = 0;          ///< seconds, count-in included
    double wholeFraction = 0; ///< time over count-in plus duration
    double runFraction = 0;   ///< of the duration; during the count-in, of the count-in
    bool isCountIn = true;    ///< time has not passed startCounter
    double startCounter = 0;  ///< seconds, length of the count-in
};

/// The process-wide signals, in one place so that what fires and what listens need not know each
/// other.
struct Signals {
    Signal<TimeState> timeSignal;
    Signal<bool> isPlayingSignal;
    Signal<> undoStateSignal;
    Signal<std::string> messageSignal; ///< a short message for the value label
};

[[nodiscard]] Signals& signals();

} // namespace zelvo::ui
