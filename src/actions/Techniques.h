// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNTechnique.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::actions {

class ActionController;

/// The full-frame effects and which of them are held at the moment. Those that cannot be built are
/// left out, with a line on the console; holding them does nothing.
class Techniques {
public:
    /// What a press leaves for its release.
    struct Hold {
        scene::SCNTechniquePtr technique; ///< the press's own copy
        int identifier = 0;
    };

    explicit Techniques(ActionController& owner);

    /// Records that the technique comes on, on top of those that are on. None if there is no such
    /// technique.
    [[nodiscard]] std::optional<Hold> beginTechnique(std::string_view name, std::string_view title);
    /// Records that it goes.
    void endTechnique(const Hold& hold);
    /// At the beginning of a run, and when the performance is forgotten: nothing is held.
    void endAll();

    [[nodiscard]] const std::vector<scene::SCNTechniquePtr>& currentTechniques() const {
        return current;
    }

private:
    void loadTechniques();
    /// The renderer that shows the scene draws all of them, in the order of pressing.
    void applyTechniques() const;

    ActionController& controller;
    std::map<std::string, scene::SCNTechniquePtr, std::less<>> allTechniques;
    std::vector<scene::SCNTechniquePtr> current;
};

} // namespace zelvo::actions
