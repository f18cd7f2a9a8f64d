// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/PropertyList.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace zelvo::scene {

struct SCNTechnique;
using SCNTechniquePtr = std::shared_ptr<const SCNTechnique>;

/// A full-frame effect: passes that are drawn one after the other over the finished picture. This
/// is data only; the shader functions are in technique.frag of platform/render.
///
/// A description has the keys "symbols" (name: {"value": number}), "targets" (name: {"scaleFactor":
/// above 0, at most 1}), "passes" (name: a pass) and "sequence" (names of passes). A pass has
/// "draw": "DRAW_QUAD", "metalVertexShader", "metalFragmentShader", "inputs" ("colorSampler":
/// "COLOR" or a target; the name of a uniform: a symbol) and "outputs" ("color": "COLOR" or a
/// target). Every function can also read the scene time.
struct SCNTechnique {
    static constexpr int kColor = -1; ///< stands for the frame itself

    struct Uniform {
        std::string name;
        float value = 0;
    };

    struct Pass {
        std::string function;
        int input = kColor; ///< index into targets
        int output = kColor;
        std::vector<Uniform> uniforms{};
    };

    std::vector<double> targets; ///< sizes, as shares of the frame's
    std::vector<Pass> passes;    ///< in the order of drawing

    /// Errors: `malformed`, `unsupported`, `tooLarge` (more than 16 passes, 8 targets, 16 symbols),
    /// with the key.
    [[nodiscard]] static foundation::Result<SCNTechniquePtr>
    techniqueWithDictionary(const PropertyValue& description);

    /// Joins techniques into one; null if there are none. They share targets of equal size, because
    /// each is finished when the next begins. So many techniques need no more memory than one.
    [[nodiscard]] static SCNTechniquePtr
    techniqueBySequencingTechniques(std::span<const SCNTechniquePtr> techniques);

    /// Makes a new object. Techniques are compared by their address.
    [[nodiscard]] SCNTechniquePtr copy() const { return std::make_shared<SCNTechnique>(*this); }

private:
    /// Finds a target for each of these scales; adds missing ones.
    [[nodiscard]] std::vector<int> placesFor(std::span<const double> wanted);
};

} // namespace zelvo::scene
