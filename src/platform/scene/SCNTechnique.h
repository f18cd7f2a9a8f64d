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

/// A full-frame effect: quads drawn one after the other over the finished picture. Pure data; the
/// shader functions stand in technique.frag of platform/render.
///
/// A description has the keys "symbols" (name: {"value": number}), "targets" (name:
/// {"scaleFactor": above 0, at most 1}), "passes" (name: a pass) and "sequence" (names of passes).
/// A pass has "draw": "DRAW_QUAD", "metalVertexShader", "metalFragmentShader", "inputs"
/// ("colorSampler": "COLOR" or a target; a uniform's name: a symbol) and "outputs" ("color": the
/// same). Every function also reads the scene's time.
struct SCNTechnique {
    static constexpr int kColor = -1; ///< the frame itself instead of a target

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

    std::vector<double> targets; ///< size over that of the frame
    std::vector<Pass> passes;    ///< in their order

    /// Errors: malformed, unsupported, tooLarge (over 16 passes, 8 targets, 16 symbols), naming the
    /// key.
    [[nodiscard]] static foundation::Result<SCNTechniquePtr>
    techniqueWithDictionary(const PropertyValue& description);

    /// One after the other; null for none. They share targets of equal size: each is done with its
    /// own when the next begins, and so however many are held take no more memory than one.
    [[nodiscard]] static SCNTechniquePtr
    techniqueBySequencingTechniques(std::span<const SCNTechniquePtr> techniques);

    /// A new object: techniques are told apart by their identity.
    [[nodiscard]] SCNTechniquePtr copy() const { return std::make_shared<SCNTechnique>(*this); }

private:
    /// Where targets of these scales stand, each for itself; adds those that are missing.
    [[nodiscard]] std::vector<int> placesFor(std::span<const double> wanted);
};

} // namespace zelvo::scene
