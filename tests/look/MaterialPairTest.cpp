// SPDX-License-Identifier: MIT
#include "look/XMAT.h"

#include <gtest/gtest.h>

#include <set>

namespace zelvo::look {
namespace {

using image::Color;
using Materials = std::vector<scene::SCNMaterialPtr>;

TEST(MaterialPair, HasANameAndATitleOfItsOwn) {
    std::set<XMATClasses> names;
    std::set<std::string_view> titles;
    for (const PairRow& row : kPairs) {
        EXPECT_TRUE(names.insert(row.name).second) << row.title;
        EXPECT_TRUE(titles.insert(row.title).second) << row.title;
    }
}

TEST(MaterialPair, LaysItsListAsASolidAsksForIt) {
    const XMATPtr pair = makePair(pairRow(XMATClasses::ironCircuit));
    EXPECT_EQ(pair->front->name, "Iron");
    EXPECT_EQ(pair->band->name, "CircuitBoard");
    const Materials inner{pair->front, pair->front, pair->band};
    const Materials outer{pair->front, pair->front, pair->band, pair->band, pair->band};
    EXPECT_EQ(pair->materials, inner);
    pair->bevelInnerOuter = BevelInnerOuter::outer;
    EXPECT_EQ(pair->materials, inner) << "until it is asked to update";
    pair->updateMaterials();
    EXPECT_EQ(pair->materials, outer);
    pair->bevelInnerOuter = BevelInnerOuter::inner;
    pair->updateMaterials();
    EXPECT_EQ(pair->materials, inner);
}

TEST(MaterialPair, KeepsItsColoursToItself) {
    const XMATPtr mine = makePair(kPairs.front());
    const XMATPtr other = makePair(kPairs.front());
    other->setFrontColor(Color::white(1));
    other->setBandColor(Color::white(1));
    mine->setFrontColor({1, 0, 0, 1});
    mine->setBandColor({0, 1, 0, 1});
    EXPECT_EQ(mine->front->color(), (Color{1, 0, 0, 1}));
    EXPECT_EQ(mine->band->color(), (Color{0, 1, 0, 1})) << "two objects even of one surface";
    EXPECT_EQ(other->front->color(), Color::white(1));
    EXPECT_EQ(other->band->color(), Color::white(1));
}

} // namespace
} // namespace zelvo::look
