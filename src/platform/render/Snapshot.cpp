// SPDX-License-Identifier: MIT
#include "platform/render/Snapshot.h"

#include "platform/scene/MaterialOpacity.h"
#include "platform/scene/SCNColoredGeometry.h"

#include <glm/geometric.hpp>
#include <glm/matrix.hpp>
#include <glm/vector_relational.hpp>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace zelvo::render {
namespace {

using scene::constantOpacity;
using scene::SCNMaterial;
using scene::SCNNode;

const SCNMaterial& defaultMaterial() {
    static const SCNMaterial kMaterial;
    return kMaterial;
}

const SCNMaterial& materialOf(const scene::SCNGeometry& geometry, std::size_t element) {
    const SCNMaterial* material = geometry.materialFor(element);
    return material != nullptr ? *material : defaultMaterial();
}

bool hasFloor(const SCNNode& node) {
    return std::ranges::any_of(node.geometry->materials, [](const scene::SCNMaterialPtr& material) {
        return material != nullptr && material->floor.has_value();
    });
}

const SCNNode* firstWithCamera(const SCNNode& node) {
    if (node.camera)
        return &node;
    for (const scene::SCNNodePtr& child : node.childNodes()) {
        if (const SCNNode* found = firstWithCamera(*child))
            return found;
    }
    return nullptr;
}

glm::mat4 placeOf(const SCNNode& node, const Moment& moment) {
    return moment.shutter != nullptr ? moment.shutter->worldTransform(node, moment.share)
                                     : node.worldTransform();
}

/// Turns a node's axes to those of the camera; its size and position stay.
glm::mat4 facing(const glm::mat4& world, const glm::mat3& axes) {
    glm::mat4 result = world;
    for (int axis = 0; axis < 3; ++axis) {
        result[axis] = glm::vec4(axes[axis] * glm::length(glm::vec3(world[axis])), 0);
    }
    return result;
}

/// The coarsest version of a mesh that cannot be told from it, where a length of 1 has this many
/// pixels.
std::size_t levelFor(const geometry::Mesh& mesh, float pixels) {
    // Pixels. Where the surface is a whole pixel off, its shading shows the edges of the triangles.
    constexpr float kUnseen = 0.7F;
    std::size_t level = 0;
    while (level < mesh.coarser.size() && mesh.coarser[level].error * pixels < kUnseen) {
        ++level;
    }
    return level;
}

/// With the room that the near plane takes.
bool contains(const geometry::Box& box, const glm::mat4& world, const glm::vec3& place) {
    constexpr float kRoom = 1.1F;
    const glm::vec3 local(glm::inverse(world) * glm::vec4(place, 1));
    const glm::vec3 middle = (box.min + box.max) * 0.5F;
    const glm::vec3 half = (box.max - box.min) * 0.5F * kRoom;
    return glm::all(glm::lessThanEqual(glm::abs(local - middle), half));
}

bool isShown(const SCNNode& node, bool isMirrored) {
    return !node.isHidden && (node.showsOnFloors || !isMirrored);
}

float largestScale(const glm::mat4& world) {
    return std::max(
        {glm::length(glm::vec3(world[0])),
         glm::length(glm::vec3(world[1])),
         glm::length(glm::vec3(world[2]))});
}

} // namespace

bool canShowBackFaces(const VisibleNode& node, const glm::vec3& place) {
    return !node.geometry->mesh().isClosedSolid ||
           contains(node.geometry->boundingBox(), node.world, place);
}

geometry::MeshElement drawnRange(const VisibleNode& node, std::size_t element) {
    const geometry::Mesh& mesh = node.geometry->mesh();
    if (node.level == 0)
        return mesh.elements[element];
    return {0, static_cast<std::uint32_t>(mesh.coarser[node.level - 1].indices.size())};
}

bool Snapshot::isTranslucent(const SCNMaterial& material, float opacity) {
    using scene::SCNBlendMode;
    if (opacity * constantOpacity(material) < 1 - kInvisible)
        return true;
    if (material.blendMode != SCNBlendMode::alpha && material.blendMode != SCNBlendMode::replace)
        return true;
    if (material.blendMode == SCNBlendMode::replace)
        return false; // what the pictures leave out is cut out
    return material.transparent.image() != nullptr || holes.isIn(material.diffuse.image());
}

void Snapshot::take(
    const scene::SCNScene& scene, const SCNNode* pointOfView, float aspect, int height) {
    sight_ = {pointOfView};
    isMirrored = false;
    seconds = 0;
    placeCamera(scene, aspect);
    pixelsAtOne = camera_.projection[1][1] * static_cast<float>(height) / 2;
    collect(scene);
}

