// SPDX-License-Identifier: MIT
#include "platform/render/FrameDelivery.h"
#include "platform/render/PassMean.h"
#include "platform/scene/SCNAction.h"
#include "render/StageFixture.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

namespace zelvo::render {
namespace {

using image::Color;

constexpr double kFrame = 1.0 / 60;

/// A white bar that moves to the right, a quarter of the picture in a frame.
class Passes : public Stage {
protected:
    Passes() {
        scene->background.contents = Color::white(0);
        bar = addSquare(makeMaterial(Color::white(1)), 0, 0.25F);
        bar->position = glm::vec3(-0.5F, 0, 0);
    }

    void go() const {
        bar->runAction(scene::SCNAction::moveBy({0.5F * 60, 0, 0}, 1));
        renderer->update(0); // starts the action
    }

    [[nodiscard]] image::Image drawn(const DrawQuality& quality) const {
        return renderer->snapshotAtTime(kFrame, kSize, quality);
    }

    /// Of the light in the middle row, in pixels.
    struct Spread {
        double middle = 0;
        double width = 0; ///< of all that is not black
    };

    [[nodiscard]] static Spread spreadOf(const image::Image& picture) {
        double sum = 0;
        Spread spread;
        for (int x = 0; x < kSize.width; ++x) {
            const float encoded = static_cast<float>(at(picture, x, kSize.height / 2)[0]) / 255;
            const double light = image::linearFromSRGB(encoded);
            sum += light;
            spread.middle += light * (x + 0.5);
            spread.width += light > 0.01 ? 1 : 0;
        }
        spread.middle /= sum;
        return spread;
    }

