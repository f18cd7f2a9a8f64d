// SPDX-License-Identifier: MIT
#include "app/Performer.h"

#include "app/EngineNames.h"
#include "platform/foundation/Lifetime.h"
#include "shared/FrameClock.h"
#include "shared/Signal.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>

namespace zelvo::app {

namespace {

class PerformerTest : public testing::Test {
protected:
    /// Performs, and looks at the stage with every frame.
    void perform(const std::string& members, const std::function<void(int frame)>& look) {
        const auto read = readPerformance("{\"duration\": 3, " + members + "}", engineNames());
        ASSERT_TRUE(read) << read.error().front().text;
        ASSERT_TRUE(setUp(*read, {}, engine));
        const foundation::Lifetime listening;
        ui::signals().timeSignal.subscribe(listening, [&](const ui::TimeState& state) {
            look(shared::FrameClock::nearestFrame(state.time - state.startCounter) - 1);
        });
        app::perform(*read, engine);
    }

    foundation::VirtualRunLoop loop;
    test::TemporaryFolder folder;
    Engine engine{loop, foundation::Folders::below(folder.path()), 1};
    stage::Nodes& stage = engine.stage();
};

TEST_F(PerformerTest, PlaysAtTheSpeedOfThePerformanceUnlessAPressHasItsOwn) {
    std::map<int, float> yaw, turned;
    perform(
        R"("speed": "fastest", "cues": [
            {"at": 0, "pan": [[0, 0], [-50, 0], [-50, 0]], "for": 0.8},
            {"at": 1, "tab": "ROT", "press": "Rotate Y 180", "speed": "slowest"},
            {"at": 1.1, "pan": [[0, 0], [-50, 0], [-50, 0]], "for": 0.8}])",
        [&](int frame) {
            yaw[frame] = stage.cameraYHandle->eulerAngles().y;
            turned[frame] = stage.mediaHolderNode->yAxisNode->eulerAngles().y;
        });
    // The camera is home 0.8 times 0.2125 seconds after lift-off.
    for (const int liftOff : {48, 114}) {
        EXPECT_GT(yaw[liftOff], 1.4f);
        EXPECT_GT(yaw[liftOff + 6], 0.01f);
        EXPECT_NEAR(yaw[liftOff + 13], 0, 1e-4);
    }
    EXPECT_GT(turned[175], 2.9f);
    EXPECT_LT(turned[120], 1.0f) << "the half turn takes 2.55 seconds";
}

TEST_F(PerformerTest, LetsGoOfTheNodesThatItHolds) {
    std::map<int, std::pair<float, float>> away;
    perform(
        R"("cues": [
            {"at": 0, "tab": "FX1", "hold": "Hide", "for": 1.5, "nodes": ["TX1"]},
            {"at": 0.5, "tab": "FX1", "hold": "Hide", "for": 0.5, "nodes": ["OBJ", "TX2"]}])",
        [&](int frame) {
            away[frame] = {
                stage.textNode1->shyNode->position.value().x,
                stage.textNode2->shyNode->position.value().x};
        });
    const std::pair<float, float> none{0, 0}, first{10000, 0}, both{10000, 10000};
    EXPECT_EQ(away[20], first);
    EXPECT_EQ(away[50], both);
    EXPECT_EQ(away[80], first);
    EXPECT_EQ(away[110], none);
}

} // namespace

} // namespace zelvo::app