void Snapshot::take(const scene::SCNScene& scene, const Sight& sight, Size size) {
    sight_ = sight;
    isMirrored = false;
    const Moment& moment = sight.moment;
    const double opened = moment.shutter != nullptr ? moment.shutter->openedAt() : scene.time();
    seconds = static_cast<float>((1 - moment.share) * (scene.time() - opened));
    placeCamera(scene, static_cast<float>(size.aspect()));
    camera_.projection[2][0] -= 2 * moment.shift.x / static_cast<float>(size.width);
    camera_.projection[2][1] -= 2 * moment.shift.y / static_cast<float>(size.height);
    camera_.viewProjection = camera_.projection * camera_.view;
    pixelsAtOne = camera_.projection[1][1] * static_cast<float>(size.height) / 2;
    collect(scene);
}

void Snapshot::takeMirrored(const scene::SCNScene& scene, const Snapshot& other, float height) {
    constexpr float kCoarser = 0.25f; // the mirror image has fewer pixels
    camera_ = mirrored(other.camera_, height);
    sceneCamera_ = other.sceneCamera_;
    sight_ = other.sight_;
    isMirrored = true;
    seconds = other.seconds;
    pixelsAtOne = other.pixelsAtOne * kCoarser;
    collect(scene);
}

void Snapshot::collect(const scene::SCNScene& scene) {
    floor_.reset();
    nodes_.clear();
    opaque_.clear();
    translucent_.clear();
    lights_.clear();
    emitters_.clear();
    fades = 0;
    const Frustum frustum(camera_.viewProjection);
    walk(*scene.rootNode(), {glm::mat4(1), 1, 0}, frustum);
    std::sort(opaque_.begin(), opaque_.end(), [](const DrawItem& a, const DrawItem& b) {
        return std::tie(a.sortDepth, a.node, a.element) < std::tie(b.sortDepth, b.node, b.element);
    });
    sortTranslucent();
}

void Snapshot::sortTranslucent() {
    groupDepths.assign(fades + 1, 0);
    for (const DrawItem& item : translucent_) {
        groupDepths[item.fade] = std::max(groupDepths[item.fade], item.sortDepth);
    }
    for (DrawItem& item : translucent_) {
        item.groupDepth = item.fade != 0 ? groupDepths[item.fade] : item.sortDepth;
    }
    std::sort(translucent_.begin(), translucent_.end(), [](const DrawItem& a, const DrawItem& b) {
        return std::tie(b.groupDepth, a.fade, b.sortDepth, a.node, a.element) <
               std::tie(a.groupDepth, b.fade, a.sortDepth, b.node, b.element);
    });
}

void Snapshot::placeCamera(const scene::SCNScene& scene, float aspect) {
    const SCNNode* node =
        sight_.pointOfView != nullptr ? sight_.pointOfView : firstWithCamera(*scene.rootNode());
    sceneCamera_ = node != nullptr ? node->camera.get() : nullptr;
    const scene::SCNCamera fallback;
    camera_ = makeCameraView(
        node != nullptr ? placeOf(*node, sight_.moment) : glm::mat4(1),
        sceneCamera_ != nullptr ? *sceneCamera_ : fallback,
        aspect);
}

bool Snapshot::isLeftOut(const SCNNode& node) const {
    return (node.categoryBitMask & sight_.leftOut) != 0;
}

void Snapshot::walk(const SCNNode& node, const Inherited& inherited, const Frustum& frustum) {
    if (!isShown(node, isMirrored))
        return;
    const Moment& moment = sight_.moment;
    Inherited own = inherited;
    own.showsOnFloors = inherited.showsOnFloors && node.showsOnFloors;
    if (moment.shutter != nullptr) {
        own.world *= moment.shutter->transform(node, moment.share);
        own.opacity *= moment.shutter->opacity(node, moment.share);
    } else {
        own.world *= node.transform();
        own.opacity *= node.opacity.presented();
    }
    if (own.fade == 0 && own.opacity < 1 - kInvisible)
        own.fade = ++fades;
    if (node.isBillboard)
        own.world = facing(own.world, camera_.axes);
    if (node.light && node.light->intensity.presented() > 0) {
        const glm::vec3 backwards(own.world[2]);
        const float length = glm::length(backwards);
        lights_.push_back(
            {node.light.get(),
             glm::vec3(own.world[3]) + camera_.axes[2] * node.light->lift,
             length > 0 ? -backwards / length : glm::vec3(0, 0, -1)});
    }
    if (node.geometry && own.opacity >= kInvisible && (!isLeftOut(node) || hasFloor(node)))
        addNode(node, own, frustum);
    for (const auto& emitter : node.emitters()) {
        if (!emitter->live().empty() && !isLeftOut(node))
            emitters_.push_back({emitter.get(), own.opacity, seconds});
    }
    for (const scene::SCNNodePtr& child : node.childNodes()) {
        walk(*child, own, frustum);
    }
}

