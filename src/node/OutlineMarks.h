// SPDX-License-Identifier: MIT
#pragma once

#include "node/DefaultSCNNode.h"
#include "platform/scene/SCNShapes.h"

#include <glm/glm.hpp>

#include <memory>
#include <string>
#include <vector>

namespace zelvo::text {
class FontRegistry;
} // namespace zelvo::text

namespace zelvo::node {

/// The side of a frame where its name is. The name of a tall frame is inside, at the upper edge.
enum class NamePlace { above, below };

/// The parts of an editing frame that make it visible on a stage of any colour and show whose frame
/// it is: dark and light edges along its bars, or only its corners, and a name.
///
///     Text 1
///     ┌─        ─┐
///
///     └─        ─┘
class OutlineMarks {
public:
    enum class Extent { corners, whole };

    /// Fonts may be null as long as no name is set.
    explicit OutlineMarks(const text::FontRegistry* given);

    [[nodiscard]] const DefaultSCNNodePtr& node() const { return root; }

    /// Sides of the frame and thickness of its lines, in the frame's own units. `unitsOnStage` is
    /// how many of these are one unit on the stage.
    void fit(const glm::vec2& sides, const glm::vec2& line, float unitsOnStage);
    void show(Extent extent);
    void setName(const std::string& name, NamePlace side);

    void showName(bool isShown) { label->isHidden = !isShown || letters->geometry == nullptr; }

private:
    /// A flat rectangle of one colour.
    struct Patch {
        std::shared_ptr<scene::SCNPlane> plane;
        DefaultSCNNodePtr node;

        void place(const glm::vec2& middle, const glm::vec2& size) const;
    };

    [[nodiscard]] static Patch
    addPatch(const DefaultSCNNodePtr& parent, const scene::SCNMaterialPtr& color, float depth);

    void fitName(float unitsOnStage);

    const text::FontRegistry* fonts;
    DefaultSCNNodePtr root, edges, corners, label, letters;
    std::vector<Patch> darkEdges, lightEdges;     ///< top, right, bottom, left
    std::vector<Patch> darkCorners, lightCorners; ///< two for each corner, the horizontal one first
    Patch plate;                                  ///< behind the name
    glm::vec2 nameSize{0, 0};                     ///< on the stage
    glm::vec2 frame{0, 0};
    float nameUnits = 1;
    NamePlace namePlace = NamePlace::above;
};

} // namespace zelvo::node
