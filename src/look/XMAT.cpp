// SPDX-License-Identifier: MIT
#include "look/XMAT.h"

#include "platform/foundation/Check.h"

#include <algorithm>

namespace zelvo::look {
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
