// SPDX-License-Identifier: MIT
#pragma once

#include "look/Bevel.h"
#include "look/SMAT.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::look {

/// The names of the material pairs. `bigBand` has no pair behind it.
enum class XMATClasses : std::uint8_t {
    plate,
    bigBand,
    ironCircuit,
    ironPlastic,
    plain,
    flat,
    plastic,
    iron,
    rock,
    circuits,
    grained,
    oldMetal,
    dynamic,
    cracked,
    reflecting,
    plasticReflecting,
    dynamicFlat,
    flatDynamic
};

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

/// Which nodes offer a pair.
enum class PairUse { everyNode, textsOnly };

struct PairRow {
    XMATClasses name;
    std::string_view title;
    Surface front;
    Surface band;
    PairUse use;
};

/// All pairs in the order in which a node holds and shows them: the twelve of every node, then the
/// five of texts.
[[nodiscard]] std::span<const PairRow> pairRows();

[[nodiscard]] XMATPtr makePair(const PairRow& row);
/// New pairs of all rows of that use, in the table's order.
[[nodiscard]] std::vector<XMATPtr> makePairs(PairUse use);

/// The row of a name; a name without one is a programming error.
[[nodiscard]] const PairRow& pairRow(XMATClasses name);

/// A new pair of its own for one name.
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
