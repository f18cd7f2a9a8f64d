// SPDX-License-Identifier: MIT
// The effect of each button of the catalogue, and rules for all of them.
#include "catalogue/Poses.h"

#include <gmock/gmock.h>

namespace zelvo::catalogue {
namespace {

using testing::HasSubstr;
using testing::Not;

class PosesTest : public test::PosesTest {
protected:
    /// Calls `visit` for each button, on a cleared stage with all nodes chosen.
    template <class Visit> void forEachButton(const Visit& visit) {
        for (const Tab& tab : tabs()) {
            for (const Button& button : tab.buttons()) {
                SCOPED_TRACE(button.title);
                visit(button);
                clearStage();
            }
        }
    }

    /// Whether a press without nodes does nothing, and takes no identifier.
    bool needsNodes(const Button& button) {
        const int before = controller.currentIdentifier;
        const auto chosen = std::exchange(affected, {});
        const std::string poses = perform(button);
        affected = chosen;
        return controller.recordedActions().empty() && controller.currentIdentifier == before;
    }

    /// Whether a replay with other random draws is other than the first time.
    bool isDrawnAnew(const Button& button) {
        const std::string poses = perform(button);
        clearStage();
        foundation::seedRandom(2);
        return perform(button, Performance::replay) != poses;
    }

    std::string performWhileOthersRun(const Button& button) {
        press("OT3", "Explo Out");
        press("OT3", "Tilt 2 Out");
        press("OT2", "Fade Out");
        goTo(0.5);
        foundation::seedRandom(1);
        return perform(button);
    }

    /// Four times as fast, in frames a quarter as long: frame by frame the same, except for what
    /// takes seconds of its own.
    std::string performQuickly(const Button& button) {
        factor /= 4;
        poseFrame /= 4;
        std::string poses = perform(button);
        factor *= 4;
        poseFrame *= 4;
        return poses;
    }
};

TEST_F(PosesTest, AreAsReviewed) {
    std::string seen;
    forEachButton([&](const Button& button) {
        std::string poses = perform(button);
        clearStage();
        std::string notes = needsNodes(button) ? ", needs nodes" : "";
        clearStage();
        notes += isDrawnAnew(button) ? ", drawn anew" : "";
        clearStage();
        notes += performWhileOthersRun(button) == poses ? ", begins at home" : "";
        clearStage();
        std::string quick = performQuickly(button);
        quick = quick == poses ? "" : quick.insert(1, "quick ");
        seen += poses.insert(poses.find('\n', 1), notes) + quick;
    });
    test::expectReviewedPoses(seen);
}

TEST_F(PosesTest, MoveOnlyWhatIsChosen) {
    forEachButton([&](const Button& button) {
        if (!needsNodes(button))
            return;
        clearStage();
        const auto all = std::exchange(affected, {nodes.textNode2});
        const std::string poses = perform(button);
        affected = all;
        for (const char* other : {" A", " B", " C", "TX1", "IMG", "OBJ", "camera"})
            EXPECT_THAT(poses.substr(poses.find('\n', 1)), Not(HasSubstr(other)));
    });
}

} // namespace
} // namespace zelvo::catalogue