void Snapshot::addNode(const SCNNode& node, const Inherited& own, const Frustum& frustum) {
    const geometry::Mesh& mesh = node.geometry->mesh();
    if (mesh.indices.empty())
        return;
    const geometry::Box box = node.geometry->boundingBox();
    const bool isInView = frustum.mayContain(box, own.world);
    // Nodes outside the view are kept: their shadows may be visible.
    VisibleNode visible{
        own.world,
        node.geometry.get(),
        own.opacity,
        node.categoryBitMask,
        node.castsShadow,
        isInView,
        0,
        0,
        0,
        node.textureShift,
        own.fade,
        own.showsOnFloors};
    const glm::vec4 depthOf =
        -glm::vec4(camera_.view[0][2], camera_.view[1][2], camera_.view[2][2], camera_.view[3][2]);
    const glm::vec3 half = (box.max - box.min) * 0.5f;
    visible.middle = glm::dot(depthOf, own.world * glm::vec4((box.min + box.max) * 0.5f, 1));
    visible.farthest = visible.middle + std::abs(glm::dot(depthOf, own.world[0])) * half.x +
                       std::abs(glm::dot(depthOf, own.world[1])) * half.y +
                       std::abs(glm::dot(depthOf, own.world[2])) * half.z;
    if (!mesh.coarser.empty() && pixelsAtOne > 0) {
        const float nearest = 2 * visible.middle - visible.farthest;
        const float distance = std::max((nearest + visible.middle) / 2, 1.0F);
        visible.level = levelFor(mesh, largestScale(own.world) * pixelsAtOne / distance);
    }
    nodes_.push_back(visible);
    const auto index = static_cast<std::uint32_t>(nodes_.size() - 1);
    if (isInView && isLeftOut(node)) {
        noteFloorsLeftOut(index);
    } else if (isInView) {
        addItems(index);
    }
}

void Snapshot::noteFloor(std::uint32_t index, std::uint32_t element, bool isLeftOut) {
    const VisibleNode& node = nodes_[index];
    const SCNMaterial& material = materialOf(*node.geometry, element);
    if (!material.floor || floor_)
        return;
    floor_ = {
        {index, element, &material, node.farthest, false},
        node.world[3].y + material.floor->height,
        node.opacity,
        isLeftOut};
}

void Snapshot::forEachPart(
    const Floor& floor, const std::function<void(const DrawItem&)>& call) const {
    const scene::SCNGeometry& geometry = *nodes_[floor.item.node].geometry;
    DrawItem part = floor.item;
    for (; part.element < geometry.mesh().elements.size(); ++part.element) {
        const bool isDrawn = geometry.mesh().elements[part.element].indexCount > 0;
        if (isDrawn && &materialOf(geometry, part.element) == floor.item.material)
            call(part);
    }
}

void Snapshot::noteFloorsLeftOut(std::uint32_t index) {
    const geometry::Mesh& mesh = nodes_[index].geometry->mesh();
    for (std::uint32_t element = 0; element < mesh.elements.size(); ++element) {
        if (mesh.elements[element].indexCount > 0)
            noteFloor(index, element, true);
    }
}

void Snapshot::addItems(std::uint32_t index) {
    const VisibleNode& node = nodes_[index];
    const geometry::Mesh& mesh = node.geometry->mesh();
    for (std::uint32_t element = 0; element < mesh.elements.size(); ++element) {
        if (mesh.elements[element].indexCount == 0)
            continue;
        const SCNMaterial* material = &materialOf(*node.geometry, element);
        noteFloor(index, element, false);
        if (node.opacity * constantOpacity(*material) < kInvisible)
            continue;
        // Opaque items are sorted by their farthest corner, so that a floor that reaches to the
        // horizon comes after what stands on it.
        const auto* const colored = scene::coloredGeometry(*node.geometry, *material);
        const bool hasClearColors = colored != nullptr && colored->isSeenThrough();
        if (hasClearColors || isTranslucent(*material, node.opacity)) {
            translucent_.push_back({index, element, material, node.middle, true, node.fade});
        } else {
            opaque_.push_back({index, element, material, node.farthest, false});
        }
    }
}

} // namespace zelvo::render