    scene::SCNNodePtr bar;
};

// The bar is 8 pixels wide and moves by 16 from 16 to 32; the shutter is open for the last 8 of
// them.
TEST_F(Passes, BlurHalfOfTheWayOfAFrameAndLeaveTheSceneAlone) {
    go();
    const Spread blurred = spreadOf(drawn({.moments = 32}));
    EXPECT_NEAR(blurred.middle, 32 - 4, 0.3);
    EXPECT_NEAR(blurred.width, 8 + 8, 1.5);
    EXPECT_NEAR(bar->position.presented().x, 0, 1e-5);
    const Spread sharp = spreadOf(drawn({})); // at the same time
    EXPECT_NEAR(sharp.middle, 32, 0.1);
}

TEST_F(Passes, DoNotBlurWhatIsPutElsewhereBetweenFrames) {
    renderer->update(0);
    bar->position = glm::vec3(0, 0, 0);
    const Spread spread = spreadOf(drawn({.moments = 8}));
    EXPECT_NEAR(spread.middle, 32, 0.3);
    EXPECT_LE(spread.width, 10);
}

TEST_F(Passes, SmoothEdgesAndKeepFlatColors) {
    scene->background.contents = Color::hex(0x50595A);
    bar->geometry->materials = {makeMaterial(Color::hex(0x90908C))};
    bar->setEulerAngles({0, 0, 0.1F});
    const auto reference = drawn({4, 4});
    const auto error = [&](const DrawQuality& quality) {
        const auto picture = drawn(quality);
        expectNear(at(picture, 60, 3), {0x50, 0x59, 0x5A}, 0);
        double sum = 0;
        for (std::size_t i = 0; i < picture.pixels.size(); ++i)
            sum += std::pow(picture.pixels[i] - reference.pixels[i], 2);
        return std::sqrt(sum);
    };
    const double ofSamples = error({.detail = Detail::coarse});
    EXPECT_LT(error({.passes = 16}), ofSamples * 0.6);
    EXPECT_LT(error({}), ofSamples * 0.75) << "by lines of edges";
}

// The samples alone would give four.
TEST_F(Passes, GiveAnEdgeMoreStepsThanItsSamples) {
    bar->setEulerAngles({0, 0, 0.1F});
    std::array<bool, 256> isFound{};
    const auto picture = drawn({});
    for (std::size_t i = 0; i < picture.pixels.size(); i += 4)
        isFound.at(picture.pixels[i]) = true;
    int steps = 0;
    int last = -10;
    for (int value = 0; value < 256; ++value) {
        if (!isFound.at(static_cast<std::size_t>(value)))
            continue;
        steps += value - last > 2 ? 1 : 0; // noise of half a step makes two of one
        last = value;
    }
    EXPECT_GE(steps, 7);
}

// Laid over a colour in linear light, it is the picture that is drawn on that colour.
TEST_F(Passes, GiveAMatteThatFitsOnAnyColor) {
    bar->setEulerAngles({0, 0, 0.3F});
    auto glass = makeMaterial(Color::hex(0xFF8000));
    glass->transparency = 0.5F;
    addSquare(glass, -1, 1);
    const auto backdrop = addSquare(makeMaterial(Color::hex(0x00FF00)), -5, 20);
    backdrop->categoryBitMask = 2;
    const image::Image matte =
        renderer->snapshot({.time = kFrame, .outputSize = kSize, .leftOut = 2});
    backdrop->isHidden = true;
    for (const int grey : {0, 90, 255}) {
        scene->background.contents = Color::white(static_cast<float>(grey) / 255);
        const image::Image direct = drawn({});
        for (int i = 0; i < kSize.width * kSize.height; ++i) {
            const int x = i % kSize.width;
            const int y = i / kSize.width;
            const double alpha = matte.pixels[static_cast<std::size_t>(i) * 4 + 3] / 255.0;
            for (std::size_t c = 0; c < 3; ++c) {
                const int over = lit(alpha, at(matte, x, y).at(c), 1 - alpha, grey);
                ASSERT_NEAR(over, at(direct, x, y).at(c), 6) << x << ", " << y << " on " << grey;
            }
        }
    }
}

// Two frames in flight, as in an export: a frame that is repeated has its own picture.
TEST_F(Passes, RepeatAFrameUntilSomethingChanges) {
    const auto frames = [this](const DrawQuality& quality, Size size = kSize) {
        const int before = renderer->times().repeated;
        renderer->begin({kFrame, size, quality});
        renderer->begin({kFrame, size, quality});
        const std::span<const std::uint8_t> one = renderer->finish().bytes;
        const std::vector<std::uint8_t> first(one.begin(), one.end());
        const std::span<const std::uint8_t> second = renderer->finish().bytes;
        EXPECT_TRUE(std::ranges::equal(first, second));
        EXPECT_EQ(first.size(), byteCount(size));
        return std::pair(first, renderer->times().repeated - before);
    };
    for (const int passes : {1, 4}) {
        const DrawQuality quality{.passes = passes};
        const auto [still, repeated] = frames(quality);
        EXPECT_EQ(repeated, 1) << passes << " passes";
        EXPECT_EQ(frames(quality), std::pair(still, 2)) << passes << " passes";
        bar->position = bar->position.presented() + glm::vec3(0.25F, 0, 0);
        const auto [moved, repeatedOnce] = frames(quality);
        EXPECT_EQ(repeatedOnce, 1) << passes << " passes";
        EXPECT_NE(moved, still) << passes << " passes";
    }
    EXPECT_EQ(frames({.passes = 4}, {32, 32}).second, 1) << "another size";
    EXPECT_EQ(frames({.passes = 8}, {32, 32}).second, 1) << "another quality";
    EXPECT_EQ(frames({.moments = 2}, {32, 32}).second, 0) << "blurred motion";
    const std::vector<std::uint8_t> opaque = frames({}).first;
    renderer->begin({.time = kFrame, .outputSize = kSize, .leftOut = 2});
    static_cast<void>(renderer->finish());
    EXPECT_EQ(frames({}), std::pair(opaque, 1)) << "after a picture with alpha";
}

} // namespace
} // namespace zelvo::render
