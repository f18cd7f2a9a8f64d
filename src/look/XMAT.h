// SPDX-License-Identifier: MIT
#pragma once

#include "look/Bevel.h"
#include "look/SMAT.h"

#include <memory>
#include <string>
#include <vector>

namespace zelvo::look {

/// A material as the user knows it: a surface for the faces of a solid, one for its sides, and two
/// colours. Each node has its own pairs, so its colours do not affect other nodes.
class XMAT {
public:
    XMAT(XMATClasses key, std::string label, SMATPtr faces, SMATPtr sides);
    virtual ~XMAT() = default;
    XMAT(const XMAT&) = delete;
    XMAT& operator=(const XMAT&) = delete;

    const XMATClasses name;
    SMATPtr front; ///< faces
    SMATPtr band;  ///< sides
    /// The materials of a geometry, in the order of an extruded solid's elements: front, back,
    /// sides, front chamfer, back chamfer. A list of three repeats, so that the chamfers get the
    /// front material.
    std::vector<scene::SCNMaterialPtr> materials;
    std::string title; ///< shown to the user
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

/// The row with this name. A name without a row is a programming error.
[[nodiscard]] const PairRow& pairRow(XMATClasses name);

[[nodiscard]] XMATPtr makePair(const PairRow& row);
/// Makes new pairs for all rows with this use, in the order of the table.
[[nodiscard]] std::vector<XMATPtr> makePairs(PairUse use);

/// A pair as a class of its own, for each name.
template <XMATClasses kName> class PairOf final : public XMAT {
public:
    PairOf()
        : PairOf(pairRow(kName)) {}

private:
    explicit PairOf(const PairRow& row)
        : XMAT(row.name, std::string(row.title), makeSurface(row.front), makeSurface(row.band)) {}
};

using XMAT_Flat = PairOf<XMATClasses::flat>;
using XMAT_Plain = PairOf<XMATClasses::plain>;
using XMAT_Plate = PairOf<XMATClasses::plate>;
using XMAT_Cracked = PairOf<XMATClasses::cracked>;
using XMAT_Plastic = PairOf<XMATClasses::plastic>;
using XMAT_Iron = PairOf<XMATClasses::iron>;
using XMAT_Rock = PairOf<XMATClasses::rock>;
using XMAT_Circuits = PairOf<XMATClasses::circuits>;
using XMAT_Grained = PairOf<XMATClasses::grained>;
using XMAT_OldMetal = PairOf<XMATClasses::oldMetal>;
using XMAT_Dynamic = PairOf<XMATClasses::dynamic>;
using XMAT_Reflecting = PairOf<XMATClasses::reflecting>;
using XMAT_IronCircuit = PairOf<XMATClasses::ironCircuit>;
using XMAT_IronPlastic = PairOf<XMATClasses::ironPlastic>;
using XMAT_PlasticReflecting = PairOf<XMATClasses::plasticReflecting>;
using XMAT_DynamicFlat = PairOf<XMATClasses::dynamicFlat>;
using XMAT_FlatDynamic = PairOf<XMATClasses::flatDynamic>;

} // namespace zelvo::look
