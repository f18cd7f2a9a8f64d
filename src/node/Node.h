// SPDX-License-Identifier: MIT
#pragma once

#include "look/XMAT.h"
#include "node/DefaultSCNNode.h"
#include "node/OutlineMarks.h"
#include "node/Surroundings.h"
#include "platform/geometry/Ray.h"
#include "platform/scene/SCNShapes.h"

#include <optional>
#include <string>
#include <vector>

namespace zelvo::node {

/// How much of a node's editing frame is shown.
enum class Outline {
    hidden,
    plain,      ///< the corners, and the name if the content is visible
    pointed,    ///< all of it: the pointer is over the node
    highlighted ///< all of it, in the accent colour: the node is selected
};
enum class Transition { immediate, animated };

/// The base of all visible content. It is a fixed chain of scene nodes, so that each task has its
/// own level and none disturbs another. A performance and its reset do not change the user's
/// layout.
///
///     Node                      the performance: catalogue actions on the whole
///      positionNode             the user's layout: place and size
///       orientationRotationNode the layout's quarter turns
///        wiggleNode, shyNode    reset with a performance
///         rotXNode, rotYNode, rotZNode     the layout's three angles
///          xAxisNode, yAxisNode, zAxisNode reset with a performance
///           outlineNode         the editing frame
///           contentNode         the geometry; catalogue actions on content and letters
///
/// Each class is made by its `make` function and lives as long as the stage. Main thread only.
class Node : public DefaultSCNNode {
protected:
    /// Only the `make` functions can construct, because the chain is linked after the shared
    /// pointer exists.
    struct Key {
        explicit Key() = default;
    };

public:
    [[nodiscard]] static std::shared_ptr<Node>
    make(const glm::vec3& home, float size, const Surroundings& surroundings);
    Node(Key key, const glm::vec3& home, float size, const Surroundings& surroundings);

    std::string shortName; ///< used in titles of actions
    bool isVisible = true; ///< takes effect with the next updateVisibility
    std::vector<look::XMATPtr> allMaterials;
    look::XMATPtr currentMaterial; ///< the current pair; may be null

    const double borderMargin; ///< thickness of the editing frame's bars, scene units
    const glm::vec3 initialPosition;
    const float initialScale;
    float scale2D = 1; ///< the size set by the user; takes effect with the next applyScale

    const DefaultSCNNodePtr positionNode;
    const DefaultSCNNodePtr orientationRotationNode;
    const DefaultSCNNodePtr wiggleNode;
    const DefaultSCNNodePtr shyNode;
    const DefaultSCNNodePtr rotXNode;
    const DefaultSCNNodePtr rotYNode;
    const DefaultSCNNodePtr rotZNode;
    const DefaultSCNNodePtr xAxisNode;
    const DefaultSCNNodePtr yAxisNode;
    const DefaultSCNNodePtr zAxisNode;
    const DefaultSCNNodePtr contentNode;
    const DefaultSCNNodePtr outlineNode;

    const std::shared_ptr<scene::SCNPlane> bgPlane;
    const ReferNodePtr bgNode; ///< invisible touch target behind the content
    const std::shared_ptr<scene::SCNPlane> topPlane, rightPlane, bottomPlane, leftPlane;
    const DefaultSCNNodePtr topPlaneNode, rightPlaneNode, bottomPlaneNode, leftPlaneNode;

    /// The name of the material pair; nothing if an imported object shows its own materials.
    /// Setting it rebuilds the look.
    [[nodiscard]] std::optional<look::XMATClasses> currentMaterialName() const {
        return materialName;
    }

    void setCurrentMaterialName(std::optional<look::XMATClasses> wanted);
    /// The first pair with that name, or this node's first pair.
    [[nodiscard]] const look::XMATPtr& materialNamed(look::XMATClasses wanted) const;

    [[nodiscard]] const image::Color& frontColor() const { return frontColor_; }

    [[nodiscard]] const image::Color& bandColor() const { return bandColor_; }

    virtual void setFrontColor(const image::Color& color);
    virtual void setBandColor(const image::Color& color);

    /// Rebuilds the look from the fields; does nothing here.
    virtual void updateContent();
    /// Resets the user's place, size and angles. Changes nothing that a performance animates.
    virtual void resetLayout();

    [[nodiscard]] glm::vec3 layoutPosition() const { return positionNode->position; }

    void setLayoutPosition(const glm::vec3& place) { positionNode->position = place; }

    void quarterTurn(); ///< a quarter turn clockwise, animated
    void applyScale();  ///< applies scale2D; sends the new size on messageSignal
    void updateVisibility();
    void showOutline(Outline outline, Transition transition = Transition::immediate);

    /// Sets the name shown at the frame; empty for none.
    void nameOutline(const std::string& title, NamePlace place) { marks.setName(title, place); }

    /// Fits frame and touch target to the content.
    void updateOutline();

    /// The distance along a ray (in scene space) to the frame's rectangle; nothing if it misses.
    [[nodiscard]] std::optional<float> frameDistance(const geometry::Ray& ray) const;
    /// The height of the content's lowest point where the user has put it, whatever a performance
    /// does; nothing if nothing is to be seen.
    [[nodiscard]] std::optional<float> lowestInLayout() const;

    /// The frame's area on the stage, in square scene units.
    [[nodiscard]] float frameArea() const;

protected:
    /// The box around the content, in the space of contentNode, without what a performance moves.
    [[nodiscard]] virtual geometry::Box layoutBox() const { return contentNode->boundingBox(); }

    /// Links the chain. Each `make` calls it once, as soon as the shared pointer exists.
    void link();
    /// Finds the pair of currentMaterialName and gives it the node's colours. Does nothing without
    /// a name.
    void takeUpMaterial();

    /// For the setters of subclasses: sets the name without rebuilding.
    void keepMaterialName(std::optional<look::XMATClasses> kept) { materialName = kept; }

    [[nodiscard]] const Surroundings& surroundings() const { return surroundings_; }

private:
    struct Bar {
        scene::SCNPlane* plane;
        DefaultSCNNode* node;
    };

    [[nodiscard]] std::vector<Bar> bars() const;
    void linkOutline();
    [[nodiscard]] bool hasVisibleContent() const;

    Surroundings surroundings_;
    OutlineMarks marks;
    std::optional<look::XMATClasses> materialName = look::XMATClasses::plain;
    image::Color frontColor_;
    image::Color bandColor_;
};

using NodePtr = std::shared_ptr<Node>;

} // namespace zelvo::node
