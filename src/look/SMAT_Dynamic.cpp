// SPDX-License-Identifier: MIT
#include "look/FlowingNoise.h"
#include "look/SMAT.h"

#include <fmt/format.h>

namespace zelvo::look {
namespace {

constexpr float kDarkestWhite = 0.1f;

} // namespace

std::string flowingNoise(Flow flow) {
    return fmt::format(
        "vec2 uv = _surface.diffuseTexcoord;\n"
        "vec4 distort = texture2D(u_specularTexture, uv);\n"
        "vec2 pos = vec2(uv.x - distort.g, uv.y + distort.r {} u_time * 0.6);\n"
        "vec4 result = texture2D(u_diffuseTexture, pos);\n"
        "_surface.emission *= result.r * 4.0;\n"
        "_surface.diffuse = _surface.emission;\n"
        "_surface.specular = _surface.emission;\n",
        flow == Flow::forwards ? '+' : '-');
}

SMAT_Dynamic::SMAT_Dynamic()
    : RecipeSurface(Surface::dynamic) {
    shaderModifiers[scene::SCNShaderModifierEntryPoint::surface] = flowingNoise(Flow::forwards);
}

void SMAT_Dynamic::setColor(const image::Color& color) {
    keepColor(color); // not the recipe's rule, because diffuse is used by the modifier
    const bool isTooDark = image::whiteOf(color) < kDarkestWhite;
    emission.contents = isTooDark ? image::Color::white(kDarkestWhite) : color;
}

} // namespace zelvo::look
