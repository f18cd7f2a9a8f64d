// SPDX-License-Identifier: MIT
#include "platform/scene/SceneFile.h"

#include "platform/foundation/Folders.h"
#include "platform/foundation/Process.h"
#include "platform/geometry/Flatten.h"
#include "platform/geometry/SVGPath.h"
#include "platform/scene/ParticleFile.h"
#include "platform/scene/SCNScene.h"
#include "platform/scene/SCNShapes.h"

#include <fmt/format.h>
#include <glm/trigonometric.hpp>

#include <array>
#include <fstream>
#include <iterator>
#include <limits>

namespace zelvo::scene {

namespace {

constexpr int kMaxNodes = 4096;
constexpr std::size_t kMaxPathLength = 20'000;
constexpr double kShapeFlatness = 0.1; ///< scene units
constexpr Range kLength{0.001, kMaxCoordinate};
constexpr Range kLengthOrNone{0, kMaxCoordinate};
constexpr Range kFraction{0, 1};
constexpr Range kAngleDegrees{0, 180};
constexpr Range kMask{0, std::numeric_limits<int>::max()};
constexpr Range kNotNegative{0, std::numeric_limits<double>::infinity()};

// clang-format off
constexpr auto kLightTypes = std::to_array<Named<SCNLightType>>({
    {"ambient",     SCNLightType::ambient    },
    {"directional", SCNLightType::directional},
    {"omni",        SCNLightType::omni       },
    {"spot",        SCNLightType::spot       }
});
// clang-format on

enum class ShapeKind { plane, box, sphere, torus, shape };

enum class ChamferKind { linear, rounded };

constexpr auto kChamfers = std::to_array<Named<ChamferKind>>(
    {{"linear", ChamferKind::linear}, {"rounded", ChamferKind::rounded}});

// clang-format off
constexpr auto kShapes = std::to_array<Named<ShapeKind>>({
    {"plane",  ShapeKind::plane },
    {"box",    ShapeKind::box   },
    {"sphere", ShapeKind::sphere},
    {"torus",  ShapeKind::torus },
    {"shape",  ShapeKind::shape }
});

// clang-format on

struct Context {
    Problems problems;
    int nodes = 0;
};

void readShadow(JsonObject& object, SCNLight& light) {
    if (const auto casts = object.boolean("castsShadow"))
        light.castsShadow = *casts;
    if (const auto mask = object.integer("shadowCasterMask", kMask))
        light.shadowCasterMask = static_cast<std::uint32_t>(*mask);
    if (const auto color = readColor(object, "shadowColor"))
        light.shadowColor = *color;
    if (const auto radius = object.number("shadowRadius", {0, 100}))
        light.shadowRadius = static_cast<float>(*radius);
    if (const auto radius = object.number("lampRadius", {0, 1000}))
        light.lampRadius = static_cast<float>(*radius);
    if (const auto size = object.integer("shadowMapSize", {16, 4096}))
        light.shadowMapSize = *size;
    if (const auto near = object.number("zNear", kLength))
        light.zNear = *near;
    if (const auto far = object.number("zFar", kLength))
        light.zFar = *far;
    if (light.zNear >= light.zFar)
        object.report("zFar", "must be beyond zNear");
}

SCNLightPtr readLight(const JsonValue& value, const std::string& place, Problems& problems) {
    auto light = std::make_shared<SCNLight>();
    JsonObject object(value, place, problems);
    if (const auto type = object.oneOf("type", kLightTypes)) {
        light->type = *type;
    } else {
        object.report("type", "is missing");
    }
    if (const auto color = readColor(object, "color"))
        light->color = *color;
    if (const auto intensity = object.number("intensity", kNotNegative))
        light->intensity = *intensity;
    if (const auto mask = object.integer("categoryBitMask", kMask))
        light->categoryBitMask = static_cast<std::uint32_t>(*mask);
    if (const auto inner = object.number("spotInnerAngle", kAngleDegrees))
        light->spotInnerAngle = *inner;
    if (const auto outer = object.number("spotOuterAngle", kAngleDegrees))
        light->spotOuterAngle = *outer;
    readShadow(object, *light);
    object.finish();
    return light;
}

geometry::BezierPath roundedProfile() {
    geometry::BezierPath profile;
    profile.moveTo({0, 1});
    profile.quadTo({1, 1}, {1, 0});
    return profile;
}

SCNGeometryPtr readPlaneOrBox(JsonObject& object, ShapeKind kind) {
    const double width = object.number("width", kLength).value_or(1);
    const double height = object.number("height", kLength).value_or(1);
    if (kind == ShapeKind::plane)
        return std::make_shared<SCNPlane>(width, height);
    const double length = object.number("length", kLength).value_or(1);
    const double chamfer = object.number("chamferRadius", kLengthOrNone).value_or(0);
    return std::make_shared<SCNBox>(width, height, length, chamfer);
}

SCNGeometryPtr readRound(JsonObject& object, ShapeKind kind) {
    const double radius = object.number("radius", kLength).value_or(1);
    if (kind == ShapeKind::torus)
        return std::make_shared<SCNTorus>(radius, object.number("pipeRadius", kLength).value_or(1));
    auto sphere = std::make_shared<SCNSphere>(radius);
    if (const auto count = object.integer("segments", {3, 512}))
        sphere->setSegmentCount(*count);
    return sphere;
}

/// An extruded solid from an outline of SVG path data (y down).
SCNGeometryPtr readShape(JsonObject& object) {
    const std::optional<std::string> data = object.string("path");
    const double depth = object.number("depth", kLength).value_or(1);
    const double chamfer = object.number("chamferRadius", kLengthOrNone).value_or(0);
    const double flatness = object.number("flatness", kLength).value_or(kShapeFlatness);
    const auto profile = object.oneOf("chamferProfile", kChamfers);
    if (!data || data->size() > kMaxPathLength) {
        object.report("path", fmt::format("must be path data of up to {} bytes", kMaxPathLength));
        return nullptr;
    }
    geometry::BezierPath path = geometry::bezierPath(*data);
    // clang-format off
    path.transform({
        {1, 0 },
        {0, -1},
        {0, 0 }
    });
    // clang-format on
    if (geometry::flatten(path, flatness).empty())
        object.report("path", "encloses nothing");
    auto shape = std::make_shared<SCNShape>(std::move(path), depth);
    shape->setChamferRadius(chamfer);
    shape->setFlatness(flatness);
    if (profile == ChamferKind::rounded)
        shape->setChamferProfile(roundedProfile());
    return shape;
}

SCNGeometryPtr readGeometry(const JsonValue& value, const std::string& place, Problems& problems) {
    JsonObject object(value, place, problems);
    const std::optional<ShapeKind> kind = object.oneOf("type", kShapes);
    if (!kind) {
        object.report("type", "is missing");
        return nullptr;
    }
    const bool isFlat = *kind == ShapeKind::plane || *kind == ShapeKind::box;
    SCNGeometryPtr geometry = *kind == ShapeKind::shape ? readShape(object)
                              : isFlat                  ? readPlaneOrBox(object, *kind)
                                                        : readRound(object, *kind);
    object.finish();
    return geometry;
}

void readPlacement(JsonObject& object, SCNNode& node) {
    if (const auto name = object.string("name"))
        node.name = *name;
    if (const auto position = object.vector3("position", kCoordinate))
        node.position = *position;
    if (const auto degrees = object.vector3("eulerAngles", kCoordinate))
        node.setEulerAngles(glm::radians(glm::vec3(*degrees)));
    if (const auto scale = object.vector3("scale", kCoordinate))
        node.scale = *scale;
    if (const auto opacity = object.number("opacity", kFraction))
        node.opacity = static_cast<float>(*opacity);
    if (const auto hidden = object.boolean("hidden"))
        node.isHidden = *hidden;
    if (const auto casts = object.boolean("castsShadow"))
        node.castsShadow = *casts;
    if (const auto mask = object.integer("categoryBitMask", kMask))
        node.categoryBitMask = static_cast<std::uint32_t>(*mask);
}

void readContents(JsonObject& object, SCNNode& node, Problems& problems) {
    if (const auto* light = object.find("light"))
        node.light = readLight(*light, object.placeOf("light"), problems);
    if (const auto* geometry = object.find("geometry"))
        node.geometry = readGeometry(*geometry, object.placeOf("geometry"), problems);
    const JsonValue* material = object.find("material");
    if (material == nullptr)
        return;
    const SCNMaterialPtr read = readMaterial(*material, object.placeOf("material"), problems);
    if (node.geometry) {
        node.geometry->materials = {read};
    } else {
        object.report("material", "needs a geometry beside it");
    }
}

void readNodes(JsonObject& owner, std::string_view key, SCNNode& parent, Context& context) {
    owner.forEach(key, [&](const JsonValue& value, const std::string& place) {
        if (++context.nodes > kMaxNodes) {
            if (context.nodes == kMaxNodes + 1)
                context.problems.add(value.line, fmt::format("over {} nodes", kMaxNodes));
            return;
        }
        const auto node = std::make_shared<SCNNode>();
        JsonObject object(value, place, context.problems);
        readPlacement(object, *node);
        readContents(object, *node, context.problems);
        readParticles(object, *node, context.problems);
        readNodes(object, "children", *node, context);
        object.finish();
        parent.addChildNode(node);
    });
}

} // namespace

tl::unexpected<foundation::Error>
failureOf(const foundation::Problem& problem, const std::string& file) {
    return foundation::fail(
        foundation::Cause::malformed,
        fmt::format("{}: line {}: {}", file, problem.line, problem.text));
}

foundation::Result<SCNScenePtr>
SCNScene::fromJSON(const std::string& text, const std::string& name) {
    const auto document = foundation::parseJson(text);
    if (!document)
        return failureOf(document.error(), name);
    auto scene = std::make_shared<SCNScene>();
    Context context;
    JsonObject object(*document, "the scene", context.problems);
    readNodes(object, "nodes", *scene->rootNode(), context);
    scene->background = readProperty(object, "background", context.problems);
    scene->lightingEnvironment = readProperty(object, "lightingEnvironment", context.problems);
    object.finish();
    if (!context.problems.isEmpty())
        return failureOf(context.problems.sorted(1).front(), name);
    return scene;
}

SCNScenePtr SCNScene::sceneNamed(const std::string& name) {
    const std::filesystem::path file = foundation::mainBundle().path(name);
    std::ifstream in(file, std::ios::binary);
    if (file.empty() || !in.good())
        foundation::endWithoutResource(name + " is missing");
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    foundation::Result<SCNScenePtr> scene = fromJSON(text, file.filename().string());
    if (!scene)
        foundation::endWithoutResource(scene.error().message);
    return std::move(*scene);
}

} // namespace zelvo::scene
