// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/Animated.h"
#include "platform/scene/CAKeyframeAnimation.h"
#include "platform/scene/ParticleEmitter.h"
#include "platform/scene/SCNAction.h"
#include "platform/scene/SCNCamera.h"
#include "platform/scene/SCNGeometry.h"
#include "platform/scene/SCNLight.h"

#include <glm/gtc/quaternion.hpp>
#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <glm/vec4.hpp>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zelvo::scene {

class SCNScene;
class SCNNode;

/// A parent owns its children, but not the other way round. The permanent stage also keeps nodes
/// alive while they move from one environment's scene to the next.
using SCNNodePtr = std::shared_ptr<SCNNode>;

/// R = Rx * Ry * Rz. Angles in radians.
[[nodiscard]] glm::quat orientationFromEulerAngles(const glm::vec3& radians);
/// The inverse: pitch and roll in -pi .. pi, yaw in -pi/2 .. pi/2. At yaw +-pi/2 the roll is 0.
[[nodiscard]] glm::vec3 eulerAnglesFromOrientation(const glm::quat& orientation);

/// A node of the scene tree: a transform, what is attached to it, and its children.
///
/// Right-handed, y up. The matrix is translation x rotation x scale x inverse pivot. Euler angles
/// apply roll (z) first, then yaw (y), then pitch (x): R = Rx * Ry * Rz. Opacity multiplies down
/// the tree and `isHidden` hides the subtree; `castsShadow` and `categoryBitMask` concern the node
/// alone. Always make it with std::make_shared. Main thread only.
class SCNNode : public std::enable_shared_from_this<SCNNode> {
public:
    SCNNode();
    virtual ~SCNNode();
    SCNNode(const SCNNode&) = delete;
    SCNNode& operator=(const SCNNode&) = delete;

    std::string name;
    bool castsShadow = true;
    bool isHidden = false;
    std::uint32_t categoryBitMask = 1;

    SCNGeometryPtr geometry;
    SCNLightPtr light;
    SCNCameraPtr camera;
    /// Billboard: drawn with its axes turned to those of the camera.
    bool isBillboard = false;
    /// False for editing aids: floors neither mirror it and its children nor get darker below them.
    bool showsOnFloors = true;

    Animated<glm::vec3> position{glm::vec3(0)};
    Animated<glm::vec3> scale{glm::vec3(1)};
    Animated<float> opacity{1.0f};
    glm::mat4 pivot{1}; ///< position, rotation and scale act around this frame
    /// Added to all texture coordinates, so that nodes with the same pictures do not look the same.
    glm::vec2 textureShift{0};

    /// As set: 720 degrees stay 720 degrees.
    [[nodiscard]] glm::vec3 eulerAngles() const { return eulerAngles_; }

    void setEulerAngles(const glm::vec3& radians);

    [[nodiscard]] glm::quat orientation() const { return orientation_; }

    void setOrientation(const glm::quat& orientation);
    /// Axis (any length) and angle in radians. A zero axis means no rotation.
    void setRotation(const glm::vec4& axisAngle);
    /// The same with a unit axis; all zero for no rotation.
    [[nodiscard]] glm::vec4 rotation() const;

    [[nodiscard]] glm::mat4 transform() const; ///< to the parent's space; from the presented values
    [[nodiscard]] glm::mat4 worldTransform() const; ///< to world space; from the presented values

    // --- tree
    /// Takes the child from its former parent. A cycle is a programming error.
    void addChildNode(SCNNodePtr child);
    void removeFromParentNode();

    [[nodiscard]] const std::vector<SCNNodePtr>& childNodes() const { return children; }

    [[nodiscard]] SCNNode* parent() const { return parent_; }
    enum class Search { childrenOnly, recursively };
    [[nodiscard]] SCNNodePtr childNodeWithName(const std::string& wanted, Search search) const;
    /// Visits this node and all its descendants, parents first.
    void enumerateHierarchy(const std::function<void(SCNNode&)>& visit);

    /// The bounding box of this node and its descendants, in this node's space. Hidden descendants
    /// are left out; whether the node itself is hidden does not matter. All zero if there is no
    /// geometry.
    [[nodiscard]] geometry::Box boundingBox() const;

    // --- actions
    /// An action replaces the one with the same key. `completion` is called on the main thread
    /// after the evaluation in which the action ends, but not if the action is cancelled.
    void runAction(const SCNActionPtr& action, std::function<void()> completion = {});
    void runAction(
        const SCNActionPtr& action, const std::string& key, std::function<void()> completion = {});
    /// Includes actions that have not started yet.
    void removeAllActions();
    void removeActionForKey(const std::string& key);

    [[nodiscard]] bool hasActions() const;

    /// Used by relative actions. The change is added to whatever absolute actions write; those
    /// subtract what was added since their own start.
    void addToPosition(const glm::vec3& delta);
    void addToEulerAngles(const glm::vec3& delta);

    [[nodiscard]] glm::vec3 addedPosition() const { return addedPosition_; }

    [[nodiscard]] glm::vec3 addedEulerAngles() const { return addedEulerAngles_; }

    // --- particles
    /// It starts with the next evaluation. If added twice, it runs twice.
    void addParticleSystem(SCNParticleSystemPtr system);
    void removeParticleSystem(const SCNParticleSystemPtr& system);
    void removeAllParticleSystems();
    /// In the order in which they were added.
    [[nodiscard]] std::vector<SCNParticleSystemPtr> particleSystems() const;

    /// The running systems with their particles.
    [[nodiscard]] const std::vector<std::unique_ptr<ParticleEmitter>>& emitters() const {
        return emitters_;
    }

    // --- keyframe animations: evaluated after the actions; they change only what is drawn
    /// It starts with the next evaluation, at 0. An animation with the same key blends out while
    /// the new one begins.
    void addAnimation(CAKeyframeAnimation animation, const std::string& key);
    /// The running ones, in the order in which they were added.
    [[nodiscard]] std::vector<std::string> animationKeys() const;
    /// Blends back to the node's own value in `blendOutDuration` seconds. The key is free at once.
    void removeAnimationForKey(const std::string& key, double blendOutDuration);

    /// With keyframe animations applied. Transforms are made from these.
    [[nodiscard]] glm::vec3 presentedPosition() const;
    [[nodiscard]] glm::quat presentedOrientation() const;

private:
    friend class SCNScene;

    struct RunningAction;
    /// Advances the actions that were added before this evaluation began, and collects the
    /// completions of those that ended.
    void advanceActions(
        double step, std::uint64_t evaluation, std::vector<std::function<void()>>& completions);
    /// Cancels the actions with this key, or all if the key is empty.
    void cancelActions(const std::string& key);
    void dropFinishedActions();
    struct KeyframeRun;
    void advanceAnimations(double step, std::uint64_t evaluation);
    void dropFinishedAnimations();
    void advanceParticles(double step);

    static std::uint64_t evaluationsBegun; ///< in all scenes

    SCNNode* parent_ = nullptr;
    std::vector<SCNNodePtr> children;
    glm::vec3 eulerAngles_{0};
    glm::quat orientation_{1, 0, 0, 0};
    glm::vec3 addedPosition_{0};
    glm::vec3 addedEulerAngles_{0};
    std::vector<std::unique_ptr<RunningAction>> running;  ///< in the order of their start
    std::vector<std::unique_ptr<KeyframeRun>> animations; ///< in the order in which they were added
    std::vector<std::unique_ptr<ParticleEmitter>> emitters_;
    bool isAdvancing = false; ///< while true, cancelled actions are only marked, not removed
};

} // namespace zelvo::scene
