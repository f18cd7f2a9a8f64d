// SPDX-License-Identifier: MIT
#include "platform/usd/SceneReader.h"

#include "platform/usd/DisplayColor.h"
#include "platform/usd/MaterialBinding.h"
#include "platform/usd/MeshReader.h"
#include "platform/usd/Shapes.h"
#include "platform/usd/Transforms.h"

#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/quaternion.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <string_view>
#include <utility>

namespace zelvo::usd {

using foundation::Cause;
using foundation::fail;
using foundation::Result;
using object::Polygons;

namespace {

bool isDrawable(const Prim& prim) {
    constexpr auto kTypes = std::to_array<std::string_view>(
        {"Mesh",
         "Cube",
         "Sphere",
         "Cylinder",
         "Cone",
         "Capsule",
         "Plane",
         "Cylinder_1",
         "Capsule_1"});
    return std::ranges::find(kTypes, prim.typeName) != kTypes.end();
}

bool isDoubleSided(const Prim& prim) {
    const auto authored = prim.number("doubleSided");
    return authored ? *authored != 0 : prim.typeName == "Plane";
}

bool isFinite(const glm::dmat4& matrix) {
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            if (!std::isfinite(matrix[column][row]))
                return false;
        }
    }
    return true;
}

/// Where the instances of an instancer stand.
class InstanceTransforms {
public:
    explicit InstanceTransforms(const Prim& prim)
        : positions(prim.floats("positions", 3))
        , turns(prim.floats("orientations", 4))
        , scales(prim.floats("scales", 3)) {}

    [[nodiscard]] glm::dmat4 at(std::size_t i) const {
        glm::dmat4 matrix(1);
        if (const float* p = valuesAt(positions, i))
            matrix = glm::translate(matrix, glm::dvec3(p[0], p[1], p[2]));
        if (const float* q = valuesAt(turns, i)) {
            const glm::dquat turn(q[3], q[0], q[1], q[2]);
            if (glm::length(turn) > 0)
                matrix *= glm::mat4_cast(glm::normalize(turn));
        }
        if (const float* s = valuesAt(scales, i))
            matrix = glm::scale(matrix, glm::dvec3(s[0], s[1], s[2]));
        return matrix;
    }

private:
    static const float* valuesAt(const std::shared_ptr<const FloatArray>& array, std::size_t i) {
        const bool isThere = array != nullptr && (i + 1) * array->width <= array->values.size();
        return isThere ? array->values.data() + i * array->width : nullptr;
    }

    std::shared_ptr<const FloatArray> positions, turns, scales;
};

Result<void> tooMany() {
    return fail(Cause::tooLarge, "there is too much in it to be drawn");
}

} // namespace

/// Colours of a basic shape: one for all of it.
Polygons SceneReader::polygonsOf(const Prim& prim) {
    if (prim.typeName == "Mesh")
        return MeshReader(prim, surfaces).read();
    Polygons shape = shapeOf(prim).value_or(Polygons());
    const std::string path = boundMaterial(prim);
    const Surface* surface = path.empty() ? nullptr : surfaces.read(path);
    if (surface != nullptr) {
        for (Polygons::Face& face : shape.faces)
            face.material = static_cast<std::uint32_t>(surface->material);
        return shape;
    }
    Numbers color = prim.numbers("primvars:displayColor", 3);
    if (color.empty())
        color = {kPlainGray, kPlainGray, kPlainGray};
    const double opacity = prim.number("primvars:displayOpacity").value_or(1);
    const glm::vec3 linear(color[0], color[1], color[2]);
    shape.pointColors.assign(
        shape.points.size(), displayColor(linear, static_cast<float>(opacity)));
    return shape;
}

Result<const SceneReader::Drawn*> SceneReader::drawnOf(const Prim& prim) {
    const auto known = drawn.find(&prim);
    if (known != drawn.end())
        return &known->second;
    Polygons polygons = polygonsOf(prim);
    Drawn made;
    made.points = polygons.points.size();
    made.faces = polygons.faces.size();
    made.triangles = polygons.corners.size() - 2 * polygons.faces.size();
    if (!cornerBudget.take(polygons.corners.size()))
        return tl::unexpected(tooMany().error());
    if (polygons.faces.empty()) {
        stage.warnings().add(prim.path + " has no faces");
        return &drawn.emplace(&prim, made).first->second;
    }
    object::PieceOptions options;
    options.name = prim.name;
    options.isDoubleSided = isDoubleSided(prim);
    const auto added = object::addPieces(scene, std::move(polygons), options, watch);
    if (!added)
        return tl::unexpected(added.error());
    made.pieces = *added;
    if (watch.isAdvanced)
        watch.isAdvanced(
            static_cast<double>(visitedPrims) / static_cast<double>(stage.primCount()));
    return &drawn.emplace(&prim, made).first->second;
}

