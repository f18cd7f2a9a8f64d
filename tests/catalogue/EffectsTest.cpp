// SPDX-License-Identifier: MIT
#include "catalogue/CatalogueFixture.h"

namespace zelvo::catalogue {
namespace {

class EffectsTest : public test::CatalogueTest {
protected:
    /// Nodes that bursts have added to the stage.
    [[nodiscard]] const std::vector<scene::SCNNodePtr>& bursts() const {
        return nodes.particleAndParticleLightHolder->childNodes();
    }
};

TEST_F(EffectsTest, HaveDiedAwayWhenTheirBurstIsTakenOff) {
    for (const Button& button : tabNamed("FX2")->buttons()) {
        press("FX2", button.title);
        if (bursts().empty())
            continue; // only particles
        const scene::SCNNodePtr node = bursts().front();
        while (node->hasActions())
            goTo(sceneTime - pressedAt + kFrame);
        goTo(sceneTime - pressedAt + 0.1);
        for (const auto& emitter : node->emitters())
            EXPECT_TRUE(emitter->live().empty()) << button.title << emitter->system()->seed;
        world.runLoop.runFor(0.2);
        EXPECT_TRUE(bursts().empty() && node->particleSystems().empty()) << button.title;
    }
}

TEST_F(EffectsTest, HitOneFindsANewPlaceAtEachPress) {
    press("FX2", "Hit 1");
    press("FX2", "Hit 1");
    ASSERT_EQ(bursts().size(), 2U) << "each ends by itself";
    EXPECT_NE(bursts()[0]->position.value(), bursts()[1]->position.value());
}

} // namespace
} // namespace zelvo::catalogue
