// SPDX-License-Identifier: MIT
#include "platform/foundation/Folders.h"
#include "platform/scene/SCNTechnique.h"
#include "render/StageFixture.h"

#include <cmath>
#include <string>

namespace zelvo::render {
namespace {

using image::Color;
using scene::SCNTechnique;
using scene::SCNTechniquePtr;

SCNTechniquePtr quad(const std::string& function) {
    auto technique = std::make_shared<SCNTechnique>();
    technique->passes.push_back({function});
    return technique;
}

SCNTechniquePtr file(const std::string& name) {
    const auto list = scene::readPropertyListFile(foundation::mainBundle().path(name));
    if (!list) {
        ADD_FAILURE() << list.error().message;
        return nullptr;
    }
    const auto technique = SCNTechnique::techniqueWithDictionary(*list);
    if (!technique)
        ADD_FAILURE() << technique.error().message;
    return technique.value_or(nullptr);
}

class Techniques : public Stage {
protected:
    Techniques() { scene->background.contents = Color::hex(0x285078); }

    /// White in the left half of the picture.
    void addEdge() const { addSquare(makeMaterial(Color::white(1)))->position = {-1, 0, 0}; }

    [[nodiscard]] image::Image drawAt(double time) const {
        return renderer->snapshotAtTime(time, {192, 96}, {1, 1});
    }
};

double meanRed(const image::Image& picture) {
    double sum = 0;
    for (std::size_t i = 0; i < picture.pixels.size(); i += 4)
        sum += picture.pixels[i];
    return sum / (static_cast<double>(picture.pixels.size()) / 4);
}

TEST_F(Techniques, InvertAndExposureOfAKnownColour) {
    renderer->technique = quad("invertFragmentShader");
    expectNear(middle(), {255 - 40, 255 - 80, 255 - 120}, 1);
    renderer->technique = quad("exposureFragmentShader");
    const double factor = std::sqrt(std::pow(2.0, 1.5)); // of encoded values
    expectNear(
        middle(),
        {static_cast<int>(std::lround(40 * factor)),
         static_cast<int>(std::lround(80 * factor)),
         static_cast<int>(std::lround(120 * factor))},
        1);
    renderer->technique = nullptr;
    expectNear(middle(), {40, 80, 120}, 0);
}

TEST_F(Techniques, AreDrawnInTheOrderOfTheSequence) {
    const auto invert = quad("invertFragmentShader");
    const auto expose = quad("exposureFragmentShader");
    const auto drawn = [&](const std::vector<SCNTechniquePtr>& held) {
        renderer->technique = SCNTechnique::techniqueBySequencingTechniques(held);
        return middle();
    };
    const Pixel exposedLast = drawn({invert, expose});
    const Pixel invertedLast = drawn({expose, invert});
    expectNear(exposedLast, {255, 255, 255}, 1);
    expectNear(invertedLast, {188, 120, 53}, 2);
    expectNear(drawn({invert, invert}), {40, 80, 120}, 0);
    expectNear(drawn({}), {40, 80, 120}, 0);
    SCNTechnique aside; // a pass into a target leaves the picture unchanged
    aside.targets = {0.5};
    aside.passes = {{"shrinkFragmentShader", SCNTechnique::kColor, 0}, {"invertFragmentShader"}};
    expectNear(drawn({expose, aside.copy()}), {188, 120, 53}, 2);
}

TEST_F(Techniques, TilesRepeatThePicture) {
    addEdge();
    renderer->technique = file("Tiles.plist");
    const image::Image picture = drawAt(0);
    for (int x = 0; x < 64; ++x) {
        for (const int y : {3, 20}) {
            EXPECT_EQ(at(picture, x, y), at(picture, x + 64, y));
            EXPECT_EQ(at(picture, x, y), at(picture, x + 128, y + 64));
        }
    }
    EXPECT_NE(at(picture, 20, 10), at(picture, 60, 10));
}

TEST_F(Techniques, BlurKeepsTheMeanAndWidensAnEdge) {
    addEdge();
    const image::Image sharp = drawAt(0);
    renderer->technique = file("Blur.plist");
    const image::Image soft = drawAt(0);
    EXPECT_NEAR(meanRed(soft), meanRed(sharp), 1.0);
    const auto between = [](const image::Image& picture) {
        int count = 0;
        for (int x = 0; x < picture.width; ++x) {
            const int red = at(picture, x, 48)[0];
            count += red > 50 && red < 245 ? 1 : 0;
        }
        return count;
    };
    EXPECT_LE(between(sharp), 1);
    EXPECT_GE(between(soft), 4);
}

TEST_F(Techniques, MoveWithTheScenesTimeAlone) {
    addEdge();
    const image::Image still = drawAt(0);
    for (const auto& technique : {file("Wave.plist"), quad("glitchFragmentShader")}) {
        renderer->technique = technique;
        const image::Image first = drawAt(0.4);
        EXPECT_NE(first.pixels, still.pixels);
        EXPECT_NE(drawAt(0.7).pixels, first.pixels);
        EXPECT_EQ(drawAt(0.4).pixels, first.pixels);
    }
}

TEST_F(Techniques, ColoursPartAtAnEdge) {
    addEdge();
    renderer->technique = quad("colorShiftFragmentShader");
    const image::Image picture = drawAt(0);
    expectNear(at(picture, 96, 48), {255, 80, 120}, 1);  // red comes over the edge
    expectNear(at(picture, 95, 48), {255, 255, 120}, 1); // blue comes from the other side
}

} // namespace
} // namespace zelvo::render
