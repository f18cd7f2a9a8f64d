// SPDX-License-Identifier: MIT
#include "shared/Signal.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace zelvo::ui {
namespace {

/// Writes its name into a text that outlives it.
struct Listener {
    Listener(Signal<int>& heard, std::string& output, char name) {
        heard.subscribe(lifetime, [&output, name](int) { output += name; });
    }

    foundation::Lifetime lifetime;
};

TEST(Signal, CallsNobodyWhoIsGone) {
    Signal<int> signal;
    std::string called;
    auto first = std::make_unique<Listener>(signal, called, 'a');
    const Listener second(signal, called, 'b');
    const foundation::Lifetime listening;
    std::unique_ptr<Listener> behind;
    signal.subscribe(listening, [&](int value) {
        if (value == 3)
            behind.reset();
    });
    behind = std::make_unique<Listener>(signal, called, 'c');
    signal.fire(1);
    EXPECT_EQ(called, "abc");
    first.reset();
    signal.fire(2);
    EXPECT_EQ(called, "abcbc");
    signal.fire(3);
    EXPECT_EQ(called, "abcbcb") << "the last one goes while it waits for its turn";
}

TEST(Signal, CallsANewListenerWithTheNextFiring) {
    Signal<int> signal;
    std::string called;
    std::unique_ptr<Listener> late;
    const foundation::Lifetime listening;
    signal.subscribe(listening, [&](int) {
        if (!late)
            late = std::make_unique<Listener>(signal, called, 'l');
    });
    signal.fire(1);
    EXPECT_EQ(called, "");
    signal.fire(2);
    EXPECT_EQ(called, "l");
}

} // namespace
} // namespace zelvo::ui
