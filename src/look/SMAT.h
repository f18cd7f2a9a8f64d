// SPDX-License-Identifier: MIT
#pragma once

#include "look/Materials.h"

#include <memory>

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

/// A surface by its recipe; the user's colour becomes the diffuse contents, as it is. A picture
/// that the resources lack leaves its slot empty.
class RecipeSurface : public SMAT {
public:
    explicit RecipeSurface(Surface surface);

    void setColor(const image::Color& color) override;
};

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
