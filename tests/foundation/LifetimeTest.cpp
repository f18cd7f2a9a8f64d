// SPDX-License-Identifier: MIT
#include "platform/foundation/Lifetime.h"

#include "platform/foundation/RunLoop.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <thread>
#include <type_traits>

namespace zelvo::foundation {
namespace {

struct Owner {
    explicit Owner(std::string& text)
        : said(text) {}

    [[nodiscard]] auto say() const {
        return lifetime.guard([this](const std::string& word) { said += word; });
    }

    std::string& said;
    Lifetime lifetime;
};

static_assert(!std::is_copy_constructible_v<Owner> && !std::is_move_constructible_v<Owner>);
static_assert(!std::is_copy_assignable_v<Owner> && !std::is_move_assignable_v<Owner>);

TEST(Lifetime, AWaitingCallDoesNothingOnceItsOwnerIsGone) {
    VirtualRunLoop loop;
    const auto queue = loop.makeSerialQueue("work");
    std::string said;
    std::optional<Owner> owner(std::in_place, said);
    queue->async([&loop, call = owner->say()] { loop.post([call] { call("queued "); }); });
    loop.asyncAfter(1, [call = owner->say()] { call("in time "); });
    loop.asyncAfter(3, [call = owner->say()] { call("too late "); });
    loop.asyncAfter(2, [&] {
        queue->async([&loop, call = owner->say()] { loop.post([call] { call("never"); }); });
        owner.reset();
        owner.emplace(said); // another one in the same place
        loop.asyncAfter(2, [call = owner->say()] { call("next"); });
    });
    loop.runTo(5);
    EXPECT_EQ(said, "queued in time next");
}

TEST(Lifetime, DebugBuildsRefuseAGuardedCallOnAnotherThread) {
    std::string said;
    const Owner owner(said);
    EXPECT_DEBUG_DEATH(
        std::thread([call = owner.say()] { call("word"); }).join(), "belong to the owner's thread");
}

} // namespace
} // namespace zelvo::foundation
