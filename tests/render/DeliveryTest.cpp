// SPDX-License-Identifier: MIT
#include "platform/render/AreaResampler.h"
#include "render/StageFixture.h"

#include <vector>

namespace zelvo::render {
namespace {

TEST(AreaResampler, KeepsEveryFlatValueExactly) {
    for (const Size drawn : {Size{4, 4}, {6, 6}, {8, 8}, {16, 16}, {7, 9}}) {
        AreaResampler resampler(drawn, {4, 4});
        for (int value = 0; value < 256; ++value) {
            const std::vector<std::uint8_t> pixels(
                static_cast<std::size_t>(drawn.width * drawn.height * 4),
                static_cast<std::uint8_t>(value));
            for (int y = 0; y < 4; ++y) {
                std::array<std::uint8_t, 16> row{};
                resampler.writeRow(pixels, y, row.data());
                EXPECT_EQ(row[0], value) << drawn.width << " x " << drawn.height;
                EXPECT_EQ(row[14], value);
            }
        }
    }
}

class Delivery : public Stage {
protected:
    /// Edges and colours in all directions.
    void fill() const {
        float i = 0;
        for (const unsigned color : {0xE6194CU, 0x19E64CU, 0xFFFFFFU, 0x194CE6U}) {
            const auto node = addSquare(makeMaterial(image::Color::hex(color)), 0, 0.6f);
            node->position = glm::vec3(-0.6f + 0.4f * i, 0.3f - 0.2f * i, i);
            node->setEulerAngles({0, 0, 0.3f * ++i});
        }
    }
};

std::vector<std::uint8_t> bytesOf(SCNRenderer& renderer, const DrawQuality& quality = {1.5, 4}) {
    renderer.begin({0, {64, 64}, quality});
    const FrameView view = renderer.finish();
    return {view.bytes.begin(), view.bytes.end()};
}

TEST_F(Delivery, OnTheCpuAndInShadersIsTheSame) {
    fill();
    auto made = SCNRenderer::make(Downscaling::gpu);
    ASSERT_TRUE(made.has_value());
    SCNRenderer& other = **made;
    other.pointOfView = camera;
    const DrawQuality larger{1.5, 4};
    const DrawQuality smaller{0.4, 4};
    const auto onCpu = bytesOf(*renderer, larger);
    const auto enlargedOnCpu = bytesOf(*renderer, smaller);
    renderer->setScene(nullptr);
    other.setScene(scene);
    const auto expectSame = [&](const std::vector<std::uint8_t>& bytes,
                                const DrawQuality& quality) {
        const auto inShaders = bytesOf(other, quality);
        ASSERT_EQ(bytes.size(), inShaders.size());
        for (std::size_t i = 0; i < bytes.size(); ++i)
            ASSERT_NEAR(bytes[i], inShaders[i], 1)
                << "byte " << i << " of " << quality.oversampling;
    };
    expectSame(onCpu, larger);
    expectSame(enlargedOnCpu, smaller);
}

TEST_F(Delivery, GivesTheSameBytesTwiceAndInOrder) {
    fill();
    const auto first = bytesOf(*renderer);
    EXPECT_EQ(first, bytesOf(*renderer));
    // Beginning a frame must not change an earlier one that still waits.
    renderer->begin({0, kSize, {1.5, 4}});
    scene->background.contents = image::Color::hex(0x808080);
    renderer->begin({0, kSize});
    const FrameView view = renderer->finish();
    EXPECT_TRUE(std::ranges::equal(view.bytes, first));
    EXPECT_EQ(renderer->finish().bytes[0], 0x80);
}

// A half plane with a slanting edge: a pixel's brightness is the share that it covers.
TEST_F(Delivery, SamplesAndOversamplingApproachTheCoveredArea) {
    constexpr float kSlope = 0.3f;
    const float across = std::sqrt(1 + kSlope * kSlope);
    const auto half = addSquare(makeMaterial(image::Color::white(1)), 0, 8);
    half->setEulerAngles({0, 0, -std::atan(kSlope)});
    half->position = glm::vec3(-4 / across, 4 * kSlope / across, 0);
    for (const DrawQuality& quality :
         {DrawQuality{1, 1}, {1.5, 1}, {4, 1}, {1, 4}, {1.5, 4}, {2, 4}}) {
        const image::Image picture = renderer->snapshotAtTime(0, kSize, quality);
        double worst = 0;
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 64; ++x) {
                const double distance = (x + 0.5 - 32 - (32 - (y + 0.5)) * kSlope) / across;
                const double covered =
                    std::clamp(0.5 - distance / (std::abs(1 / across) + kSlope / across), 0.0, 1.0);
                const double got =
                    image::linearFromSRGB(static_cast<float>(at(picture, x, y)[0]) / 255);
                worst = std::max(worst, std::abs(got - covered));
            }
        }
        const double perSide = quality.oversampling * std::sqrt(quality.samples);
        EXPECT_LT(worst, 0.6 / perSide) << quality.oversampling << ", " << quality.samples;
    }
}

} // namespace
} // namespace zelvo::render
