// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Check.h"

#include <functional>
#include <memory>
#include <thread>
#include <type_traits>
#include <utility>

namespace zelvo::foundation {

/// Lasts as long as the object that holds it. A call that waits in a queue, and a subscription, can
/// ask it whether that object is still there:
///
///     runLoop.post(lifetime.guard([this] { showTime(); }));   // nothing if this is gone by then
///
/// Declare it as the last member: so it ends before the others do.
///
/// Guarded calls know their owner by its address. An owner can therefore be neither copied nor
/// moved.
///
/// Threads: the owner has one thread. It is made, asked for guards, and destroyed there, and guarded
/// calls are called there (debug builds check the call). On another thread the owner could go in the
/// middle of the call. A guarded call may be copied, handed over and destroyed on any thread, as it
/// does not own the token: work of another thread posts it to the owner's run loop.
class Lifetime {
    struct Token {
        std::thread::id thread = std::this_thread::get_id();
    };

public:
    /// Asks whether a lifetime has ended, and does not prolong it.
    class Watch {
    public:
        [[nodiscard]] bool hasEnded() const {
            const auto held = token.lock();
            if (!held)
                return true;
#ifndef NDEBUG
            CHECK(
                std::this_thread::get_id() == held->thread,
                "an owner's guarded calls belong to the owner's thread");
#endif
            return false;
        }

    private:
        friend class Lifetime;

        explicit Watch(const std::shared_ptr<const Token>& watched)
            : token(watched) {}

        std::weak_ptr<const Token> token;
    };

    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime(Lifetime&&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;
    Lifetime& operator=(Lifetime&&) = delete;
    ~Lifetime() = default;

    [[nodiscard]] Watch watch() const {
        return Watch(token);
    }

    /// The same call, which does nothing once the owner is gone.
    template <class Call> [[nodiscard]] auto guard(Call call) const {
        return [watch = watch(), call = std::move(call)](auto&&... arguments) -> void {
            static_assert(
                std::is_void_v<std::invoke_result_t<const Call&, decltype(arguments)...>>,
                "a call that may not take place has no result");
            if (!watch.hasEnded())
                std::invoke(call, std::forward<decltype(arguments)>(arguments)...);
        };
    }

private:
    std::shared_ptr<const Token> token = std::make_shared<const Token>();
};

} // namespace zelvo::foundation
