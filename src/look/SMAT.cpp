// SPDX-License-Identifier: MIT
#include "look/SMAT.h"

#include "platform/foundation/Check.h"
#include "platform/image/reading/ImageNamed.h"

#include <algorithm>

namespace zelvo::look {
namespace {

const SurfaceRecipe& recipeOf(Surface surface) {
    const auto* const row = std::ranges::find(kSurfaces, surface, &SurfaceRecipe::surface);
    CHECK(row != kSurfaces.end(), "surface {} has no recipe", static_cast<int>(surface));
    return *row;
}

void fillSlot(scene::SCNMaterialProperty& slot, const SlotRecipe& recipe) {
    if (const auto* picture = std::get_if<std::string_view>(&recipe.contents)) {
        slot.contents = std::make_shared<const image::LazyImage>(std::string(*picture));
    } else if (const auto* number = std::get_if<float>(&recipe.contents)) {
        slot.contents = *number;
    } else {
        slot.contents = std::get<image::Color>(recipe.contents);
    }
    slot.intensity = recipe.intensity;
}

} // namespace

SMAT::SMAT() {
    lightingModelName = scene::SCNLightingModel::physicallyBased;
    for (scene::SCNMaterialProperty* slot : allProperties()) {
        slot->wrapS = scene::SCNWrapMode::repeat;
        slot->wrapT = scene::SCNWrapMode::repeat;
    }
}

void SMAT::setColor(const image::Color& color) {
    keepColor(color);
}

RecipeSurface::RecipeSurface(Surface surface) {
    const SurfaceRecipe& recipe = recipeOf(surface);
    name = recipe.name;
    lightingModelName = recipe.lightingModel;
    rim = recipe.finish.rim;
    clearCoat = recipe.finish.clearCoat;
    clearCoatRelief = recipe.finish.clearCoatRelief;
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
