// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Handles.h"
#include "platform/render/Lighting.h"
#include "platform/render/MaterialBinding.h"

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>

namespace zelvo::render {

/// Builds variants of the surface shader for materials and lights, each when it is first needed.
class SurfaceShaders {
public:
    /// If a modifier does not compile, that is reported once on the console and the material is
    /// drawn without it.
    [[nodiscard]] std::uint32_t
    program(std::uint32_t features, const LightCounts& lights, const std::string* modifier);

    /// Writes depth only.
    [[nodiscard]] std::uint32_t depthProgram();
    /// Draws a caster into a shadow map.
    [[nodiscard]] std::uint32_t casterProgram();
    /// Darkens by what a program with `kShade` has drawn.
    [[nodiscard]] std::uint32_t applyShadeProgram();

private:
    [[nodiscard]] std::uint32_t modifierIndex(const std::string& text);

    std::unordered_map<std::uint64_t, ProgramHandle> programs;
    std::map<std::string, std::uint32_t> modifiers; ///< numbered from 1; 0 = does not compile
    ProgramHandle depth;
    ProgramHandle caster;
    ProgramHandle applyShade;
};

} // namespace zelvo::render
