// SPDX-License-Identifier: MIT
#include "platform/render/Context.h"
#include "platform/render/SCNView.h"
#include "render/StageFixture.h"

#include <epoxy/gl.h>

#include <cstdlib>
#include <functional>

namespace zelvo::render {
namespace {

constexpr Size kWindow{48, 32};

/// A window's OpenGL context and framebuffer.
class View : public Stage {
protected:
    View() {
        auto made = HeadlessContext::make();
        if (!made) {
            ADD_FAILURE() << made.error().message;
            std::abort();
        }
        context = std::move(*made);
        glCreateTextures(GL_TEXTURE_2D, 1, &texture);
        glTextureStorage2D(texture, 1, GL_RGBA8, kWindow.width, kWindow.height);
        glCreateFramebuffers(1, &framebuffer);
        glNamedFramebufferTexture(framebuffer, GL_COLOR_ATTACHMENT0, texture, 0);
        view = *SCNView::make();
        view->setScene(scene);
        view->pointOfView = camera;
        addSquare(makeMaterial(image::Color::hex(0xE6194C)), 0, 0.7f)->position = {0.2f, 0.4f, 0};
        scene->background.contents = image::Color::hex(0x194CE6);
    }

    ~View() override {
        context->makeCurrent();
        view.reset();
    }

    [[nodiscard]] image::Image drawnInto(RowOrder rows) const {
        context->makeCurrent();
        view->update(0);
        view->draw({framebuffer, kWindow, rows});
        image::Image picture(kWindow.width, kWindow.height);
        glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffer);
        glReadPixels(
            0, 0, kWindow.width, kWindow.height, GL_RGBA, GL_UNSIGNED_BYTE, picture.pixels.data());
        return picture;
    }

    /// A wide grey floor, seen from above.
    scene::SCNNodePtr addFloor() {
        camera->position = glm::vec3(0, 50, 200);
        camera->camera->fieldOfView = 60;
        camera->camera->zFar = 5000;
        auto floor = addNode({});
        floor->geometry = std::make_shared<scene::SCNPlane>(2000, 2000);
        floor->geometry->materials = {makeMatte(image::Color::white(0.5f))};
        floor->setEulerAngles({-1.5707963f, 0, 0});
        floor->castsShadow = false;
        return floor;
    }

