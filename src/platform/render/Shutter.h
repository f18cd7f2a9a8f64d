// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNScene.h"

#include <glm/gtc/quaternion.hpp>
#include <glm/mat4x4.hpp>

#include <memory>
#include <unordered_map>

namespace zelvo::render {

/// The moments of a frame with motion blur.
///
/// The scene is evaluated once a frame, as without motion blur, so all actions and random numbers
/// stay the same. A moment before the frame's time lies between the places of a node right before
/// and right after that evaluation:
///
///     last frame                                     this frame
///         |  set by callbacks   open() ............... now       scene time
///         |                     share 0    [0.5 open shutter 1]
///
/// What a callback sets between two frames is a jump and is not blurred. Lights do not change their
/// brightness within a frame, and a particle moves by its own velocity only.
class Shutter {
public:
    /// Call it right before the scene is evaluated.
    void open(const scene::SCNScene& scene);
    /// Forgets everything.
    void close();

    /// A node's transform to its parent's space. `share`: 0 before the evaluation, 1 now.
    [[nodiscard]] glm::mat4 transform(const scene::SCNNode& node, float share) const;
    [[nodiscard]] glm::mat4 worldTransform(const scene::SCNNode& node, float share) const;
    /// Without that of its ancestors.
    [[nodiscard]] float opacity(const scene::SCNNode& node, float share) const;

    /// Scene time when it was opened.
    [[nodiscard]] double openedAt() const { return time; }

private:
    struct Pose {
        std::weak_ptr<const scene::SCNNode> node; ///< keeps its address from being used again
        glm::vec3 position;
        glm::quat orientation;
        glm::vec3 scale;
        float opacity;
    };

    void record(const scene::SCNNode& node);
    /// Null if the node is new or has jumped.
    [[nodiscard]] const Pose* poseBefore(const scene::SCNNode& node) const;

    std::unordered_map<const scene::SCNNode*, Pose> poses;
    double time = 0;
};

/// A moment at which a frame is drawn, and a shift of the whole picture.
struct Moment {
    const Shutter* shutter = nullptr; ///< null: the scene as it is now
    float share = 1;                  ///< of the time since the shutter was opened
    glm::vec2 shift{0};               ///< in drawn pixels, to the right and down
};

} // namespace zelvo::render
