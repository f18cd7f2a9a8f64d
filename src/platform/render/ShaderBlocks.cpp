// SPDX-License-Identifier: MIT
#include "platform/render/ShaderBlocks.h"

#include <fmt/format.h>

namespace zelvo::render {
namespace {

#define ZELVO_ONE(type, name) "    " #type " " #name ";\n"
#define ZELVO_LIST(type, name, count) "    " #type " " #name "[" #count "];\n"

std::string block(Binding binding, const char* name, const char* fields) {
    return fmt::format(
        "layout(std140, binding = {}) uniform {} {{\n{}}};\n",
        static_cast<int>(binding),
        name,
        fields);
}

std::string constant(const char* name, int value) {
    return fmt::format("#define {} {}\n", name, value);
}

std::string makeDeclarations() {
    return constant("UNIT_DIFFUSE", kDiffuseUnit) + constant("UNIT_SPECULAR", kSpecularUnit) +
           constant("UNIT_EMISSION", kEmissionUnit) +
           constant("UNIT_TRANSPARENT", kTransparentUnit) +
           constant("UNIT_REFLECTIVE", kReflectiveUnit) + constant("UNIT_MULTIPLY", kMultiplyUnit) +
           constant("UNIT_NORMAL", kNormalUnit) +
           constant("UNIT_AMBIENT_OCCLUSION", kAmbientOcclusionUnit) +
           constant("UNIT_SELF_ILLUMINATION", kSelfIlluminationUnit) +
           constant("UNIT_METALNESS", kMetalnessUnit) + constant("UNIT_ROUGHNESS", kRoughnessUnit) +
           constant("UNIT_SHADOW", kShadowUnit) + constant("UNIT_PROBE", kProbeUnit) +
           constant("UNIT_PICTURE", kPictureUnit) + constant("UNIT_DEPTH", kDepthUnit) +
           constant("UNIT_GLOW", kGlowUnit) + constant("UNIT_SHADE", kShadeUnit) +
           constant("UNIT_LINES", kLineUnit) + constant("UNIT_SECOND_LINES", kSecondLineUnit) +
           constant("MAX_SHADOWS", kMaxShadows) +
           block(kFrameBinding, "FrameBlock", ZELVO_FRAME_BLOCK(ZELVO_ONE, ZELVO_LIST)) +
           block(kLightBinding, "LightBlock", ZELVO_LIGHT_BLOCK(ZELVO_ONE, ZELVO_LIST)) +
           block(kItemBinding, "ItemBlock", ZELVO_ITEM_BLOCK(ZELVO_ONE, ZELVO_LIST)) +
           block(kSlotBinding, "SlotBlock", ZELVO_SLOT_BLOCK(ZELVO_ONE, ZELVO_LIST)) +
           block(kPassBinding, "PassBlock", ZELVO_PASS_BLOCK(ZELVO_ONE, ZELVO_LIST));
}

} // namespace

const std::string& sharedDeclarations() {
    static const std::string kText = makeDeclarations();
    return kText;
}

} // namespace zelvo::render
