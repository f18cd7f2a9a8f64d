// SPDX-License-Identifier: MIT
#include "app/StageStyling.h"

#include "content/ImageMask.h"
#include "content/ImageVideo.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/Console.h"
#include "platform/image/reading/ImageReader.h"

#include <glm/gtc/constants.hpp>

#include <algorithm>
#include <memory>
#include <string>

namespace zelvo::app {

namespace {

[[nodiscard]] look::XMATClasses materialTitled(std::string_view title) {
    const auto* const row = std::ranges::find(look::kPairs, title, &look::PairRow::title);
    CHECK(row != look::kPairs.end(), "no material is called {}", title);
    return row->name;
}

void styleLayout(const LayoutStyle& style, node::Node& node) {
    if (style.position)
        node.setLayoutPosition(glm::vec3(*style.position));
    if (style.scale) {
        node.scale2D = static_cast<float>(*style.scale);
        node.applyScale();
    }
    if (style.rotation) {
        const glm::vec3 angles(*style.rotation);
        node.rotXNode->setRotation({1, 0, 0, angles.x});
        node.rotYNode->setRotation({0, 1, 0, angles.y});
        node.rotZNode->setRotation({0, 0, 1, angles.z});
    }
    if (style.visible) {
        node.isVisible = *style.visible;
        node.updateVisibility();
    }
}

void styleText(const TextStyle& style, content::TextNode& node) {
    // Each setter builds all letters again, but a text without a material has no letters. So the
    // material is removed first and set last, and the letters are built once.
    const auto material =
        style.material ? materialTitled(*style.material) : node.currentMaterialName();
    node.setCurrentMaterialName(std::nullopt);
    if (style.text)
        node.setText(*style.text);
    if (style.font)
        node.setFontName(*style.font);
    if (style.frontColor)
        node.setFrontColor(*style.frontColor);
    if (style.bandColor)
        node.setBandColor(*style.bandColor);
    if (style.bevel)
        node.setBevelRadius(static_cast<float>(*style.bevel));
    if (style.profile) {
        node.setBevelProfile(
            *style.profile == "rounded" ? look::BevelProfile::rounded : look::BevelProfile::linear);
    }
    if (style.fill) {
        node.setBevelInnerOuter(
            *style.fill == "outer" ? look::BevelInnerOuter::outer : look::BevelInnerOuter::inner);
    }
    if (style.depth)
        node.setExtrusionDepth(*style.depth);
    node.setCurrentMaterialName(material);
    styleLayout(style, node);
}

const content::ImageMaskPtr& maskNamed(const std::string& name) {
    const auto& masks = content::imageMasks();
    const auto mask = std::ranges::find(masks, name, &content::ImageMask::name);
    CHECK(mask != masks.end(), "no mask is called {}", name);
    return *mask;
}

foundation::Result<void>
showVideo(const ImageStyle& style, const std::filesystem::path& file, content::ImageNode& node) {
    const auto player = media::AVPlayer::open(file);
    if (!player)
        return tl::unexpected(player.error());
    content::setVideo(node, *player);
    content::videoOf(node)->hidesWhenStopped = style.hideAtEnd;
    return {};
}

foundation::Result<void> showPicture(const std::filesystem::path& file, content::ImageNode& node) {
    auto picture = image::loadImage(file);
    if (!picture)
        return tl::unexpected(picture.error());
    node.setImage(std::move(*picture));
    return {};
}

foundation::Result<void>
styleImage(const ImageStyle& style, const std::filesystem::path& folder, content::ImageNode& node) {
    if (style.image) {
        const auto file = folder / *style.image;
        const auto shown =
            media::isVideoFile(file) ? showVideo(style, file, node) : showPicture(file, node);
        if (!shown)
            return tl::unexpected(shown.error().in(std::to_string(style.line)));
    }
    if (style.mask)
        node.setCurrentMask(maskNamed(*style.mask));
    node.hFlipped = style.flipH.value_or(node.hFlipped);
    node.vFlipped = style.flipV.value_or(node.vFlipped);
    node.updateContent();
    if (style.quarterTurns) {
        node.orientationRotationNode->setEulerAngles(
            {0, 0, -glm::half_pi<float>() * static_cast<float>(*style.quarterTurns)});
    }
    // As in the window, any change of the picture shows it.
    LayoutStyle layout = style;
    layout.visible = style.visible.value_or(true);
    styleLayout(layout, node);
    return {};
}

/// An object keeps its own materials if the style has no material and no colour.
foundation::Result<void>
styleMedia(const MediaStyle& style, const std::filesystem::path& folder, content::MediaNode& node) {
    if (style.object) {
        if (auto shown = showObject(folder / *style.object, node); !shown)
            return tl::unexpected(shown.error().in(std::to_string(style.line)));
    }
    if (style.material)
        node.setCurrentMaterialName(materialTitled(*style.material));
    if (style.color)
        node.setFrontColor(*style.color);
    if (style.shape)
        node.setShape(content::MediaNode::shapeNamed(*style.shape));
    styleLayout(style, node);
    return {};
}

void styleTexts(const Performance& performance, stage::Nodes& stage) {
    for (const auto& node : {stage.textNode1, stage.textNode2}) {
        const auto style = performance.nodes.find(node->shortName);
        if (style != performance.nodes.end())
            styleText(style->second, *node);
    }
}

} // namespace

foundation::Result<scene::SCNReferenceNodePtr>
showObject(const std::filesystem::path& file, content::MediaNode& node) {
    auto object = std::make_shared<scene::SCNReferenceNode>(file);
    if (auto loaded = object->load(); !loaded)
        return tl::unexpected(loaded.error());
    for (const std::string& warning : object->warnings())
        foundation::logLine("zelvo: " + file.filename().string() + ": " + warning);
    object->castsShadow = false;
    node.setCustomNode(object);
    return object;
}

foundation::Result<void> styleContent(
    const Performance& performance, const std::filesystem::path& folder, stage::Nodes& stage) {
    styleTexts(performance, stage);
    if (performance.object) {
        if (auto styled = styleMedia(*performance.object, folder, *stage.mediaNode); !styled)
            return styled;
    }
    if (!performance.picture)
        return {};
    return styleImage(*performance.picture, folder, *stage.imageNode);
}

node::NodePtr nodeNamed(std::string_view shortName, const stage::Nodes& stage) {
    for (const node::NodePtr& node : stage.content()) {
        if (node->shortName == shortName)
            return node;
    }
    FATAL("no node is called {}", shortName);
}

} // namespace zelvo::app
