// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNMaterial.h"

#include <memory>
#include <span>
#include <string_view>
#include <variant>

namespace zelvo::look {

/// One complete look of a surface: a lighting model, pictures on slots, at most one shader
/// modifier, and a rule for where the user's colour goes. Physically based and repeating on every
/// slot unless a recipe says otherwise.
///
/// The base class only keeps the colour; each surface places it on a slot of its own choice.
class SMAT : public scene::SCNMaterial {
public:
    SMAT();

    [[nodiscard]] const image::Color& color() const { return color_; }

    virtual void setColor(const image::Color& color);

protected:
    void keepColor(const image::Color& color) { color_ = color; }

private:
    image::Color color_ = image::Color::clear();
};

using SMATPtr = std::shared_ptr<SMAT>;

/// The surfaces, one row of the recipe table each.
enum class Surface {
    plain,
    flat,
    plate,
    plastic,
    iron,
    rock,
    circuitBoard,
    grained,
    oldMetal,
    cracks,
    reflecting,
    dynamic
};

/// What a recipe puts on one slot: the picture of that name, a number or a colour.
struct SlotRecipe {
    scene::SCNMaterialProperty scene::SCNMaterial::*slot = nullptr; ///< null ends a recipe early
    std::variant<std::string_view, float, image::Color> contents;
    float intensity = 1;
};

struct SurfaceRecipe {
    Surface surface;
    std::string_view name;
    scene::SCNLightingModel lightingModel;
    std::array<SlotRecipe, 3> slots;
};

/// All recipes, in the order of Surface.
[[nodiscard]] std::span<const SurfaceRecipe> surfaceRecipes();

/// A surface by its recipe; the user's colour becomes the diffuse contents, as it is. A picture
/// that the resources lack leaves its slot empty.
class RecipeSurface : public SMAT {
public:
    explicit RecipeSurface(Surface surface);

    void setColor(const image::Color& color) override;
};

template <Surface kSurface> class SurfaceOf final : public RecipeSurface {
public:
    SurfaceOf()
        : RecipeSurface(kSurface) {}
};

using SMAT_Plain = SurfaceOf<Surface::plain>;
using SMAT_Flat = SurfaceOf<Surface::flat>;
using SMAT_Plate = SurfaceOf<Surface::plate>;
using SMAT_Plastic = SurfaceOf<Surface::plastic>;
using SMAT_Iron = SurfaceOf<Surface::iron>;
using SMAT_Rock = SurfaceOf<Surface::rock>;
using SMAT_CircuitBoard = SurfaceOf<Surface::circuitBoard>;
using SMAT_Grained = SurfaceOf<Surface::grained>;
using SMAT_OldMetal = SurfaceOf<Surface::oldMetal>;
using SMAT_Cracks = SurfaceOf<Surface::cracks>;
using SMAT_Reflecting = SurfaceOf<Surface::reflecting>;

/// Glowing noise that flows in the user's colour. The colour goes to `emission`, which the noise
/// multiplies: black would leave the surface dead, so a colour whose grey reading is below 0.1
/// glows in grey 0.1 instead.
class SMAT_Dynamic final : public RecipeSurface {
public:
    SMAT_Dynamic();

    void setColor(const image::Color& color) override;
};

/// A new surface of the given kind.
[[nodiscard]] SMATPtr makeSurface(Surface surface);

} // namespace zelvo::look
