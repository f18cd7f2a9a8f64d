// SPDX-License-Identifier: MIT
#include "node/OutlineMarks.h"

#include "platform/text/FontRegistry.h"
#include "platform/text/LineLayout.h"

#include <algorithm>
#include <array>

namespace zelvo::node {

namespace {

// Scene units on the stage.
constexpr float kEdge = 0.5f; ///< thickness of each colour, beside a line
constexpr float kLongestCorner = 24;
constexpr float kCornerShare = 0.25f; ///< of the shorter side
constexpr float kNameSize = 10;
constexpr float kNamePadding = 3;
constexpr float kNameGap = 4;
constexpr float kTall = 200;
// Behind the frame's bars, which are at 0.
constexpr float kBehind = -0.2f;
constexpr float kFarBehind = -0.4f;

// clang-format off
constexpr auto kCorners = std::to_array<glm::vec2>({
    {-1, 1 },
    {1,  1 },
    {1,  -1},
    {-1, -1}
});

// clang-format on

scene::SCNMaterialPtr flat(float white) {
    auto material = std::make_shared<scene::SCNMaterial>();
    material->lightingModelName = scene::SCNLightingModel::constant;
    material->diffuse.contents = image::Color::white(white);
    material->isDoubleSided = true;
    return material;
}

DefaultSCNNodePtr addNode(const DefaultSCNNodePtr& parent) {
    auto made = std::make_shared<DefaultSCNNode>();
    parent->addChildNode(made);
    return made;
}

} // namespace

OutlineMarks::OutlineMarks(const text::FontRegistry* given)
    : fonts(given)
    , root(std::make_shared<DefaultSCNNode>())
    , edges(addNode(root))
    , corners(addNode(root))
    , label(addNode(root))
    , letters(addNode(label))
    , plate(addPatch(label, flat(0.05f), kBehind)) {
    const auto dark = flat(0);
    const auto light = flat(1);
    for (std::size_t i = 0; i < kCorners.size(); ++i) {
        darkEdges.push_back(addPatch(edges, dark, kFarBehind));
        lightEdges.push_back(addPatch(edges, light, kBehind));
    }
    for (std::size_t i = 0; i < 2 * kCorners.size(); ++i) {
        darkCorners.push_back(addPatch(corners, dark, kFarBehind));
        lightCorners.push_back(addPatch(corners, light, kBehind));
    }
    label->isHidden = true;
}

OutlineMarks::Patch OutlineMarks::addPatch(
    const DefaultSCNNodePtr& parent, const scene::SCNMaterialPtr& color, float depth) {
    Patch patch{std::make_shared<scene::SCNPlane>(), addNode(parent)};
    patch.plane->materials = {color};
    patch.node->geometry = patch.plane;
    patch.node->position = glm::vec3(0, 0, depth);
    return patch;
}

void OutlineMarks::Patch::place(const glm::vec2& middle, const glm::vec2& size) const {
    plane->setWidth(size.x);
    plane->setHeight(size.y);
    node->position = glm::vec3(middle, node->position.value().z);
}

void OutlineMarks::fit(const glm::vec2& sides, const glm::vec2& line, float unitsOnStage) {
    frame = sides;
    const float edge = 2 * kEdge * unitsOnStage;
    const auto fitLine = [edge](const Patch& dark, const Patch& light, auto middle, auto size) {
        light.place(middle, size + edge);
        dark.place(middle, size + 2 * edge);
    };
    const std::array<glm::vec2, 4> middles{
        glm::vec2(0, sides.y / 2), {sides.x / 2, 0}, {0, -sides.y / 2}, {-sides.x / 2, 0}};
    for (std::size_t i = 0; i < middles.size(); ++i) {
        const bool isLevel = i % 2 == 0;
        const glm::vec2 size =
            isLevel ? glm::vec2(sides.x + line.x, line.y) : glm::vec2(line.x, sides.y + line.y);
        fitLine(darkEdges[i], lightEdges[i], middles[i], size);
    }
    const float shorter = std::min(sides.x, sides.y);
    const float length = std::min(kLongestCorner * unitsOnStage, kCornerShare * shorter);
    for (std::size_t i = 0; i < kCorners.size(); ++i) {
        const glm::vec2 corner = kCorners[i] * sides / 2.0f;
        const glm::vec2 inwards = -kCorners[i] * length / 2.0f;
        const glm::vec2 level(length + line.x, line.y / 2);
        const glm::vec2 upright(line.x / 2, length + line.y);
        const glm::vec2 alongX(inwards.x, 0);
        const glm::vec2 alongY(0, inwards.y);
        fitLine(darkCorners[2 * i], lightCorners[2 * i], corner + alongX, level - edge);
        fitLine(darkCorners[2 * i + 1], lightCorners[2 * i + 1], corner + alongY, upright - edge);
    }
    fitName(unitsOnStage);
}

void OutlineMarks::show(Extent extent) {
    edges->isHidden = extent != Extent::whole;
    corners->isHidden = extent == Extent::whole;
}

void OutlineMarks::setName(const std::string& name, NamePlace side) {
    namePlace = side;
    text::TextAttributes attributes;
    attributes.font = fonts->fallback();
    attributes.fallbacks = fonts->fallbacks();
    attributes.size = kNameSize;
    nameSize = {0, kNameSize};
    for (const text::PlacedCharacter& letter : text::layoutLine(name, attributes))
        nameSize.x = std::max(nameSize.x, static_cast<float>(letter.x + letter.width));
    constexpr double kDepth = 0.1;
    const auto solid = std::make_shared<scene::SCNText>(name, attributes, kDepth);
    solid->setFlatness(kDepth);
    solid->materials = {flat(0.95f)};
    letters->geometry = name.empty() ? nullptr : solid;
    showName(!name.empty());
    fitName(nameUnits);
}

/// Places the name outside of the frame, at the left. The name of a tall frame is inside, because
/// the frame may reach the window's edge. Its size does not depend on the frame's units.
void OutlineMarks::fitName(float unitsOnStage) {
    nameUnits = unitsOnStage;
    label->scale = glm::vec3(unitsOnStage);
    const float height = kNameSize + 2 * kNamePadding;
    const bool isTall = frame.y > kTall * unitsOnStage;
    const bool isAbove = !isTall && namePlace == NamePlace::above;
    const float edge = isTall || isAbove ? frame.y / 2 : -frame.y / 2;
    const float up = isAbove ? kNameGap : -kNameGap - height;
    const float right = isTall ? kNameGap : 0;
    label->position = glm::vec3(-frame.x / 2, edge, 0) + glm::vec3(right, up, 0) * unitsOnStage;
    const glm::vec2 size = nameSize + 2 * kNamePadding;
    plate.place(size / 2.0f, size);
    constexpr float kBaseline = 0.15f; // share of the size: centres capitals in the plate
    letters->position = glm::vec3(kNamePadding, kNamePadding + kBaseline * kNameSize, 0);
}

} // namespace zelvo::node
