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

namespace zelvo::core {

/// How much of a node's editing frame is shown.
enum class Outline {
    hidden,
    plain,      ///< the corners, and the name if the content is visible
    pointed,    ///< all of it: the pointer is over the node
    highlighted ///< all of it, in the accent colour: the node is selected
};
enum class Transition { immediate, animated };

/// Every piece of visible content: not one scene node but a fixed chain of them, so that each
/// concern owns a level and none disturbs another. A performance and its reset leave the user's
/// layout alone.
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
/// Made by the `make` of each class; lives as long as the stage. Main thread only.
class Node : public DefaultSCNNode {
protected:
    /// Keeps construction with the `make` functions, which link the chain after the shared pointer
    /// exists.
    struct Key {
        explicit Key() = default;
    };

public:
    [[nodiscard]] static std::shared_ptr<Node>
    make(const glm::vec3& home, float size, const Surroundings& surroundings);
    Node(Key key, const glm::vec3& home, float size, const Surroundings& surroundings);

    std::string shortName; ///< in action titles
    bool isVisible = true; ///< shows with the next updateVisibility
    std::vector<look::XMATPtr> allMaterials;
    look::XMATPtr currentMaterial; ///< the pair in force; may be null

    const double borderMargin; ///< thickness of the editing frame's bars, scene units
    const glm::vec3 initialPosition;
    const float initialScale;
    float scale2D = 1; ///< the user's size; shows with the next applyScale

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

    /// The material pair by name; absent means that an imported object shows its own materials.
    /// Setting rebuilds.
    [[nodiscard]] std::optional<look::XMATClasses> currentMaterialName() const {
        return materialName;
    }

    void setCurrentMaterialName(std::optional<look::XMATClasses> wanted);
    /// The first pair of that name, or this node's first pair.
    [[nodiscard]] const look::XMATPtr& materialNamed(look::XMATClasses wanted) const;

    [[nodiscard]] const image::Color& frontColor() const { return frontColor_; }

    [[nodiscard]] const image::Color& bandColor() const { return bandColor_; }

    virtual void setFrontColor(const image::Color& color);
    virtual void setBandColor(const image::Color& color);

    /// Rebuilds the look from the fields; nothing here.
    virtual void updateContent();
    /// Home place, size and angles. Changes nothing that a performance animates.
    virtual void resetLayout();

    [[nodiscard]] glm::vec3 layoutPosition() const { return positionNode->position; }

    void setLayoutPosition(const glm::vec3& place) { positionNode->position = place; }

    void quarterTurn(); ///< a quarter clockwise, animated
    void applyScale();  ///< from scale2D; says the new size on messageSignal
    void updateVisibility();
    void showOutline(Outline outline, Transition transition = Transition::immediate);

    /// The name that the frame shows; empty: none.
    void nameOutline(const std::string& title, NamePlace place) { marks.setName(title, place); }

    /// Fits the frame and the touch target around the content.
    void updateOutline();

    /// Where a ray of the scene's space meets the rectangle of the frame: the distance along the
    /// ray. Empty: it misses.
    [[nodiscard]] std::optional<float> frameDistance(const geometry::Ray& ray) const;
    /// In square scene units as it stands on the stage.
    [[nodiscard]] float frameArea() const;

protected:
    /// Links the chain; called once by each `make` as soon as the shared pointer exists.
    void link();
    /// Looks up the pair of currentMaterialName and gives it the node's colours; an absent name
    /// changes nothing.
    void takeUpMaterial();

    /// For subclasses' own setters: keeps the name without rebuilding.
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

} // namespace zelvo::core
