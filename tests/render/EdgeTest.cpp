// SPDX-License-Identifier: MIT
#include "render/StageFixture.h"

#include <numbers>

namespace zelvo::render {
namespace {

using image::Color;

constexpr float kQuarterTurn = std::numbers::pi_v<float> / 2;
constexpr float kPixels = 32; // in a unit

double lightAt(const image::Image& picture, int x, int y) {
    const std::uint8_t value = picture.pixels[static_cast<std::size_t>(y * picture.width + x) * 4];
    return image::linearFromSRGB(static_cast<float>(value) / 255);
}

class Edges : public Stage {
protected:
    Edges() { scene->background.contents = Color::white(0); }

    /// A white stripe; its middle line goes through the origin, at this angle to the upright.
    [[nodiscard]] scene::SCNNodePtr addStripe(float width, float angle) const {
        auto node = addNode({0, 0, 0});
        node->geometry = std::make_shared<scene::SCNPlane>(width, 8);
        node->geometry->materials = {makeMaterial(Color::white(1))};
        node->setEulerAngles({0, 0, angle});
        return node;
    }

    [[nodiscard]] image::Image drawn() const { return renderer->snapshotAtTime(0, kSize, {}); }

    /// Of a row, or of a column if the picture lies on its side; in pixels.
    [[nodiscard]] static double
    lightOfLine(const image::Image& picture, int line, bool isOnItsSide) {
        double sum = 0;
        for (int i = 0; i < 64; ++i)
            sum += isOnItsSide ? lightAt(picture, line, i) : lightAt(picture, i, line);
        return sum;
    }
};

// All light of a row is as long as the white part of it. Four samples alone are an eighth off.
TEST_F(Edges, AlmostUprightAndLevelOnesLieWhereTheyAre) {
    constexpr float kWide = 4;
    constexpr float kShift = 0.3F / kPixels; // not between two pixels
    for (const float slope : {-0.04F, -0.002F, 0.002F, 0.015F, 0.06F, 0.2F}) {
        for (int turns = 0; turns < 4; ++turns) {
            const float angle = std::atan(slope) + static_cast<float>(turns) * kQuarterTurn;
            const glm::vec2 normal(std::cos(angle), std::sin(angle));
            const auto half = addStripe(kWide, angle);
            half->position = glm::vec3(normal * (kShift - kWide / 2), 0);
            const image::Image picture = drawn();
            half->removeFromParentNode();
            const bool isOnItsSide = turns % 2 == 1;
            const glm::vec2 seen = isOnItsSide ? glm::vec2(normal.y, normal.x) : normal;
            for (int line = 2; line < 62; ++line) {
                // the place of the line in units: rows go down, columns to the right
                const double along = (isOnItsSide ? -1 : 1) * (1 - (line + 0.5) / kPixels);
                const double edge = (kShift - seen.y * along) / seen.x;
                const double white = kPixels * (seen.x > 0 ? 1 + edge : 1 - edge);
                EXPECT_NEAR(lightOfLine(picture, line, isOnItsSide), white, 0.04)
                    << "slope " << slope << ", turns " << turns << ", line " << line;
            }
        }
    }
}

// Both edges of the white wedge run through the same pixels; it is less than a pixel wide. Upright,
// one leans to the left and the other to the right.
TEST_F(Edges, OfAThinWedgeKeepItsWidth) {
    constexpr float kWide = 4;
    constexpr float kBetween = 0.7F; // pixels, in the middle
    constexpr float kTurn = 0.008F;
    for (const float lean : {0.03F, 0.0F}) {
        const auto put = [&](float angle, float shift, float z) {
            auto half = addStripe(kWide, angle);
            half->position =
                glm::vec3(-kWide / 2 * std::cos(angle) + shift, -kWide / 2 * std::sin(angle), z);
            return half;
        };
        const auto white = put(lean + kTurn, 0.004F, 0);
        const auto left = put(lean - kTurn, 0.004F - kBetween / kPixels, 0.001F);
        for (const int grey : {0, 0xA0}) {
            left->geometry->materials = {
                makeMaterial(Color::white(static_cast<float>(grey) / 255))};
            const image::Image picture = drawn();
            const double greyLight = lightAt(picture, 4, 32);
            for (int line = 2; line < 62; ++line) {
                const double up = 32 - (line + 0.5);
                const double end = 32.128 - std::tan(lean + kTurn) * up;
                const double begin = 32.128 - kBetween - std::tan(lean - kTurn) * up;
                EXPECT_NEAR(
                    lightOfLine(picture, line, false), greyLight * begin + (end - begin), 0.05)
                    << "lean " << lean << ", line " << line;
            }
        }
        white->removeFromParentNode();
        left->removeFromParentNode();
    }
}

// At a corner, two lines cross in a pixel.
TEST_F(Edges, OfASquareKeepItsAreaAtTheCorners) {
    constexpr float kSide = 10.6F; // pixels
    for (const float angle : {0.0F, 0.1F}) {
        const auto square = addSquare(makeMaterial(Color::white(1)), 0, kSide / kPixels);
        square->setEulerAngles({0, 0, angle});
        square->position = glm::vec3(0.2F, 0.35F, 0) / kPixels;
        const image::Image picture = drawn();
        square->removeFromParentNode();
        double area = 0;
        for (int line = 0; line < 64; ++line)
            area += lightOfLine(picture, line, false);
        EXPECT_NEAR(area, kSide * kSide, 0.1) << "angle " << angle;
    }
}

// Between two pixels of a picture there is no edge: it would mix their colours.
TEST_F(Edges, ThatAreHiddenChangeNothing) {
    std::vector<std::array<std::uint8_t, 4>> pixels;
    for (std::uint8_t i = 0; i < 64; ++i) {
        const std::uint8_t grey = i % 2 == 0 ? 20 : 230;
        pixels.push_back({grey, grey, grey, 255});
    }
    auto material = makeMaterial(Color::white(1));
    material->diffuse.contents = sharePicture(64, 1, pixels);
    addSquare(material, 0.5F);
    const image::Image alone = drawn();
    addStripe(0.7F, 0.4F)->geometry = std::make_shared<scene::SCNBox>(0.7F, 0.7F, 0.2F, 0);
    EXPECT_EQ(drawn().pixels, alone.pixels);
}

} // namespace
} // namespace zelvo::render
