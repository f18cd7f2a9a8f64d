// SPDX-License-Identifier: MIT
#include "ui/layouter/RandomStyle.h"

#include "environments/SceneManager.h"
#include "model/Model.h"
#include "platform/foundation/Random.h"
#include "platform/scene/SCNTransaction.h"
#include "shared/Palette.h"

namespace zelvo::ui {

namespace {

constexpr int kFirstSceneWithOwnGround = 2; ///< "Flat" and "Plain" show only the background colour
constexpr std::uint32_t kBevelSteps = 40;
constexpr double kBevelStep = 0.1;
constexpr std::uint32_t kDepths = 60;
constexpr auto kFont = "Audiowide-Regular";

using foundation::arc4random_uniform;

/// The number of entries without the last one, which is never chosen.
std::uint32_t lastButOne(std::size_t count) {
    return static_cast<std::uint32_t>(count - 1);
}

/// Black on white and white on black. On other backgrounds any colour, which may equal the
/// background's.
std::size_t textColorOn(std::size_t background) {
    if (background == kWhiteIndex)
        return kBlackIndex;
    if (background == kBlackIndex)
        return kWhiteIndex;
    return arc4random_uniform(lastButOne(kPalette.size()));
}

} // namespace

RandomStyle drawRandomStyle(const stage::Nodes& nodes) {
    RandomStyle style;
    style.scene = static_cast<int>(
        arc4random_uniform(lastButOne(environments::SceneManager::sceneNames.size())));
    style.background = arc4random_uniform(lastButOne(kPalette.size()));
    style.text =
        style.scene < kFirstSceneWithOwnGround ? textColorOn(style.background) : style.background;
    const auto& pairs = nodes.textNode1->allMaterials;
    style.material = pairs[arc4random_uniform(lastButOne(pairs.size()))]->name;
    style.bevelRadius = arc4random_uniform(kBevelSteps) * kBevelStep;
    style.extrusionDepth = arc4random_uniform(kDepths);
    return style;
}

void applyRandomStyle(model::Model& model, const RandomStyle& style) {
    const stage::Nodes& nodes = model.nodes();
    content::TextStylePreset text;
    text.frontColor = kPalette[style.text];
    text.bandColor = kPalette[style.text];
    text.material = style.material;
    text.fontName = kFont;
    text.bevelProfile = look::BevelProfile::rounded;
    text.bevelRadius = style.bevelRadius;
    text.bevelInnerOuter = look::BevelInnerOuter::outer;
    text.extrusionDepth = style.extrusionDepth;

    scene::SCNTransaction::begin();
    nodes.textNode1->applyStyle(text);
    nodes.textNode2->applyStyle(text);
    const bool showsOwnMaterials =
        nodes.mediaNode->customNode() && !nodes.mediaNode->currentMaterialName();
    if (!showsOwnMaterials)
        nodes.mediaNode->setCurrentMaterialName(style.material);
    model.setCurrentBackgroundColor(kPalette[style.background]);
    model.setScene(style.scene);
    scene::SCNTransaction::commit();
}

} // namespace zelvo::ui
