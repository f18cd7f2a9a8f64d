// SPDX-License-Identifier: MIT
#include "look/XMAT.h"

#include "platform/foundation/Check.h"

#include <algorithm>

namespace zelvo::look {
namespace {

using Name = XMATClasses;
using S = Surface;
using Use = PairUse;

// clang-format off
constexpr auto kPairs = std::to_array<PairRow>({
    {Name::flat,              "Flat",                 S::flat,         S::flat,         Use::everyNode},
    {Name::plain,             "Plain",                S::plain,        S::plain,        Use::everyNode},
    {Name::plastic,           "Plastic",              S::plastic,      S::plastic,      Use::everyNode},
    {Name::iron,              "Iron",                 S::iron,         S::iron,         Use::everyNode},
    {Name::plate,             "Plate",                S::plate,        S::plate,        Use::everyNode},
    {Name::dynamic,           "Dynamic",              S::dynamic,      S::dynamic,      Use::everyNode},
    {Name::circuits,          "Circuits",             S::circuitBoard, S::circuitBoard, Use::everyNode},
    {Name::rock,              "Rock",                 S::rock,         S::rock,         Use::everyNode},
    {Name::grained,           "Grained",              S::grained,      S::grained,      Use::everyNode},
    {Name::oldMetal,          "Old Metal",            S::oldMetal,     S::oldMetal,     Use::everyNode},
    {Name::cracked,           "Cracked",              S::cracks,       S::cracks,       Use::everyNode},
    {Name::reflecting,        "Reflecting",           S::reflecting,   S::reflecting,   Use::everyNode},
    {Name::ironCircuit,       "Iron / Circuit",       S::iron,         S::circuitBoard, Use::textsOnly},
    {Name::ironPlastic,       "Iron / Plastic",       S::iron,         S::plastic,      Use::textsOnly},
    {Name::plasticReflecting, "Plastic / Reflecting", S::plastic,      S::reflecting,   Use::textsOnly},
    {Name::dynamicFlat,       "Dynamic / Flat",       S::dynamic,      S::flat,         Use::textsOnly},
    {Name::flatDynamic,       "Flat / Dynamic",       S::flat,         S::dynamic,      Use::textsOnly},
});
// clang-format on

} // namespace

XMAT::XMAT(XMATClasses key, std::string label, SMATPtr faces, SMATPtr sides)
    : name(key)
    , front(std::move(faces))
    , band(std::move(sides))
    , title(std::move(label)) {
    updateMaterials();
}

void XMAT::updateMaterials() {
    if (bevelInnerOuter == BevelInnerOuter::outer) {
        materials = {front, front, band, band, band};
    } else {
        materials = {front, front, band};
    }
}

void XMAT::setFrontColor(const image::Color& color) {
    frontColor_ = color;
    front->setColor(color);
}

void XMAT::setBandColor(const image::Color& color) {
    bandColor_ = color;
    band->setColor(color);
}

std::span<const PairRow> pairRows() {
    return kPairs;
}

const PairRow& pairRow(XMATClasses name) {
    const auto* const row = std::ranges::find(kPairs, name, &PairRow::name);
    CHECK(row != kPairs.end(), "no material pair has the number {}", static_cast<int>(name));
    return *row;
}

XMATPtr makePair(const PairRow& row) {
    return std::make_shared<XMAT>(
        row.name, std::string(row.title), makeSurface(row.front), makeSurface(row.band));
}

std::vector<XMATPtr> makePairs(PairUse use) {
    std::vector<XMATPtr> pairs;
    for (const PairRow& row : kPairs) {
        if (row.use == use)
            pairs.push_back(makePair(row));
    }
    return pairs;
}

} // namespace zelvo::look