    std::unique_ptr<HeadlessContext> context;
    std::unique_ptr<SCNView> view;
    GLuint texture = 0;
    GLuint framebuffer = 0;
};

image::Image upsideDown(const image::Image& picture) {
    image::Image turned(picture.width, picture.height);
    const auto row = static_cast<std::ptrdiff_t>(picture.width) * 4;
    for (std::ptrdiff_t at = 0; at < row * picture.height; at += row)
        std::copy_n(picture.pixels.end() - at - row, row, turned.pixels.begin() + at);
    return turned;
}

TEST_F(View, ShowsWhatTheOffscreenRendererShowsInEitherOrderOfRows) {
    view->quality = {1, 1};
    const image::Image topFirst = drawnInto(RowOrder::topFirst);
    const image::Image bottomFirst = drawnInto(RowOrder::bottomFirst);
    const image::Image offscreen = renderer->snapshotAtTime(0, kWindow, {1, 1});
    EXPECT_EQ(topFirst.pixels, offscreen.pixels);
    EXPECT_EQ(upsideDown(bottomFirst).pixels, offscreen.pixels);
    EXPECT_NE(topFirst.pixels, bottomFirst.pixels);
}

TEST_F(View, ItsQualityMakesTheStepsOfEdgesSmall) {
    camera->setEulerAngles({0, 0, 0.1f});
    const auto mixedPixels = [this](const DrawQuality& quality) {
        view->quality = quality;
        const image::Image picture = drawnInto(RowOrder::topFirst);
        int count = 0;
        for (std::size_t i = 0; i < picture.pixels.size(); i += 4) {
            const int red = picture.pixels[i];
            count += red > 0x30 && red < 0xD0 ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(mixedPixels({1, 1}), 0);
    EXPECT_GT(mixedPixels({1.5, 1}), 20);
    EXPECT_GT(mixedPixels({1, 4}), 20);
}

TEST_F(View, InMotionTheFloorFollowsWithinAFrameAndAtRestItIsWhole) {
    const auto floor = addFloor();
    floor->geometry->materials[0]->floor =
        scene::SCNFloorLook{.mirror = 1, .blur = 0.3f, .contact = 1, .lift = 10};
    addLight(scene::SCNLightType::ambient, {}, 1000);
    const auto box = addNode({-60, 20, 0});
    box->geometry = std::make_shared<scene::SCNBox>(40, 30, 40, 0);
    box->geometry->materials = {makeMaterial(image::Color::hex(0x00FF00))};
    const auto drawn = [this](Detail detail) {
        view->quality = {.oversampling = 1, .samples = 1, .detail = detail};
        return drawnInto(RowOrder::topFirst);
    };
    const auto largestDifference = [](const image::Image& a, const image::Image& b) {
        int largest = 0;
        for (std::size_t i = 0; i < a.pixels.size(); ++i)
            largest = std::max(largest, std::abs(a.pixels[i] - b.pixels[i]));
        return largest;
    };
    for (int i = 0; i < 3; ++i)
        static_cast<void>(drawn(Detail::moving));
    box->position = glm::vec3(60, 20, 0);
    static_cast<void>(drawn(Detail::moving));
    const image::Image moving = drawn(Detail::moving);
    EXPECT_EQ(drawn(Detail::moving).pixels, moving.pixels) << "what is late is one frame late";
    const image::Image whole = drawn(Detail::full);
    EXPECT_EQ(whole.pixels, renderer->snapshotAtTime(0, kWindow, {1, 1}).pixels);
    EXPECT_LT(largestDifference(moving, whole), 30) << "nothing jumps when the motion ends";
}

TEST_F(View, InMotionShadowsLieWhereTheyLieAtRest) {
    addFloor();
    const auto box = addNode({50, 20, 40});
    box->geometry = std::make_shared<scene::SCNBox>(40, 10, 40, 0);
    const auto lamp = addNode({0, 400, 0});
    lamp->setEulerAngles({-1.5707963f, 0, 0});
    lamp->light = std::make_shared<scene::SCNLight>();
    lamp->light->type = scene::SCNLightType::directional;
    lamp->light->castsShadow = true;
    const auto drawn = [this](Detail detail) {
        view->quality = {.oversampling = 1, .samples = 1, .detail = detail};
        return drawnInto(RowOrder::topFirst);
    };
    const auto differences = [](const image::Image& a, const image::Image& b) {
        int count = 0;
        for (std::size_t i = 0; i < a.pixels.size(); i += 4)
            count += std::abs(a.pixels[i] - b.pixels[i]) > 12 ? 1 : 0;
        return count;
    };
    const image::Image moving = drawn(Detail::moving);
    EXPECT_EQ(differences(moving, drawn(Detail::full)), 0);
    box->castsShadow = false;
    EXPECT_GT(differences(moving, drawn(Detail::moving)), 15) << "there is a shadow to be seen";
}

TEST_F(View, ToleratesAnyStateAndLeavesOpenGLsOwn) {
    const auto wire = makeMaterial(image::Color::white(1)); // drawn last
    wire->fillMode = scene::SCNFillMode::lines;
    wire->transparency = 0.5f;
    addSquare(wire, 1);
    const image::Image before = drawnInto(RowOrder::topFirst);
    // state that a toolkit may have left
    glEnable(GL_SCISSOR_TEST);
    glScissor(3, 3, 4, 4);
    glEnable(GL_STENCIL_TEST);
    glStencilFunc(GL_NEVER, 1, 1);
    glColorMask(GL_FALSE, GL_TRUE, GL_FALSE, GL_TRUE);
    glDepthMask(GL_FALSE);
    glEnable(GL_BLEND);
    glBlendEquation(GL_FUNC_REVERSE_SUBTRACT);
    glFrontFace(GL_CW);
    EXPECT_EQ(drawnInto(RowOrder::topFirst).pixels, before.pixels);

    struct StateRow {
        GLenum name;
        GLint value;
    };

    // clang-format off
    constexpr auto kInitial = std::to_array<StateRow>({
        {GL_CLIP_ORIGIN,          GL_LOWER_LEFT         },
        {GL_CLIP_DEPTH_MODE,      GL_NEGATIVE_ONE_TO_ONE},
        {GL_FRONT_FACE,           GL_CCW                },
        {GL_POLYGON_MODE,         GL_FILL               },
        {GL_DEPTH_FUNC,           GL_LESS               },
        {GL_DEPTH_WRITEMASK,      GL_TRUE               },
        {GL_DEPTH_TEST,           GL_FALSE              },
        {GL_CULL_FACE,            GL_FALSE              },
        {GL_BLEND,                GL_FALSE              },
        {GL_BLEND_EQUATION_RGB,   GL_FUNC_ADD           },
        {GL_CURRENT_PROGRAM,      0                     },
        {GL_VERTEX_ARRAY_BINDING, 0                     },
        {GL_UNPACK_ALIGNMENT,     4                     },
    });
    // clang-format on
    for (const StateRow& row : kInitial) {
        std::array<GLint, 4> values{-1}; // some have more than one
        glGetIntegerv(row.name, values.data());
        EXPECT_EQ(values[0], row.value) << "state " << std::hex << row.name;
    }
    for (GLuint unit = 0; unit < 24; ++unit) {
        glActiveTexture(GL_TEXTURE0 + unit);
        GLint sampler = -1;
        glGetIntegerv(GL_SAMPLER_BINDING, &sampler);
        EXPECT_EQ(sampler, 0) << "unit " << unit;
    }
}

/// A wall lit by a spot, and a caster outside the picture that throws a shadow on it.
class ViewOfAWall : public View {
protected:
    ViewOfAWall() {
        addSquare(wall, -1, 4);
        light->castsShadow = true;
        light->zFar = 40;
        caster->position = glm::vec3(0, 2.2f, 2);
        caster->castsShadow = true;
        glass->transparency = 0.5f;
        addSquare(glass, 1, 0.5f)->position = glm::vec3(-0.6f, -0.6f, 1);
    }

    [[nodiscard]] std::optional<std::uint64_t> key() const { return view->pictureKey(1.5); }

    static image::ImagePtr plain(const std::array<std::uint8_t, 4>& color) {
        return sharePicture(1, 1, {color});
    }

    void expectTold(const char* what, const std::function<void()>& change) const {
        const image::Image before = drawnInto(RowOrder::topFirst);
        const std::optional<std::uint64_t> keyBefore = key();
        EXPECT_TRUE(keyBefore.has_value()) << what;
        EXPECT_EQ(key(), keyBefore) << what;
        change();
        EXPECT_NE(key(), keyBefore) << what;
        EXPECT_NE(drawnInto(RowOrder::topFirst).pixels, before.pixels) << what;
    }

    scene::SCNMaterialPtr wall = makeMatte();
    scene::SCNMaterialPtr glass = makeMaterial(image::Color::hex(0x20A040));
    scene::SCNLightPtr light = addLight(scene::SCNLightType::spot, {0, 4, 6}, 4e4);
    scene::SCNNodePtr lamp = scene->rootNode()->childNodes().back();
    scene::SCNNodePtr caster = addSquare(makeMaterial(image::Color::white(1)), 0, 1.5f);
};

TEST_F(ViewOfAWall, KeysTellEveryChangeOfThePicture) {
    lamp->setOrientation(glm::quatLookAt(glm::normalize(glm::vec3(0, -4, -7)), glm::vec3(0, 1, 0)));
    scene::SCNCamera& lens = *camera->camera;
    expectTold("a caster out of view", [&] { caster->position = glm::vec3(0.8f, 2.2f, 2); });
    expectTold("no caster", [&] { caster->castsShadow = false; });
    caster->castsShadow = true;
    expectTold("shadow's strength", [&] { light->shadowColor.alpha = 0.9f; });
    expectTold("light's strength", [&] { light->intensity = 4e5; });
    expectTold("light's colour", [&] { light->color = image::Color::hex(0xFFC060); });
    expectTold("a colour", [&] { wall->diffuse.contents = image::Color::hex(0x6080A0); });
    expectTold("a picture", [&] { wall->diffuse.contents = plain({255, 0, 0, 255}); });
    expectTold("another", [&] { wall->diffuse.contents = plain({0, 0, 255, 255}); });
    expectTold("how glass mixes", [&] { glass->blendMode = scene::SCNBlendMode::add; });
    expectTold("glass", [&] { glass->transparency = 0.8f; });
    expectTold("exposure", [&] { lens.exposureOffset = 3; });
    expectTold("tone", [&] { lens.wantsHDR = true; });
    expectTold("angle of view", [&] { lens.fieldOfView = 60; });
    expectTold("place", [&] { camera->position = glm::vec3(0.5f, 0, 10); });
    expectTold("background", [&] { scene->background.contents = plain({255, 0, 0, 255}); });
    expectTold("its picture", [&] { scene->background.contents = plain({0, 255, 0, 255}); });
    expectTold("shape", [&] { caster->geometry = std::make_shared<scene::SCNPlane>(0.5, 9.0); });
    expectTold("something gone", [&] { caster->isHidden = true; });
}

TEST_F(ViewOfAWall, WhatMayMoveByItselfHasNoKey) {
    EXPECT_TRUE(key().has_value());
    view->technique = std::make_shared<scene::SCNTechnique>();
    EXPECT_FALSE(key().has_value());
    view->technique = nullptr;
    wall->shaderModifiers[scene::SCNShaderModifierEntryPoint::surface] = "";
    EXPECT_FALSE(key().has_value());
}

} // namespace
} // namespace zelvo::render
