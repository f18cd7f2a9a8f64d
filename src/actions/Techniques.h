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

/// The full-frame effects, and which of them are held now. An effect that cannot be built is left
/// out and reported on the console; holding it does nothing.
class Techniques {
public:
    /// What a press passes to its release.
    struct Hold {
        scene::SCNTechniquePtr technique; ///< a copy for this press
        int identifier = 0;
    };

    explicit Techniques(ActionController& owner);

    /// Records that the technique starts, on top of the current ones. Nothing if there is no such
    /// technique.
    [[nodiscard]] std::optional<Hold> beginTechnique(std::string_view name, std::string_view title);
    /// Records that the technique ends.
    void endTechnique(const Hold& hold);
    /// For the start of a run and for deleting the performance: ends all techniques.
    void endAll();

    [[nodiscard]] const std::vector<scene::SCNTechniquePtr>& currentTechniques() const {
        return current;
    }

private:
    void loadTechniques();
    /// Makes the renderer draw all held techniques in the order of pressing.
    void applyTechniques() const;

    ActionController& controller;
    std::map<std::string, scene::SCNTechniquePtr, std::less<>> allTechniques;
    std::vector<scene::SCNTechniquePtr> current;
};

} // namespace zelvo::actions
