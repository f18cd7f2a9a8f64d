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

/// Nodes are shared: a parent keeps its children alive, and the permanent stage keeps nodes alive
/// while they move from one environment's scene to the next. Parents are not owned.
using SCNNodePtr = std::shared_ptr<SCNNode>;

/// R = Rx * Ry * Rz of angles in radians.
[[nodiscard]] glm::quat orientationFromEulerAngles(const glm::vec3& radians);
/// Its inverse: pitch and roll in -pi to pi, yaw in -pi/2 to pi/2; looking straight along x (yaw
/// +-pi/2) the roll is 0.
[[nodiscard]] glm::vec3 eulerAnglesFromOrientation(const glm::quat& orientation);

/// A place in the scene tree with what stands there.
///
/// Right-handed, y up. A node's matrix is translation x rotation x scale x inverse pivot. Euler
/// angles apply roll (z) first, then yaw (y), then pitch (x): R = Rx * Ry * Rz. Opacity multiplies
/// down the tree, `isHidden` hides the subtree; `castsShadow` and `categoryBitMask` are per node.
/// Always made through std::make_shared. Main thread only.
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
    bool isBillboard =
        false; ///< a billboard constraint: the node's axes are turned to the camera's when drawn

    Animated<glm::vec3> position{glm::vec3(0)};
    Animated<glm::vec3> scale{glm::vec3(1)};
    Animated<float> opacity{1.0f};
    glm::mat4 pivot{1}; ///< the frame that position, rotation and scale act on

    [[nodiscard]] glm::vec3 eulerAngles() const {
        return eulerAngles_;
    } ///< as set, 720 degrees stay 720 degrees

    void setEulerAngles(const glm::vec3& radians);

    [[nodiscard]] glm::quat orientation() const { return orientation_; }

    void setOrientation(const glm::quat& orientation);
    /// Axis (need not be unit) and angle in radians; a zero axis means no rotation.
    void setRotation(const glm::vec4& axisAngle);
    /// The same, of unit axis; all zero for no rotation.
    [[nodiscard]] glm::vec4 rotation() const;

    [[nodiscard]] glm::mat4 transform() const;      ///< to the parent, of the presented values
    [[nodiscard]] glm::mat4 worldTransform() const; ///< to the root, of the presented values

    // --- tree
    /// takes it from its former parent; a circle is a programming error
    void addChildNode(SCNNodePtr child);
    void removeFromParentNode();

    [[nodiscard]] const std::vector<SCNNodePtr>& childNodes() const { return children; }

    [[nodiscard]] SCNNode* parent() const { return parent_; }
    enum class Search { childrenOnly, recursively };
    [[nodiscard]] SCNNodePtr childNodeWithName(const std::string& wanted, Search search) const;
    /// Visits this node and all below, parents first.
    void enumerateHierarchy(const std::function<void(SCNNode&)>& visit);

    /// The box of the node's geometry and of all that is below it, in this node's own space. Hidden
    /// subtrees below are left out, the node's own hiding is not regarded. All zero when nothing is
    /// there.
    [[nodiscard]] geometry::Box boundingBox() const;

    // --- actions
    /// A key cancels what ran under it. The completion is called on the main queue's thread after
    /// the evaluation in which the action ends; it is not called for cancelled actions.
    void runAction(const SCNActionPtr& action, std::function<void()> completion = {});
    void runAction(
        const SCNActionPtr& action, const std::string& key, std::function<void()> completion = {});
    /// Also takes those not yet started.
    void removeAllActions();
    void removeActionForKey(const std::string& key);

    [[nodiscard]] bool hasActions() const;

    /// What relative actions do: a change on top of whatever absolute actions write. Those compare
    /// the sums of all such increments with what they were at their own start.
    void addToPosition(const glm::vec3& delta);
    void addToEulerAngles(const glm::vec3& delta);

    [[nodiscard]] glm::vec3 addedPosition() const { return addedPosition_; }

    [[nodiscard]] glm::vec3 addedEulerAngles() const { return addedEulerAngles_; }

    // --- particles
    /// It begins with the next evaluation. Added twice, it runs twice.
    void addParticleSystem(SCNParticleSystemPtr system);
    void removeParticleSystem(const SCNParticleSystemPtr& system);
    void removeAllParticleSystems();
    /// In the order of adding.
    [[nodiscard]] std::vector<SCNParticleSystemPtr> particleSystems() const;

    /// The systems at work, with their particles.
    [[nodiscard]] const std::vector<std::unique_ptr<ParticleEmitter>>& emitters() const {
        return emitters_;
    }

    // --- keyframe animations: evaluated after the actions, they change what is drawn and no value
    // --- of the node
    /// Begins with the next evaluation, at 0. What ran under the key blends out while this one
    /// fades in.
    void addAnimation(CAKeyframeAnimation animation, const std::string& key);
    /// In the order of adding, of those that run.
    [[nodiscard]] std::vector<std::string> animationKeys() const;
    /// Takes `blendOutDuration` seconds to leave the node to its own value; the key is free at
    /// once.
    void removeAnimationForKey(const std::string& key, double blendOutDuration);

    /// With the keyframe animations; what transforms are made of.
    [[nodiscard]] glm::vec3 presentedPosition() const;
    [[nodiscard]] glm::quat presentedOrientation() const;

private:
    friend class SCNScene;

    struct RunningAction;
    /// Advances those of this node's actions that were added before the evaluation of the given
    /// number began, and collects the completions of those that ended.
    void advanceActions(
        double step, std::uint64_t evaluation, std::vector<std::function<void()>>& completions);
    /// Cancels what the key names, all for an empty key.
    void cancelActions(const std::string& key);
    void dropFinishedActions();
    struct KeyframeRun;
    void advanceAnimations(double step, std::uint64_t evaluation);
    void dropFinishedAnimations();
    void advanceParticles(double step);

    static std::uint64_t evaluationsBegun; ///< over all scenes

    SCNNode* parent_ = nullptr;
    std::vector<SCNNodePtr> children;
    glm::vec3 eulerAngles_{0};
    glm::quat orientation_{1, 0, 0, 0};
    glm::vec3 addedPosition_{0};
    glm::vec3 addedEulerAngles_{0};
    std::vector<std::unique_ptr<RunningAction>> running;  ///< in the order of starting
    std::vector<std::unique_ptr<KeyframeRun>> animations; ///< in the order of adding
    std::vector<std::unique_ptr<ParticleEmitter>> emitters_;
    bool isAdvancing = false; ///< while true, cancelled actions are marked and stay in the list
};

} // namespace zelvo::scene
