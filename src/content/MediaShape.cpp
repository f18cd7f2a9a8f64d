// SPDX-License-Identifier: MIT
#include "content/MediaShape.h"

#include "content/ShapeOutlines.h"
#include "platform/foundation/Check.h"
#include "platform/geometry/Flatten.h"
#include "platform/geometry/Primitives.h"
#include "platform/geometry/SVGPath.h"
#include "platform/scene/SCNScene.h"
#include "platform/scene/SCNShapes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zelvo::content {

/// A shape's place in the resources, and its size.
struct SceneFigure {
    std::string_view name; ///< of the shape
    const char* file;
    const char* nodeName;
    float scale;
};

namespace {

constexpr double kCubeSide = 130;
constexpr double kCubeChamfer = 3;
constexpr float kSphereRadius = 80;
constexpr int kSphereSegments = 128;
constexpr double kFlatness = 0.1; // in units of an outline

// clang-format off
constexpr auto kSceneFigures = std::to_array<SceneFigure>({
    {"Wings",      "Wings.scn",      "wings",      7    },
    {"Gamer-Keys", "WASD.scn",       "wasd",       0.38f},
    {"GamePad",    "Controller.scn", "controller", 10   },
});
// clang-format on

constexpr auto kOrder = std::to_array<std::string_view>({
    "None",      "Star 1",   "Star 2",    "Wings",      "Shield 1", "Shield 2",
    "Shield 3",  "Shield 4", "Separator", "Gamer-Keys", "GamePad",  "YouTube",
    "Instagram", "Twitter",  "Snapchat",  "Heart",      "Form 1",   "SpeechBubble",
    "Diamond",   "Stars",    "Rect 1",    "Rect 2",     "Rect 3",   "Rect 4",
    "Rect 5",    "Cube",     "Circle",    "Sphere",     "Arrows",
});

geometry::BezierPath roundedProfile() {
    geometry::BezierPath profile;
    profile.moveTo({0, 1});
    profile.quadTo({1, 1}, {1, 0});
    return profile;
}

/// The outline moved to the origin, y up.
geometry::BezierPath placedPath(const ShapeOutline& outline) {
    geometry::BezierPath path = geometry::bezierPath(outline.path);
    // clang-format off
    path.transform({
        {1,               0               },
        {0,               -1              },
        {outline.shift.x, -outline.shift.y}
    });
    // clang-format on
    return path;
}

/// The side walls follow the outline, so the solid's longer side is known before it is built.
float largerSide(const geometry::BezierPath& path) {
    glm::dvec2 low(geometry::kMaxCoordinate);
    glm::dvec2 high(-geometry::kMaxCoordinate);
    for (const geometry::FlatContour& contour : geometry::flatten(path, kFlatness)) {
        for (const geometry::FlatVertex& vertex : contour) {
            low = glm::min(low, vertex.position);
            high = glm::max(high, vertex.position);
        }
    }
    return static_cast<float>(std::max(high.x - low.x, high.y - low.y));
}

MediaShapePtr makeShape(std::string_view name) {
    const auto outlines = shapeOutlines();
    const auto outline = std::ranges::find(outlines, name, &ShapeOutline::name);
    if (outline != outlines.end())
        return std::make_shared<OutlineShape>(*outline);
    const auto* const figure = std::ranges::find(kSceneFigures, name, &SceneFigure::name);
    if (figure != kSceneFigures.end())
        return std::make_shared<SceneShape>(*figure);
    if (name == "Cube")
        return std::make_shared<BoxShape>();
    if (name == "Sphere")
        return std::make_shared<SphereShape>();
    CHECK(name == "None", "no shape is drawn for {}", name);
    return std::make_shared<NoShape>();
}

/// A ball on which pictures are not drawn together at poles.
class Ball final : public scene::SCNGeometry {
    [[nodiscard]] geometry::Mesh build() const override {
        return geometry::makeSixSidedSphere(kSphereRadius, kSphereSegments);
    }
};

} // namespace

MediaShape::MediaShape(std::string shapeName)
    : node(std::make_shared<node::ReferNode>())
    , name(std::move(shapeName)) {}

void MediaShape::applyMaterial(const scene::SCNMaterialPtr& material) {
    material->setContentsScale(1);
    if (node->geometry)
        node->geometry->materials = {material};
    for (const scene::SCNNodePtr& child : node->childNodes()) {
        child->enumerateHierarchy([&material](scene::SCNNode& below) {
            if (below.geometry)
                below.geometry->materials = {material};
            below.categoryBitMask = node::kContentMask;
        });
    }
}

NoShape::NoShape()
    : MediaShape("None") {}

OutlineShape::OutlineShape(const ShapeOutline& outline)
    : MediaShape(std::string(outline.name))
    , minMax(outline.minMax)
    , subNode(std::make_shared<node::DefaultSCNNode>()) {
    const geometry::BezierPath path = placedPath(outline);
    const auto solid = std::make_shared<scene::SCNShape>(path, outline.depth);
    solid->setFlatness(kFlatness);
    solid->setChamferRadius(outline.chamfer);
    solid->setChamferProfile(roundedProfile());
    subNode->geometry = solid;
    subNode->categoryBitMask = node::kContentMask;
    subNode->scale = glm::vec3(minMax / largerSide(path));
    node->addChildNode(subNode);
}

SceneShape::SceneShape(const SceneFigure& figure)
    : MediaShape(std::string(figure.name)) {
    const scene::SCNScenePtr file = scene::SCNScene::sceneNamed(figure.file);
    const scene::SCNNodePtr part =
        file->rootNode()->childNodeWithName(figure.nodeName, scene::SCNNode::Search::recursively);
    CHECK(part != nullptr, "{} has no node named \"{}\"", figure.file, figure.nodeName);
    part->categoryBitMask = node::kContentMask;
    part->scale = glm::vec3(figure.scale);
    node->addChildNode(part);
}

BoxShape::BoxShape()
    : MediaShape("Cube") {
    node->geometry = std::make_shared<scene::SCNBox>(kCubeSide, kCubeSide, kCubeSide, kCubeChamfer);
    node->position = glm::vec3(0);
    node->categoryBitMask = node::kContentMask;
}

SphereShape::SphereShape()
    : MediaShape("Sphere") {
    node->geometry = std::make_shared<Ball>();
    node->categoryBitMask = node::kContentMask;
}

const std::vector<MediaShapePtr>& mediaShapes() {
    static const std::vector<MediaShapePtr> shapes = [] {
        std::vector<MediaShapePtr> all;
        std::ranges::transform(kOrder, std::back_inserter(all), makeShape);
        return all;
    }();
    return shapes;
}

} // namespace zelvo::content
