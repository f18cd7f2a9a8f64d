// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/CameraView.h"
#include "platform/render/PictureHoles.h"
#include "platform/render/Shutter.h"
#include "platform/render/Size.h"
#include "platform/scene/SCNScene.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace zelvo::render {

/// A node with geometry, in its state at this frame.
struct VisibleNode {
    glm::mat4 world{1};
    const scene::SCNGeometry* geometry = nullptr;
    float opacity = 1; ///< multiplied by those of its ancestors
    std::uint32_t categoryBitMask = 1;
    bool castsShadow = true;
    bool isInView = true;  ///< false: only its shadow may be visible
    float farthest = 0;    ///< distance along the view of its box's farthest corner, scene units
    float middle = 0;      ///< the same for the middle of its box
    std::size_t level = 0; ///< 0: the whole mesh; n: the nth of Mesh::coarser
    glm::vec2 textureShift{0};
    /// Nodes that fade with the same ancestor share a number: they fade as one thing. 0: none
    /// fades.
    std::uint32_t fade = 0;
    bool showsOnFloors = true;
};

/// Whether back faces of a double-sided material can be seen from a place. A closed solid hides
/// them, unless the place is in its box.
[[nodiscard]] bool canShowBackFaces(const VisibleNode& node, const glm::vec3& place);

/// The range of indices of an element, in the level at which the node is drawn.
[[nodiscard]] geometry::MeshElement drawnRange(const VisibleNode& node, std::size_t element);

/// One element of a visible node, drawn by one call.
struct DrawItem {
    std::uint32_t node = 0; ///< index into Snapshot::nodes()
    std::uint32_t element = 0;
    const scene::SCNMaterial* material = nullptr; ///< never null
    float sortDepth = 0;
    bool isTranslucent = false;
    std::uint32_t fade = 0; ///< that of the node
    float groupDepth = 0;   ///< of all that fades together
};

struct PlacedLight {
    const scene::SCNLight* light = nullptr;
    glm::vec3 position{0};
    glm::vec3 direction{0, 0, -1}; ///< unit vector of the light's direction
};

/// An emitter with live particles on a visible node.
struct PlacedEmitter {
    const scene::ParticleEmitter* emitter = nullptr;
    float opacity = 1; ///< multiplied by those of the ancestors
    float seconds = 0; ///< from the moment that is drawn to the particles' state
};

/// A flat, sorted list of what to draw in this frame. It is rebuilt each frame but reuses its
/// memory. It points into the scene, so use it before the scene changes.
class Snapshot {
public:
    /// Opacities below this are not drawn, because they change no 8-bit pixel.
    static constexpr float kInvisible = 1.0f / 512.0f;

    /// `pointOfView` may be null: then the first node with a camera is used. A scene without a
    /// camera is seen from the origin. `height` is that of the picture in pixels: meshes with more
    /// triangles than it can show are taken in a coarser version. 0: all are taken whole.
    void take(
        const scene::SCNScene& scene,
        const scene::SCNNode* pointOfView,
        float aspect,
        int height = 0);

    /// From where, when, and without which categories a scene is looked at.
    struct Sight {
        const scene::SCNNode* pointOfView = nullptr;
        Moment moment{};
        std::uint32_t leftOut = 0;
    };

    /// With the picture's size in pixels, which the moment's shift needs.
    void take(const scene::SCNScene& scene, const Sight& sight, Size size);

    /// What a level mirror at this height shows of the scene. `other` was taken from the scene in
    /// this frame. Things under the mirror are cut off by the camera's near plane.
    void takeMirrored(const scene::SCNScene& scene, const Snapshot& other, float height);

    [[nodiscard]] const CameraView& camera() const { return camera_; }

    /// Null if the scene has no camera.
    [[nodiscard]] const scene::SCNCamera* sceneCamera() const { return sceneCamera_; }

    /// A surface in view that shows what stands on it (SCNMaterial::floor).
    struct Floor {
        DrawItem item;    ///< the first of them, if several elements of the node are the floor
        float height = 0; ///< of its level part, in the world
        float opacity = 1;
        bool isLeftOut = false; ///< is not drawn itself, but still shows what stands on it
    };

    /// The first one in tree order. One that is left out counts, too.
    [[nodiscard]] const std::optional<Floor>& floor() const { return floor_; }

    /// All elements that are this floor.
    void forEachPart(const Floor& floor, const std::function<void(const DrawItem&)>& call) const;

    [[nodiscard]] std::span<const VisibleNode> nodes() const { return nodes_; }

    /// Sorted front to back.
    [[nodiscard]] std::span<const DrawItem> opaque() const { return opaque_; }

    /// Sorted back to front; the elements of one node stay together, and so do nodes that fade
    /// together.
    [[nodiscard]] std::span<const DrawItem> translucent() const { return translucent_; }

    /// Lights with an effect, in tree order.
    [[nodiscard]] std::span<const PlacedLight> lights() const { return lights_; }

    /// Emitters with live particles, in tree order.
    [[nodiscard]] std::span<const PlacedEmitter> emitters() const { return emitters_; }

private:
    struct Inherited {
        glm::mat4 world;
        float opacity;
        std::uint32_t fade = 0;
        bool showsOnFloors = true;
    };

    void collect(const scene::SCNScene& scene);
    void sortTranslucent();
    void placeCamera(const scene::SCNScene& scene, float aspect);
    [[nodiscard]] bool isLeftOut(const scene::SCNNode& node) const;
    void walk(const scene::SCNNode& node, const Inherited& inherited, const Frustum& frustum);
    void addNode(const scene::SCNNode& node, const Inherited& own, const Frustum& frustum);
    void addItems(std::uint32_t index);
    /// If the element is a floor and none is known yet.
    void noteFloor(std::uint32_t index, std::uint32_t element, bool isLeftOut);
    /// Nothing of a node that is left out is drawn.
    void noteFloorsLeftOut(std::uint32_t index);
    /// Whether blending is needed to draw this material with this opacity.
    [[nodiscard]] bool isTranslucent(const scene::SCNMaterial& material, float opacity);

    Sight sight_;
    float seconds = 0; ///< from the moment to the scene's time
    bool isMirrored = false;
    CameraView camera_;
    float pixelsAtOne = 0; ///< pixels of a length of 1 at a distance of 1
    const scene::SCNCamera* sceneCamera_ = nullptr;
    std::optional<Floor> floor_;
    std::vector<VisibleNode> nodes_;
    std::vector<DrawItem> opaque_;
    std::vector<DrawItem> translucent_;
    std::vector<PlacedLight> lights_;
    std::vector<PlacedEmitter> emitters_;
    std::uint32_t fades = 0;        ///< counts the groups that fade
    std::vector<float> groupDepths; ///< of these groups
    PictureHoles holes;
};

} // namespace zelvo::render
