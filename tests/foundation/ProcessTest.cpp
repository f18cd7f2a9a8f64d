// SPDX-License-Identifier: MIT
#include "platform/foundation/Process.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <new>

namespace zelvo::foundation {
namespace {

[[maybe_unused]] void takeAllMemory() {
    prepareProcess();
    ::operator delete(::operator new (std::size_t{1} << 62U));
}

TEST(Process, EndsInOneLineWhereMemoryOrAResourceIsMissing) {
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // they end it in another way
    EXPECT_EXIT(
        takeAllMemory(), testing::ExitedWithCode(1), "^zelvo: there is not enough memory.*\n$");
#endif
    EXPECT_EXIT(
        endWithoutResource("a.scn is missing"),
        testing::ExitedWithCode(1),
        "^zelvo: a.scn is missing; .*ZELVO_RESOURCES.*\n$");
}

} // namespace
} // namespace zelvo::foundation
