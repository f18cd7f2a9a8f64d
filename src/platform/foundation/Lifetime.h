// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Check.h"

#include <functional>
#include <memory>
#include <thread>
#include <type_traits>
#include <utility>

namespace zelvo::foundation {

/// Tells callbacks whether their owner still exists. Use it for calls that wait in a queue and for
/// subscriptions:
///
///     runLoop.post(lifetime.guard([this] { showTime(); }));   // does nothing if this is gone
///
/// Declare it as the last member, so that it ends before the others.
///
/// Guarded calls hold the address of their owner, so the owner can be neither copied nor moved.
///
/// Threads: the owner is made, asked for guards, and destroyed on one thread, and guarded calls are
/// called on that thread (checked in debug builds); otherwise the owner could be destroyed during a
/// call. A guarded call can be copied, passed on and destroyed on any thread, because it does not
/// own the token. Work on another thread posts it to the owner's run loop.
class Lifetime {
    struct Token {
        std::thread::id thread = std::this_thread::get_id();
    };

public:
    /// Tells whether a lifetime has ended, without extending it.
    class Watch {
    public:
        [[nodiscard]] bool hasEnded() const {
            const auto held = token.lock();
#ifndef NDEBUG
            CHECK(
                !held || std::this_thread::get_id() == held->thread,
                "an owner's guarded calls belong to the owner's thread");
#endif
            return !held;
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

    /// The same call, but it does nothing after the owner is gone.
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