Result<void> SceneReader::draw(const Prim& prim, const glm::dmat4& world) {
    const auto made = drawnOf(prim);
    if (!made)
        return tl::unexpected(made.error());
    const Drawn& it = **made;
    if (it.pieces.count == 0 || !isFinite(world))
        return {};
    object::place(scene, it.pieces, world);
    ++scene.figures.meshes;
    scene.figures.points += it.points;
    scene.figures.faces += it.faces;
    triangles += it.triangles;
    return {};
}

Result<void> SceneReader::visitChildren(const Prim& prim, const Inherited& inherited) {
    for (const auto& child : prim.children) {
        if (auto visited = visit(*child, inherited, Need::defined); !visited)
            return visited;
    }
    return {};
}

/// The prototypes stand wherever they like, and are drawn only by the instances.
Result<void> SceneReader::visitInstances(const Prim& prim, const Inherited& inherited) {
    const auto prototypes = prim.targets("prototypes");
    const auto numbers = prim.ints("protoIndices");
    const InstanceTransforms transforms(prim);
    const auto hiddenIds = prim.ints("invisibleIds");
    const std::set<std::int32_t> hidden(hiddenIds.begin(), hiddenIds.end());
    const auto ids = prim.ints("ids");
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto id = i < ids.size() ? ids[i] : static_cast<std::int32_t>(i);
        const auto number = static_cast<std::size_t>(numbers[i]);
        if (numbers[i] < 0 || number >= prototypes.size() || hidden.contains(id))
            continue;
        const Prim* prototype = stage.at(prototypes[number]);
        if (prototype == nullptr)
            continue;
        Inherited own = inherited;
        own.world = inherited.world * transforms.at(i);
        ++own.depth;
        if (auto visited = visit(*prototype, own, Need::described); !visited)
            return visited;
    }
    return {};
}

Result<void> SceneReader::visit(const Prim& prim, const Inherited& inherited, Need need) {
    if (watch.stop.stop_requested())
        return tl::unexpected(object::cancelledError());
    visitedPrims = std::min(visitedPrims + 1, stage.primCount());
    // An instancer may draw itself: the depth ends that.
    if (!visitBudget.take(1) || inherited.depth > 2 * kMaxDepth)
        return tooMany();
    const bool isMaterial = prim.typeName == "Material" || prim.typeName == "Shader";
    const bool isThere = need == Need::described || prim.isDefined;
    if (!isThere || isMaterial || prim.text("visibility") == "invisible")
        return {};
    const LocalTransform local = localTransformOf(prim);
    Inherited own;
    own.depth = inherited.depth + 1;
    own.world = local.ignoresParent ? local.matrix : inherited.world * local.matrix;
    const std::string purpose = prim.text("purpose");
    own.isForDisplay =
        purpose.empty() ? inherited.isForDisplay : purpose != "proxy" && purpose != "guide";
    if (prim.typeName == "PointInstancer")
        return visitInstances(prim, own);
    if (isDrawable(prim) && own.isForDisplay) {
        if (auto done = draw(prim, own.world); !done)
            return done;
    }
    return visitChildren(prim, own);
}

Result<object::ObjectScene> SceneReader::read() {
    constexpr double kDefaultMetersPerUnit = 0.01;
    const Layer& layer = stage.rootLayer();
    const double meters = layer.metersPerUnit.value_or(kDefaultMetersPerUnit);
    const bool isUsable = std::isfinite(meters) && meters > 0;
    scene.metersPerUnit = isUsable ? meters : kDefaultMetersPerUnit;
    scene.upAxis = layer.upAxis == "Z" ? object::UpAxis::z : object::UpAxis::y;
    if (const auto visited = visitChildren(stage.root(), {}); !visited)
        return tl::unexpected(visited.error());
    if (scene.placements.empty())
        return fail(Cause::malformed, "there is nothing in it that can be drawn");
    for (const std::string& line : stage.warnings().lines())
        scene.warn(line);
    object::completeFigures(scene);
    scene.figures.triangles = triangles;
    return std::move(scene);
}

} // namespace zelvo::usd
