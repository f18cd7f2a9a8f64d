// SPDX-License-Identifier: MIT
#include "stage/Nodes.h"

#include "content/StylePresets.h"
#include "platform/foundation/Check.h"
#include "platform/image/reading/ImageNamed.h"
#include "platform/scene/SCNTransaction.h"
#include "shared/Palette.h"

#include <algorithm>
#include <utility>

namespace zelvo::stage {
namespace {

constexpr auto kFirstFont = "DaysOne-Regular";
constexpr auto kDefaultFont = "Audiowide-Regular";

node::DefaultSCNNodePtr newNode() {
    return std::make_shared<node::DefaultSCNNode>();
}

std::unique_ptr<Nodes>& sharedNodes() {
    static std::unique_ptr<Nodes> nodes;
    return nodes;
}

} // namespace

Nodes& Nodes::makeShared(const node::Surroundings& surroundings) {
    CHECK(!sharedNodes(), "the stage is made once");
    sharedNodes() = std::make_unique<Nodes>(surroundings);
    return *sharedNodes();
}

Nodes& Nodes::shared() {
    CHECK(sharedNodes() != nullptr, "the stage is asked for before it was made");
    return *sharedNodes();
}

Nodes::Nodes(const node::Surroundings& surroundings)
    : cameraNode(newNode())
    , cameraPinchNode(newNode())
    , cameraSpecialPerspectiveNode(newNode())
    , cameraSuperNode(newNode())
    , cameraYHandle(newNode())
    , cameraXHandle(newNode())
    , cameraWiggle(newNode())
    , cameraJittery(newNode())
    , mediaHolderNode(MediaholderNode::make())
    , mediaNode(content::MediaNode::make({0, 22, -30}, 1.0f, surroundings))
    , imageNode(content::ImageNode::make({0, 22, -60}, 1.0f, surroundings))
    , textNode1(
          content::TextNode::make({{0, 32, 0}, 1.0f, "TITLE", kFirstFont, "TX1"}, surroundings))
    , textNode2(
          content::TextNode::make({{0, -36, 0}, 0.76f, "HERE", kFirstFont, "TX2"}, surroundings))
    , fxHolderNode(newNode())
    , particleAndParticleLightHolder(newNode())
    , fonts_(surroundings.fonts) {
    linkCameraRig();
    for (const scene::SCNNodePtr& node :
         std::initializer_list<scene::SCNNodePtr>{imageNode, mediaNode, textNode1, textNode2}) {
        mediaHolderNode->contentNode->addChildNode(node);
    }
    applyDefaultStyles();
}

void Nodes::linkCameraRig() {
    cameraSuperNode->name = "CameraSuperNode";
    cameraNode->position = kCameraHome;
    cameraYHandle->position = glm::vec3(0, 1, 0);
    cameraNode->addChildNode(fxHolderNode);
    fxHolderNode->isBillboard = true;

    cameraSpecialPerspectiveNode->addChildNode(cameraNode);
    cameraPinchNode->addChildNode(cameraSpecialPerspectiveNode);
    cameraSuperNode->addChildNode(cameraPinchNode);
    cameraXHandle->addChildNode(cameraSuperNode);
    cameraYHandle->addChildNode(cameraXHandle);
    cameraWiggle->addChildNode(cameraYHandle);
    cameraJittery->addChildNode(cameraWiggle);
}

void Nodes::applyDefaultStyles() {
    content::TextStylePreset text;
    text.frontColor = ui::kPalette[ui::kWhiteIndex];
    text.bandColor = ui::kPalette[ui::kBlackIndex];
    text.material = look::XMATClasses::plain;
    text.fontName = kDefaultFont;
    text.bevelProfile = look::BevelProfile::rounded;
    text.bevelRadius = 3;
    text.bevelInnerOuter = look::BevelInnerOuter::outer;
    text.extrusionDepth = 44;
    textNode1->applyStyle(text);
    textNode2->applyStyle(text);

    imageNode->applyStyle({placeholder(), content::imageMasks().front(), false});
    mediaNode->applyStyle(
        {content::MediaNode::shapeNamed("None"),
         ui::kPalette[ui::kBlackIndex],
         look::XMATClasses::plain});
}

image::ImagePtr Nodes::placeholder() {
    return image::requiredImage("LogoPlaceholder.png");
}

std::vector<node::NodePtr> Nodes::content() const {
    return {textNode1, textNode2, imageNode, mediaNode};
}

std::optional<float> Nodes::lowestInLayout() const {
    std::optional<float> lowest;
    for (const node::NodePtr& node : content()) {
        const std::optional<float> own = node->lowestInLayout();
        if (own)
            lowest = std::min(own.value(), lowest.value_or(own.value()));
    }
    return lowest;
}

std::vector<scene::SCNNodePtr> Nodes::holders() const {
    return {fxHolderNode, particleAndParticleLightHolder, cameraJittery, mediaHolderNode};
}

void Nodes::addEffect(scene::SCNNode& parent, const scene::SCNNodePtr& effect) {
    std::erase_if(effects, [](const auto& earlier) { return earlier.expired(); });
    effects.push_back(effect);
    parent.addChildNode(effect);
}

void Nodes::removeEffects() {
    std::vector<scene::SCNNodePtr> all = particleAndParticleLightHolder->childNodes();
    for (const auto& effect : std::exchange(effects, {})) {
        if (scene::SCNNodePtr standing = effect.lock())
            all.push_back(std::move(standing));
    }
    scene::SCNTransaction::begin();
    particleAndParticleLightHolder->removeAllParticleSystems();
    for (const scene::SCNNodePtr& effect : all) {
        // The node may live a moment longer. Its running particles would then count as emitters in
        // the next run, and that run would show different particles.
        effect->enumerateHierarchy([](scene::SCNNode& node) { node.removeAllParticleSystems(); });
        effect->removeFromParentNode();
    }
    scene::SCNTransaction::commit();
}

} // namespace zelvo::stage
