// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/scene/SCNNode.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace zelvo::scene {

/// A tree of nodes with a background, environment light and its own clock.
class SCNScene {
public:
    SCNScene();

    /// Loads a scene (JSON, see docs/scene-files.md) from the resources. A missing file, an unknown
    /// key, or a wrong type or value ends the process with a line that names file and key, because
    /// resources are part of the program.
    [[nodiscard]] static std::shared_ptr<SCNScene> sceneNamed(const std::string& name);
    /// The same from text. Errors are returned. `name` stands for the source in messages.
    [[nodiscard]] static foundation::Result<std::shared_ptr<SCNScene>>
    fromJSON(const std::string& text, const std::string& name);

    [[nodiscard]] const SCNNodePtr& rootNode() const { return rootNode_; }

    /// What is seen behind everything: a colour, an equirectangular picture or a cube. Empty:
    /// black.
    SCNMaterialProperty background;
    /// Image-based light: a picture with a light probe, times the intensity. Empty: none.
    SCNMaterialProperty lightingEnvironment;

    using Attribute = std::variant<int, double, std::string>;

    void setAttribute(Attribute value, const std::string& key) {
        attributes[key] = std::move(value);
    }

    /// Advances the scene to a time in seconds: all running actions and transactions advance by the
    /// time since the last call, in tree order; then the completions are called. If the time is not
    /// later than the last one (another renderer took over, with another clock), the step is 0.
    void applyAnimations(double time);

    /// The time of the last applyAnimations. Shader modifiers read it as u_time.
    [[nodiscard]] double time() const { return time_; }

private:
    /// Appends all nodes of a subtree that have actions, animations or particles to `active`,
    /// parents first.
    void collectActive(const SCNNodePtr& node);

    SCNNodePtr rootNode_;
    std::map<std::string, Attribute> attributes;
    double time_ = 0;
    bool hasTime = false;
    bool isApplying = false;

    // Kept between frames to reuse their memory.
    std::vector<SCNNodePtr> active;
    std::vector<std::function<void()>> completions;
};

using SCNScenePtr = std::shared_ptr<SCNScene>;

} // namespace zelvo::scene
