// SPDX-License-Identifier: MIT
#include "look/FlowingNoise.h"
#include "look/SMAT.h"
#include "look/ShaderNode.h"
#include "platform/foundation/Folders.h"
#include "platform/image/Image.h"

#include <gtest/gtest.h>

#include <string>

namespace zelvo::look {
namespace {

using image::Color;

Color colorIn(const scene::SCNMaterialProperty& slot) {
    return slot.colorOr(Color::clear());
}

TEST(Surface, FindsEveryPictureOfItsRecipeAndRepeatsIt) {
    for (const SurfaceRecipe& recipe : kSurfaces) {
        const SMATPtr surface = makeSurface(recipe.surface);
        EXPECT_EQ(surface->name, recipe.name);
        for (const SlotRecipe& slot : recipe.slots) {
            if (slot.slot == nullptr)
                continue;
            const scene::SCNMaterialProperty& filled = (*surface).*slot.slot;
            const bool isPicture = std::holds_alternative<std::string_view>(slot.contents);
            EXPECT_EQ(filled.image() != nullptr, isPicture) << recipe.name;
            EXPECT_EQ(filled.intensity, slot.intensity) << recipe.name;
        }
        for (const scene::SCNMaterialProperty* slot : surface->allProperties()) {
            EXPECT_EQ(slot->wrapS, scene::SCNWrapMode::repeat) << recipe.name;
            EXPECT_EQ(slot->wrapT, scene::SCNWrapMode::repeat) << recipe.name;
        }
    }
}

TEST(Surface, PutsTheColourOnDiffuseOnly) {
    const Color red{1, 0, 0, 1};
    SMAT plainBase;
    plainBase.setColor(red);
    EXPECT_EQ(plainBase.color(), red);
    for (const scene::SCNMaterialProperty* slot : plainBase.allProperties()) {
        EXPECT_TRUE(slot->isEmpty()) << "the base class places no colour";
    }
    for (const Surface kind : {Surface::flat, Surface::iron, Surface::reflecting}) {
        const SMATPtr surface = makeSurface(kind);
        EXPECT_TRUE(surface->diffuse.isEmpty()) << "until the first colour is given";
        surface->setColor(red);
        EXPECT_EQ(colorIn(surface->diffuse), red);
        EXPECT_TRUE(surface->emission.isEmpty());
    }
}

TEST(Surface, DynamicNeverGoesDead) {
    struct Row {
        const char* what;
        Color given;
        Color glows;
    };

    const Color floor = Color::white(0.1f);
    for (const Row& row :
         {Row{"black", Color::white(0), floor},
          {"a blue that reads dark loses its hue", {0, 0, 0.5f, 1}, floor},
          {"just below", Color::white(0.099f), floor},
          {"exactly the floor, half transparent",
           {0.1f, 0.1f, 0.1f, 0.5f},
           {0.1f, 0.1f, 0.1f, 0.5f}},
          {"a saturated red", {1, 0, 0, 1}, {1, 0, 0, 1}}}) {
        SMAT_Dynamic surface;
        surface.setColor(row.given);
        EXPECT_EQ(colorIn(surface.emission), row.glows) << row.what;
        EXPECT_EQ(surface.color(), row.given) << row.what;
        EXPECT_NE(surface.diffuse.image(), nullptr) << "stays a sampler";
    }
}

TEST(FlowingNoise, RunsTheOtherWayOnTheTorusByOneSign) {
    const ShaderNode node;
    ASSERT_EQ(node.geometry->materials, std::vector{node.material});
    constexpr auto kSurface = scene::SCNShaderModifierEntryPoint::surface;
    std::string turned = node.material->shaderModifiers.at(kSurface);
    const auto sign = turned.find("- u_time");
    ASSERT_NE(sign, std::string::npos);
    turned[sign] = '+';
    EXPECT_EQ(turned, SMAT_Dynamic().shaderModifiers.at(kSurface));
    EXPECT_NE(node.material->diffuse.image(), nullptr);
    EXPECT_NE(node.material->emission.image(), nullptr);
    for (const scene::SCNMaterialProperty* slot : node.material->allProperties())
        EXPECT_EQ(slot->wrapT, scene::SCNWrapMode::repeat) << "the noise flows out of the picture";
}

} // namespace
} // namespace zelvo::look
