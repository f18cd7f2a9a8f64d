// SPDX-License-Identifier: MIT
#include "platform/render/SurfaceShaders.h"

#include "platform/foundation/Check.h"
#include "platform/foundation/Console.h"
#include "platform/render/ShaderProgram.h"

namespace zelvo::render {
namespace {

using foundation::Result;

constexpr std::uint32_t kSlotPictures =
    ((1U << kSlotUnitCount) - 1) &
    ~slotFeature(kReflectiveUnit); // the reflection is looked up by direction

Result<ProgramHandle>
buildSurface(std::uint32_t features, const LightCounts& lights, const std::string* modifier) {
    const char* fragment = (features & kShade) != 0 ? "shade.frag" : "surface.frag";
    ProgramSource source{"surface.vert", fragment, featureDefines(features)};
    for (std::string& define : lights.defines()) {
        source.defines.push_back(std::move(define));
    }
    if ((features & kSlotPictures) != 0 || modifier != nullptr)
        source.defines.emplace_back("HAS_TEXCOORD");
    if (modifier != nullptr) {
        source.defines.emplace_back("HAS_MODIFIER");
        source.modifier = *modifier;
    }
    return buildProgram(source);
}

ProgramHandle buildOwn(const ProgramSource& source) {
    auto program = buildProgram(source);
    CHECK(program.has_value(), "{}", program.error().message);
    return std::move(*program);
}

} // namespace

std::uint32_t SurfaceShaders::modifierIndex(const std::string& text) {
    const auto [entry, isNew] =
        modifiers.try_emplace(text, static_cast<std::uint32_t>(modifiers.size() + 1));
    return entry->second;
}

std::uint32_t SurfaceShaders::program(
    std::uint32_t features, const LightCounts& lights, const std::string* modifier) {
    const std::uint32_t index = modifier != nullptr ? modifierIndex(*modifier) : 0;
    const LightCounts counts = (features & kLit) != 0 ? lights : LightCounts();
    const std::uint64_t key = features | static_cast<std::uint64_t>(counts.key()) << 28U |
                              static_cast<std::uint64_t>(index) << 48U;
    ProgramHandle& known = programs[key];
    if (known)
        return known.name();

    auto built = buildSurface(features, counts, index != 0 ? modifier : nullptr);
    if (!built && index != 0) {
        foundation::logLine(
            "a shader modifier does not compile and is left out: " + built.error().message);
        modifiers[*modifier] = 0;
        return program(features, lights, modifier);
    }
    CHECK(built.has_value(), "{}", built.error().message);
    known = std::move(*built);
    return known.name();
}

std::uint32_t SurfaceShaders::depthProgram() {
    if (!depth)
        depth = buildOwn({"surface.vert", "depth.frag", {"DEPTH_ONLY"}});
    return depth.name();
}

std::uint32_t SurfaceShaders::casterProgram() {
    if (!caster)
        caster = buildOwn({"surface.vert", "caster.frag", {"DEPTH_ONLY"}});
    return caster.name();
}

std::uint32_t SurfaceShaders::applyShadeProgram() {
    if (!applyShade)
        applyShade = buildOwn({"surface.vert", "shade_apply.frag", {"DEPTH_ONLY"}});
    return applyShade.name();
}

} // namespace zelvo::render
