// SPDX-License-Identifier: MIT
#include "environments/SNE.h"

#include "node/DefaultSCNNode.h"
#include "platform/image/reading/ImageNamed.h"
#include "platform/scene/SCNTransaction.h"
#include "shared/Palette.h"

#include <algorithm>
#include <cmath>

namespace zelvo::environments {
namespace {

constexpr float kParticleReach = 2300;
constexpr double kHomeAspect = 16.0 / 9; ///< the stages are made for pictures of this form
constexpr float kLowestGround = -185;    ///< below a picture that stands at home
constexpr float kHighestGround = -90;    ///< the camera must be able to turn down to it
constexpr float kGap = 1;                ///< between the ground and what stands on it
/// Content that hangs over the floor is mirrored by a floor that is higher by this share of the gap.
constexpr float kLift = 0.36f;
constexpr auto kPlaceholderPicture = "LogoPlaceholder.png";

content::TextStylePreset defaultTextStyle() {
    content::TextStylePreset style;
    style.frontColor = ui::kPalette[ui::kWhiteIndex];
    style.bandColor = ui::kPalette[ui::kBlackIndex];
    return style;
}

} // namespace

SNE::SNE(foundation::RunLoop& loop)
    : scene(std::make_shared<scene::SCNScene>())
    , t1TextStylePreset(defaultTextStyle())
    , t2TextStylePreset(defaultTextStyle())
    , imageStylePreset{image::requiredImage(kPlaceholderPicture), content::imageMasks().front(), false}
    , mediaNodeStylePreset{content::mediaShapes().front(), ui::kPalette[ui::kWhiteIndex], look::XMATClasses::oldMetal}
    , runLoop(loop)
    , operationQueue(loop.makeSerialQueue("environment tint")) {}

SNE::~SNE() {
    cancelOperations();
}

void SNE::setParticleSystem(const scene::SCNParticleSystemPtr& system) {
    particleSystem_ = system;
    if (!system)
        return;
    system->emitterShape = scene::ParticleShape::sphere(kParticleReach);
    const auto emitter = std::make_shared<node::DefaultSCNNode>();
    emitter->addParticleSystem(system);
    emitter->categoryBitMask = node::kStageMask;
    scene->rootNode()->addChildNode(emitter);
}

void SNE::restartParticles() const {
    scene->rootNode()->enumerateHierarchy([](scene::SCNNode& node) {
        const auto systems = node.particleSystems();
        node.removeAllParticleSystems();
        for (const scene::SCNParticleSystemPtr& system : systems)
            node.addParticleSystem(system);
    });
}

void SNE::setBackground(const image::Color& color) {
    backgroundColor_ = color;
}

scene::SCNCameraPtr SNE::makeCamera() const {
    auto camera = std::make_shared<scene::SCNCamera>();
    camera->zFar = 20000;
    camera->narrowestAspect = kHomeAspect;
    camera->fStop = 5.1;
    camera->wantsDepthOfField = true;
    camera->focusDistance = 10;
    camera->motionBlurIntensity = 0;
    camera->wantsExposureAdaptation = false;
    camera->wantsHDR = true;
    return camera;
}

void SNE::tintBackground() {
    scene::SCNMaterialProperty& background = scene->background;
    if (std::holds_alternative<image::Color>(background.contents)) {
        cancelOperations();
        background.contents = backgroundColor_;
        return;
    }
    const image::ImagePtr picture = background.image();
    if (!picture)
        return;

    // Only the picture's alpha is used, so it may already be tinted.
    paintBackground([picture](const image::Color& color) -> scene::SCNMaterialProperty::Contents {
        return std::make_shared<const image::Image>(image::tinted(*picture, color));
    });
}

void SNE::paintBackground(Painter painter) {
    if (isNewestReplaced)
        *isNewestReplaced = true;
    isNewestReplaced = std::make_shared<std::atomic<bool>>(false);
    if (!areCancelled)
        areCancelled = std::make_shared<std::atomic<bool>>(false);
    // The job holds the scene weakly: it must not keep an old scene alive, nor destroy it on its
    // thread.
    operationQueue->async([painter = std::move(painter),
                           color = backgroundColor_,
                           isReplaced = isNewestReplaced,
                           isCancelled = areCancelled,
                           stage = std::weak_ptr(scene),
                           &loop = runLoop] {
        if (*isReplaced || *isCancelled)
            return;
        loop.post([result = painter(color), isCancelled, stage] {
            const auto shown = stage.lock();
            if (shown && !*isCancelled)
                shown->background.contents = result;
        });
    });
}

void SNE::cancelOperations() {
    if (areCancelled)
        *areCancelled = true;
    areCancelled.reset();
}

void SNE::loadScene(const std::string& name) {
    scene = scene::SCNScene::sceneNamed(name);
    // The file contains a camera and a sample text as aids for editing it; they are removed here.
    scene::SCNTransaction::begin();
    for (const char* const aid : {"camera", "testText"}) {
        if (const auto node = nodeNamed(aid))
            node->removeFromParentNode();
    }
    scene::SCNTransaction::commit();
    gatherStage();
}

// Lamps that shine on the content only stay where they are.
void SNE::gatherStage() {
    scene->rootNode()->enumerateHierarchy([this](const scene::SCNNode& node) {
        if (!node.geometry)
            return;
        for (const scene::SCNMaterialPtr& material : node.geometry->materials) {
            if (!material->floor)
                continue;
            floors.push_back(material);
            groundOfFile = node.worldTransform()[3].y + material->floor->height;
        }
    });
    if (floors.empty())
        return;
    stage = std::make_shared<node::DefaultSCNNode>();
    for (const scene::SCNNodePtr& child : std::vector(scene->rootNode()->childNodes())) {
        if (child->light && child->light->categoryBitMask == node::kContentLightMask)
            continue;
        child->removeFromParentNode();
        stage->addChildNode(child);
    }
    scene->rootNode()->addChildNode(stage);
}

void SNE::setGround(float lowestOfContent) {
    if (!stage)
        return;
    const float ground = std::clamp(lowestOfContent - kGap, kLowestGround, kHighestGround);
    stage->position = glm::vec3(0, ground - groundOfFile, 0);
    for (const scene::SCNMaterialPtr& material : floors)
        material->floor->lift = kLift * std::max(lowestOfContent - kGap - ground, 0.0f);
}

void SNE::setLighting(const std::string& picture, float intensity) {
    scene->lightingEnvironment.setImage(image::requiredEnvironment(picture));
    scene->lightingEnvironment.intensity = intensity;
}

void SNE::setLamp(const scene::SCNNodePtr& node, const image::Color& color) {
    if (!node || !node->light)
        return;
    node->light->color = color;
    node->enumerateHierarchy([&color](const scene::SCNNode& part) {
        if (!part.geometry)
            return;
        for (const scene::SCNMaterialPtr& material : part.geometry->materials)
            material->multiply.contents = color;
    });
}

scene::SCNNodePtr SNE::nodeNamed(const std::string& name) const {
    return scene->rootNode()->childNodeWithName(name, scene::SCNNode::Search::recursively);
}

image::HSBColor hueShifted(const image::Color& color, float offset) {
    image::HSBColor shifted = image::toHSB(color);
    shifted.hue = std::fmod(shifted.hue + offset, 1.0f);
    return shifted;
}

} // namespace zelvo::environments
