// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/SCNRenderer.h"
#include "platform/scene/SCNShapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>

namespace zelvo::render {

using Pixel = std::array<int, 3>;

/// A stage of 2 x 2 units, seen from the front; it fills the camera's picture exactly.
class Stage : public testing::Test {
protected:
    static constexpr Size kSize{64, 64};

    Stage() {
        auto made = SCNRenderer::make();
        if (!made) {
            ADD_FAILURE() << made.error().message;
            std::abort();
        }
        renderer = std::move(*made);
        camera = addNode({0, 0, 10});
        camera->camera = std::make_shared<scene::SCNCamera>();
        camera->camera->fieldOfView = 11.421186; // 2 atan(1 / 10)
        renderer->setScene(scene);
        renderer->pointOfView = camera;
    }

    scene::SCNNodePtr addNode(const glm::vec3& position) const {
        auto node = std::make_shared<scene::SCNNode>();
        node->position = position;
        scene->rootNode()->addChildNode(node);
        return node;
    }

    /// A square in the xy plane that faces the camera.
    scene::SCNNodePtr
    addSquare(const scene::SCNMaterialPtr& material, float z = 0, float side = 2) const {
        auto node = addNode({0, 0, z});
        node->geometry = std::make_shared<scene::SCNPlane>(side, side);
        node->geometry->materials = {material};
        return node;
    }

    scene::SCNLightPtr
    addLight(scene::SCNLightType type, const glm::vec3& position, double intensity) const {
        auto light = std::make_shared<scene::SCNLight>();
        light->type = type;
        light->intensity = intensity;
        addNode(position)->light = light;
        return light;
    }

    static scene::SCNMaterialPtr makeMaterial(
        const image::Color& color,
        scene::SCNLightingModel model = scene::SCNLightingModel::constant) {
        auto material = std::make_shared<scene::SCNMaterial>();
        material->lightingModelName = model;
        material->diffuse.contents = color;
        return material;
    }

    /// Without the specular reflection, which would add to the diffuse light.
    static scene::SCNMaterialPtr makeMatte(const image::Color& color = image::Color::white(0.5f)) {
        auto material = makeMaterial(color, scene::SCNLightingModel::physicallyBased);
        material->specular.contents = image::Color::white(0);
        material->roughness.contents = 1.0f;
        return material;
    }

    [[nodiscard]] image::Image draw(double oversampling = 1) const {
        return renderer->snapshotAtTime(0, kSize, {oversampling, 1});
    }

    static Pixel at(const image::Image& picture, int x, int y) {
        const auto i = static_cast<std::size_t>(y * picture.width + x) * 4;
        return {picture.pixels[i], picture.pixels[i + 1], picture.pixels[i + 2]};
    }

    [[nodiscard]] Pixel middle() const { return at(draw(), 32, 32); }

    std::unique_ptr<SCNRenderer> renderer;
    scene::SCNScenePtr scene = std::make_shared<scene::SCNScene>();
    scene::SCNNodePtr camera;
};

inline void expectNear(const Pixel& pixel, const Pixel& wanted, int tolerance) {
    for (std::size_t c = 0; c < 3; ++c) {
        EXPECT_NEAR(pixel.at(c), wanted.at(c), tolerance) << "channel " << c;
    }
}

/// The encoded value of so much of the light of one encoded value and so much of another's.
inline int lit(double share, int value, double otherShare = 0, int other = 0) {
    const auto light = [](int encoded) {
        return image::linearFromSRGB(static_cast<float>(encoded) / 255);
    };
    const double sum = share * light(value) + otherShare * light(other);
    return static_cast<int>(std::lround(255 * image::sRGBFromLinear(static_cast<float>(sum))));
}

inline image::ImagePtr
sharePicture(int width, int height, const std::vector<std::array<std::uint8_t, 4>>& pixels) {
    auto picture = std::make_shared<image::Image>(width, height);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        std::ranges::copy(pixels[i], &picture->pixels[4 * i]);
    return picture;
}

} // namespace zelvo::render
