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

/// A tree of nodes with its surroundings and its own clock.
class SCNScene {
public:
    SCNScene();

    /// Loads a resource scene (JSON, see docs/architecture.md). A missing file or one with an
    /// unknown key, a wrong type or a wrong value ends the process with a line that names file and
    /// key: resources belong to the program.
    [[nodiscard]] static std::shared_ptr<SCNScene> sceneNamed(const std::string& name);
    /// The same from text; errors as values. `name` is what messages call the source.
    [[nodiscard]] static foundation::Result<std::shared_ptr<SCNScene>>
    fromJSON(const std::string& text, const std::string& name);

    [[nodiscard]] const SCNNodePtr& rootNode() const { return rootNode_; }

    /// What is seen where nothing stands: a colour, an equirectangular picture, a cube. Empty: the
    /// target's black.
    SCNMaterialProperty background;
    /// Image-based light: a picture with a light probe; intensity multiplies it. Empty: none.
    SCNMaterialProperty lightingEnvironment;

    using Attribute = std::variant<int, double, std::string>;

    void setAttribute(Attribute value, const std::string& key) {
        attributes[key] = std::move(value);
    }

    [[nodiscard]] const std::map<std::string, Attribute>& allAttributes() const {
        return attributes;
    }

    /// Brings the scene to a time (seconds): advances every running action and transaction by what
    /// has passed since the last call, in tree order, then calls the completions. A time that is
    /// not later than the last (another renderer took over with another clock) advances by 0 and
    /// goes on from there.
    void applyAnimations(double time);

    /// The time of the last applyAnimations; what shader modifiers read as u_time.
    [[nodiscard]] double time() const { return time_; }

private:
    /// Appends the nodes with actions, animations or particles at and below a node to `active`,
    /// parents first.
    void collectActive(const SCNNodePtr& node);

    SCNNodePtr rootNode_;
    std::map<std::string, Attribute> attributes;
    double time_ = 0;
    bool hasTime = false;
    bool isApplying = false;

    // Kept between frames for their memory only.
    std::vector<SCNNodePtr> active;
    std::vector<std::function<void()>> completions;
};

using SCNScenePtr = std::shared_ptr<SCNScene>;

} // namespace zelvo::scene
