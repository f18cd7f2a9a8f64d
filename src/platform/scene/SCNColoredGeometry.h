// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNGeometry.h"

#include <glm/gtc/type_precision.hpp>

#include <algorithm>
#include <utility>
#include <vector>

namespace zelvo::scene {

/// A geometry whose vertices have colours. They multiply the diffuse colour of the material that it
/// was made with; another material hides them.
class SCNColoredGeometry : public SCNGeometry {
public:
    /// One for each vertex, in sRGB; they are mixed in linear light.
    [[nodiscard]] const std::vector<glm::u8vec4>& colors() const { return colors_; }

    [[nodiscard]] bool isColored(const SCNMaterial& material) const {
        return &material == colored.get();
    }

    /// Whether a colour has an alpha below 1.
    [[nodiscard]] bool isSeenThrough() const { return isSeenThrough_; }

protected:
    SCNColoredGeometry(std::vector<glm::u8vec4> given, SCNMaterialPtr material)
        : colors_(std::move(given))
        , colored(std::move(material))
        , isSeenThrough_(std::ranges::any_of(colors_, [](const auto& c) { return c.a < 255; })) {}

private:
    std::vector<glm::u8vec4> colors_;
    SCNMaterialPtr colored;
    bool isSeenThrough_;
};

/// The geometry if it shows its colours with this material; otherwise null.
[[nodiscard]] inline const SCNColoredGeometry*
coloredGeometry(const SCNGeometry& geometry, const SCNMaterial& material) {
    const auto* const colored = dynamic_cast<const SCNColoredGeometry*>(&geometry);
    const bool isShown =
        colored != nullptr && !colored->colors().empty() && colored->isColored(material);
    return isShown ? colored : nullptr;
}

} // namespace zelvo::scene
