// SPDX-License-Identifier: MIT
#include "document/StageReading.h"

#include "content/ImageVideo.h"
#include "environments/SceneManager.h"
#include "platform/scene/SCNReferenceNode.h"

#include <glm/gtc/constants.hpp>
#include <glm/trigonometric.hpp>

#include <algorithm>
#include <cmath>
#include <string>

namespace zelvo::document {

namespace {

/// Angles are read from orientations, which do not keep their last digits.
constexpr double kAngleSteps = 1e4; ///< a degree

[[nodiscard]] double angleAbout(const glm::vec3& axis, const scene::SCNNode& node) {
    const glm::quat turn = node.orientation();
    const float along = glm::dot(glm::vec3(turn.x, turn.y, turn.z), axis);
    double degrees = glm::degrees(2 * std::atan2(double{along}, double{turn.w}));
    degrees = std::remainder(degrees, 360.0);
    return glm::radians(std::round(degrees * kAngleSteps) / kAngleSteps);
}

[[nodiscard]] LayoutStyle layoutOf(const node::Node& node) {
    return {
        .position = glm::dvec3(node.layoutPosition()),
        .scale = node.positionNode->scale.value().x,
        .rotation = glm::dvec3(
            angleAbout({1, 0, 0}, *node.rotXNode),
            angleAbout({0, 1, 0}, *node.rotYNode),
            angleAbout({0, 0, 1}, *node.rotZNode)),
        .visible = node.isVisible};
}

[[nodiscard]] int quarterTurnsOf(const node::Node& node) {
    const float turns = -node.orientationRotationNode->eulerAngles().z / glm::half_pi<float>();
    return ((static_cast<int>(std::lround(turns)) % 4) + 4) % 4;
}

[[nodiscard]] std::string titleOf(look::XMATClasses pair) {
    return std::string(look::pairRow(pair).title);
}

[[nodiscard]] std::optional<Music> musicOf(const audio::AudioPlayer& player) {
    if (!player.audioURL)
        return std::nullopt;
    const auto* const fade =
        std::ranges::find(audio::kFades, player.fadeState, &audio::FadeRow::state);
    return Music{
        .line = {},
        .file = player.audioURL->string(),
        .title = player.songTitle,
        .in = player.audioIn,
        .end = player.audioEnd,
        .preRoll = player.audioPreRoll,
        .fade = std::string(fade->name)};
}

} // namespace

TextStyle styleOf(const content::TextNode& node, const text::FontRegistry& fonts) {
    TextStyle style;
    static_cast<LayoutStyle&>(style) = layoutOf(node);
    style.scale = node.fullScale();
    style.maxWidth = node.maxWidth();
    style.text = node.text();
    style.font = node.fontName();
    if (const auto file = fonts.addedFileOf(node.fontName()); !file.empty())
        style.fontFile = file.string();
    style.material = titleOf(*node.currentMaterialName());
    style.frontColor = node.frontColor();
    style.bandColor = node.bandColor();
    style.depth = node.extrusionDepth();
    style.bevel = node.bevelRadius();
    style.profile = node.bevelProfile() == look::BevelProfile::rounded ? "rounded" : "linear";
    style.fill = node.bevelInnerOuter() == look::BevelInnerOuter::outer ? "outer" : "inner";
    return style;
}

ImageStyle styleOf(const content::ImageNode& node) {
    ImageStyle style;
    static_cast<LayoutStyle&>(style) = layoutOf(node);
    if (!node.file.empty())
        style.image = node.file.string();
    if (const content::VideoNodePlayer* const video = content::videoOf(node))
        style.hideAtEnd = video->hidesWhenStopped;
    style.mask = node.currentMask()->name;
    style.flipH = node.hFlipped;
    style.flipV = node.vFlipped;
    style.quarterTurns = quarterTurnsOf(node);
    return style;
}

MediaStyle styleOf(const content::MediaNode& node) {
    MediaStyle style;
    static_cast<LayoutStyle&>(style) = layoutOf(node);
    const auto object = std::dynamic_pointer_cast<const scene::SCNReferenceNode>(node.customNode());
    if (object)
        style.object = object->file().string();
    else
        style.shape = node.currentShape()->name;
    if (const auto material = node.currentMaterialName()) {
        style.material = titleOf(*material);
        style.color = node.frontColor();
    }
    return style;
}

Style styleOf(model::Model& model) {
    const stage::Nodes& stage = model.nodes();
    Style style;
    style.duration = model.duration();
    style.speed = std::string(model::speedOf(model.animationRatio).title);
    style.scene = std::string(environments::SceneManager::sceneNames.at(
        static_cast<std::size_t>(model.currentSceneIndex())));
    style.background = model.currentBackgroundColor();
    for (const auto& text : {stage.textNode1, stage.textNode2})
        style.nodes[text->shortName] = styleOf(*text, stage.fonts());
    style.picture = styleOf(*stage.imageNode);
    style.object = styleOf(*stage.mediaNode);
    style.music = musicOf(model.audioPlayer());
    return style;
}

} // namespace zelvo::document
