// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/CameraView.h"
#include "platform/render/PictureHoles.h"
#include "platform/scene/SCNScene.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace zelvo::render {

/// A node with geometry, as it stands at this frame.
struct VisibleNode {
    glm::mat4 world{1};
    const scene::SCNGeometry* geometry = nullptr;
    float opacity = 1; ///< with those of the nodes above
    std::uint32_t categoryBitMask = 1;
    bool castsShadow = true;
    bool isInView = true; ///< false: kept for its shadow alone, if it casts one
    float farthest = 0;   ///< scene units along the view, of the farthest corner of its box
    float middle = 0;     ///< the same of the box's middle
};

/// One element of a visible node: the unit of drawing.
struct DrawItem {
    std::uint32_t node = 0; ///< index into Snapshot::nodes()
    std::uint32_t element = 0;
    const scene::SCNMaterial* material = nullptr; ///< never null
    float sortDepth = 0;
    bool isTranslucent = false;
};

struct PlacedLight {
    const scene::SCNLight* light = nullptr;
    glm::vec3 position{0};
    glm::vec3 direction{0, 0, -1}; ///< unit, where it shines
};

/// Particles at work on a node that is not hidden.
struct PlacedEmitter {
    const scene::ParticleEmitter* emitter = nullptr;
    float opacity = 1; ///< of the node, with those above
};

/// What is to be drawn of a scene at this moment, flat and sorted. Taken anew each frame without
/// allocating once its lists have grown; it points into the scene and so is read before the scene
/// changes again.
class Snapshot {
public:
    /// Nothing below this opacity is drawn: it changes no 8-bit pixel.
    static constexpr float kInvisible = 1.0f / 512.0f;

    /// pointOfView null: the first node that has a camera; without one, a default camera at the
    /// origin.
    void take(const scene::SCNScene& scene, const scene::SCNNode* pointOfView, float aspect);

    [[nodiscard]] const CameraView& camera() const { return camera_; }

    /// Null if the scene has none.
    [[nodiscard]] const scene::SCNCamera* sceneCamera() const { return sceneCamera_; }

    [[nodiscard]] std::span<const VisibleNode> nodes() const { return nodes_; }

    /// Front to back.
    [[nodiscard]] std::span<const DrawItem> opaque() const { return opaque_; }

    /// Back to front, the elements of one node together.
    [[nodiscard]] std::span<const DrawItem> translucent() const { return translucent_; }

    /// Those that shine, in tree order.
    [[nodiscard]] std::span<const PlacedLight> lights() const { return lights_; }

    /// Those with live particles, in tree order.
    [[nodiscard]] std::span<const PlacedEmitter> emitters() const { return emitters_; }

private:
    struct Inherited {
        glm::mat4 world;
        float opacity;
    };

    void placeCamera(const scene::SCNScene& scene, const scene::SCNNode* pointOfView, float aspect);
    void walk(const scene::SCNNode& node, const Inherited& inherited, const Frustum& frustum);
    void addNode(const scene::SCNNode& node, const Inherited& own, const Frustum& frustum);
    void addItems(std::uint32_t index);
    /// Whether drawing this material with this opacity needs what stands behind it.
    [[nodiscard]] bool isTranslucent(const scene::SCNMaterial& material, float opacity);

    CameraView camera_;
    const scene::SCNCamera* sceneCamera_ = nullptr;
    std::vector<VisibleNode> nodes_;
    std::vector<DrawItem> opaque_;
    std::vector<DrawItem> translucent_;
    std::vector<PlacedLight> lights_;
    std::vector<PlacedEmitter> emitters_;
    PictureHoles holes;
};

} // namespace zelvo::render
