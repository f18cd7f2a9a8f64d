// SPDX-License-Identifier: MIT
#pragma once

#include "look/Materials.h"

#include <memory>

namespace zelvo::look {

/// A complete surface: lighting model, pictures in slots, at most one shader modifier, and a rule
/// for the user's colour. Physically based, and repeating in every slot, unless a recipe says
/// otherwise.
///
/// The base class only stores the colour; each surface puts it into a slot of its choice.
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

/// A surface made from a recipe. The user's colour becomes the diffuse colour. If a picture is
/// missing, its slot stays empty.
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
/// multiplies. Black would show nothing, so a colour with a grey value below 0.1 is replaced by
/// grey 0.1.
class SMAT_Dynamic final : public RecipeSurface {
public:
    SMAT_Dynamic();

    void setColor(const image::Color& color) override;
};

/// Makes a surface of the given kind.
[[nodiscard]] SMATPtr makeSurface(Surface surface);

} // namespace zelvo::look
