// SPDX-License-Identifier: MIT
#include "app/StopSignals.h"

#include "platform/foundation/TemporaryFolder.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

namespace zelvo::app {
namespace {

TEST(StopSignals, end_a_process_that_is_too_busy_to_end_and_take_its_temporary_folders_away) {
    const test::TemporaryFolder place;
    const auto busy = [&place] {
        const auto folder = foundation::TemporaryFolder::make(place.path());
        const StopSignals signals([] {});
        kill(getpid(), SIGHUP);
        while (folder)
            std::ofstream(folder->path() / "file") << "still at work";
    };
    EXPECT_EXIT(busy(), testing::KilledBySignal(SIGHUP), "stopped");
    EXPECT_TRUE(std::filesystem::is_empty(place.path()));
}

} // namespace
} // namespace zelvo::app
