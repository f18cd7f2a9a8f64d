// SPDX-License-Identifier: MIT
#pragma once

#include "look/Bevel.h"
#include "look/SMAT.h"

#include <memory>
#include <string>
#include <vector>

namespace zelvo::look {

/// What the user picks as a material: one surface for the faces of a solid, one for its sides, and
/// the two colours. Every node makes pairs of its own, so colours set on one node never reach
/// another.
class XMAT {
public:
    XMAT(XMATClasses key, std::string label, SMATPtr faces, SMATPtr sides);
    virtual ~XMAT() = default;
    XMAT(const XMAT&) = delete;
    XMAT& operator=(const XMAT&) = delete;

    const XMATClasses name;
    SMATPtr front; ///< faces
    SMATPtr band;  ///< sides
    /// What a geometry is given, in the order of an extruded solid's elements: front, back, sides,
    /// front chamfer, back chamfer. A list of three repeats from its start, so the chamfers take
    /// the front material.
    std::vector<scene::SCNMaterialPtr> materials;
    std::string title; ///< for the user
    /// Takes effect with the next updateMaterials.
    BevelInnerOuter bevelInnerOuter = BevelInnerOuter::inner;

    void updateMaterials();

    [[nodiscard]] const image::Color& frontColor() const { return frontColor_; }

    [[nodiscard]] const image::Color& bandColor() const { return bandColor_; }

    void setFrontColor(const image::Color& color);
    void setBandColor(const image::Color& color);

private:
    image::Color frontColor_ = image::Color::clear();
    image::Color bandColor_ = image::Color::clear();
};

using XMATPtr = std::shared_ptr<XMAT>;

/// The row of a name; a name without one is a programming error.
[[nodiscard]] const PairRow& pairRow(XMATClasses name);

[[nodiscard]] XMATPtr makePair(const PairRow& row);
/// New pairs of all rows of that use, in the table's order.
[[nodiscard]] std::vector<XMATPtr> makePairs(PairUse use);

} // namespace zelvo::look
