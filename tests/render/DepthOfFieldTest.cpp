// SPDX-License-Identifier: MIT
#include "platform/render/DepthOfField.h"

#include "render/StageFixture.h"

namespace zelvo::render {
namespace {

using image::Color;

/// A white square in the dark, 10 units in front of a camera with a very wide lens.
class Focus : public Stage {
protected:
    Focus() {
        scene->background.contents = Color::white(0);
        square = addSquare(makeMaterial(Color::white(1)), 0, 1);
        camera->camera->wantsDepthOfField = true;
        camera->camera->fStop = 0.25;
        camera->camera->zFar = 1000;
    }

    /// Pixels of the middle row that are neither white nor black.
    [[nodiscard]] int softPixels(double focusDistance) const {
        camera->camera->focusDistance = focusDistance;
        const image::Image picture = renderer->snapshotAtTime(0, kPicture, {1, 1});
        int count = 0;
        for (int x = 0; x < kPicture.width; ++x) {
            const int red = at(picture, x, kPicture.height / 2)[0];
            count += red > 8 && red < 247 ? 1 : 0;
        }
        return count;
    }

    static constexpr Size kPicture{256, 256};
    scene::SCNNodePtr square;
};

TEST_F(Focus, BlursTheMoreTheFartherFromTheFocus) {
    ASSERT_TRUE(needsDepthOfField(*camera->camera, kPicture));
    EXPECT_EQ(softPixels(10), 0) << "in focus all is sharp, up to the edge";
    const int little = softPixels(9);
    const int more = softPixels(6);
    EXPECT_GT(little, 0);
    EXPECT_GT(more, little + 2);
    camera->camera->wantsDepthOfField = false;
    EXPECT_EQ(softPixels(6), 0);
    camera->camera->wantsDepthOfField = true;
    camera->camera->fStop = 100;
    EXPECT_EQ(softPixels(9), 0) << "nobody could see it";
}

TEST_F(Focus, BlursByTheDepthOfItsOwnFrameWhateverSizesCameBefore) {
    const auto drawnAt = [this](SCNRenderer& by, int size, float z) {
        square->position = glm::vec3(0, 0, z);
        return by.snapshotAtTime(0, {size, size}, {1, 1});
    };
    camera->camera->focusDistance = 10;
    auto fresh = *SCNRenderer::make();
    fresh->pointOfView = camera;
    fresh->setScene(scene);
    const image::Image wanted = drawnAt(*fresh, 256, 0);
    for (const int size : {256, 128})
        (void)drawnAt(*renderer, size, 0);
    (void)drawnAt(*renderer, 256, 5);
    EXPECT_EQ(drawnAt(*renderer, 256, 0).pixels, wanted.pixels);
}

TEST_F(Focus, KeepsTheLightOfWhatItSpreads) {
    const auto mean = [this] {
        const image::Image picture = renderer->snapshotAtTime(0, kPicture, {1, 1});
        double sum = 0;
        for (std::size_t i = 0; i < picture.pixels.size(); i += 4)
            sum += static_cast<double>(picture.pixels[i]) * picture.pixels[i];
        return sum;
    };
    camera->camera->focusDistance = 10;
    const double sharp = mean();
    camera->camera->focusDistance = 6;
    EXPECT_NEAR(mean() / sharp, 1, 0.08);
}

} // namespace
} // namespace zelvo::render
