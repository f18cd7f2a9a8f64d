// SPDX-License-Identifier: MIT
#include "look/SMAT.h"

#include "platform/foundation/Check.h"
#include "platform/image/Image.h"

namespace zelvo::look {
namespace {

using scene::SCNLightingModel;
using Slots = scene::SCNMaterial;
using namespace std::string_view_literals;

constexpr auto kPhysical = SCNLightingModel::physicallyBased;
constexpr auto kConstant = SCNLightingModel::constant;

// clang-format off
constexpr auto kRecipes = std::to_array<SurfaceRecipe>({
    {Surface::plain,        "Plain",   kPhysical, {}                                             },
    {Surface::flat,         "Flat",    kConstant, {}                                             },
    {Surface::plate,        "Plate",   kPhysical, {{{&Slots::normal, "QX_NoiseNormal_21.jpg"sv}}}},
    {Surface::plastic,      "Plastic", kPhysical, {{{&Slots::normal, "plastic_normal.png"sv}}}   },
    {Surface::iron,
     "Iron",                           kPhysical,
     {{{&Slots::roughness, "scratches_roughness.jpg"sv},
       {&Slots::metalness, "scratches_metal.jpg"sv},
       {&Slots::ambientOcclusion, "scratches_ambientOcclusion.jpg"sv}}}                          },
    {Surface::rock,
     "Rock",                           kPhysical,
     {{{&Slots::roughness, "rock.jpg"sv},
       {&Slots::normal, "rock_normal.jpg"sv},
       {&Slots::ambientOcclusion, "rock_ambientOcclusion.jpg"sv}}}                               },
    {Surface::circuitBoard,
     "CircuitBoard",                   kPhysical,
     {{{&Slots::roughness, "scratches_roughness.jpg"sv},
       {&Slots::metalness, "scratches_metal.jpg"sv},
       {&Slots::normal, "circuits_normal.jpg"sv}}}                                               },
    {Surface::grained,
     "Grained",                        kPhysical,
     {{{&Slots::metalness, 0.5f}, {&Slots::normal, "seamlesstexture14_500_NRM.png"sv}}}          },
    {Surface::oldMetal,
     "Old Metal",                      kPhysical,
     {{{&Slots::roughness, "scratches_roughness.jpg"sv},
       {&Slots::metalness, image::Color::white(0.88f)},
       {&Slots::normal, "scratches_normal.jpg"sv, 0.3f}}}                                        },
    {Surface::cracks,
     "Cracked",                        kPhysical,
     {{{&Slots::ambientOcclusion, "cracks_ambientocclusion.png"sv},
       {&Slots::specular, "cracks_specular.png"sv},
       {&Slots::normal, "cracks_normal.png"sv, 0.9f}}}                                           },
    {Surface::reflecting,
     "Reflecting",                     kConstant,
     {{{&Slots::reflective, "buildings_night.png"sv, 0.35f}}}                                    },
 // Both pictures are samplers of the shader modifier and never show as they are.
    {Surface::dynamic,
     "Dynamic",                        kPhysical,
     {{{&Slots::diffuse, "QX_Noise_04.jpg"sv}, {&Slots::specular, "QX_NoiseNormal_05.jpg"sv}}}   },
});

// clang-format on

constexpr bool isInEnumOrder() {
    for (std::size_t i = 0; i < kRecipes.size(); ++i) {
        if (static_cast<std::size_t>(kRecipes[i].surface) != i)
            return false;
    }
    return true;
}

static_assert(isInEnumOrder(), "a recipe is found by its number");

void fillSlot(scene::SCNMaterialProperty& slot, const SlotRecipe& recipe) {
    if (const auto* picture = std::get_if<std::string_view>(&recipe.contents)) {
        slot.setImage(image::imageNamed(std::string(*picture)));
    } else if (const auto* number = std::get_if<float>(&recipe.contents)) {
        slot.contents = *number;
    } else {
        slot.contents = std::get<image::Color>(recipe.contents);
    }
    slot.intensity = recipe.intensity;
}

} // namespace

SMAT::SMAT() {
    lightingModelName = SCNLightingModel::physicallyBased;
    for (scene::SCNMaterialProperty* slot : allProperties()) {
        slot->wrapS = scene::SCNWrapMode::repeat;
        slot->wrapT = scene::SCNWrapMode::repeat;
    }
}

void SMAT::setColor(const image::Color& color) {
    keepColor(color);
}

std::span<const SurfaceRecipe> surfaceRecipes() {
    return kRecipes;
}

RecipeSurface::RecipeSurface(Surface surface) {
    const auto row = static_cast<std::size_t>(surface);
    CHECK(row < kRecipes.size(), "no recipe for surface {}", row);
    const SurfaceRecipe& recipe = kRecipes[row];
    name = recipe.name;
    lightingModelName = recipe.lightingModel;
    for (const SlotRecipe& slot : recipe.slots) {
        if (slot.slot != nullptr)
            fillSlot(this->*slot.slot, slot);
    }
}

void RecipeSurface::setColor(const image::Color& color) {
    keepColor(color);
    diffuse.contents = color;
}

SMATPtr makeSurface(Surface surface) {
    if (surface == Surface::dynamic)
        return std::make_shared<SMAT_Dynamic>();
    return std::make_shared<RecipeSurface>(surface);
}

} // namespace zelvo::look
