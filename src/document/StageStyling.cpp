// SPDX-License-Identifier: MIT
#include "document/StageStyling.h"

#include "content/ImageMask.h"
#include "content/ImageVideo.h"
#include "document/EngineNames.h"
#include "document/StageReading.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/JsonObject.h"

#include <glm/gtc/constants.hpp>

#include <algorithm>
#include <memory>
#include <string>

namespace zelvo::document {

namespace {

[[nodiscard]] look::XMATClasses materialTitled(std::string_view title) {
    const auto* const row = std::ranges::find(look::kPairs, title, &look::PairRow::title);
    CHECK(row != look::kPairs.end(), "no material is called {}", title);
    return row->name;
}

void styleLayout(const LayoutStyle& style, const LayoutStyle& now, node::Node& node) {
    if (style.position && style.position != now.position)
        node.setLayoutPosition(glm::vec3(*style.position));
    if (style.scale && style.scale != now.scale) {
        node.scale2D = static_cast<float>(*style.scale);
        node.applyScale();
    }
    if (style.rotation && style.rotation != now.rotation) {
        const glm::vec3 angles(*style.rotation);
        node.rotXNode->setRotation({1, 0, 0, angles.x});
        node.rotYNode->setRotation({0, 1, 0, angles.y});
        node.rotZNode->setRotation({0, 0, 1, angles.z});
    }
    if (style.visible && style.visible != now.visible) {
        node.isVisible = *style.visible;
        node.updateVisibility();
    }
}

/// Whether all fields that need new letters are as they are.
[[nodiscard]] bool hasSameLetters(const TextStyle& style, const TextStyle& now) {
    const auto isSame = [](const auto& wanted, const auto& is) { return !wanted || wanted == is; };
    return isSame(style.text, now.text) && isSame(style.font, now.font) &&
           isSame(style.material, now.material) && isSame(style.bevel, now.bevel) &&
           isSame(style.profile, now.profile) && isSame(style.fill, now.fill);
}

void styleLetters(const TextStyle& style, content::TextNode& node) {
    // Each setter builds all letters again, but a text without a material has no letters. So the
    // material is removed first and set last, and the letters are built once.
    const auto material =
        style.material ? materialTitled(*style.material) : node.currentMaterialName();
    node.setCurrentMaterialName(std::nullopt);
    if (style.text)
        node.setText(*style.text);
    if (style.font)
        node.setFontName(*style.font);
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
}

void styleText(const TextStyle& style, const text::FontRegistry& fonts, content::TextNode& node) {
    node.settle();
    node.setMaxWidth(std::nullopt); // the style's own size comes first
    const TextStyle now = styleOf(node, fonts);
    if (style.frontColor && style.frontColor != now.frontColor)
        node.setFrontColor(*style.frontColor);
    if (style.bandColor && style.bandColor != now.bandColor)
        node.setBandColor(*style.bandColor);
    if (!hasSameLetters(style, now))
        styleLetters(style, node);
    else if (style.depth && style.depth != now.depth)
        node.setExtrusionDepth(*style.depth);
    styleLayout(style, now, node);
    node.setMaxWidth(style.maxWidth);
}

const content::ImageMaskPtr& maskNamed(const std::string& name) {
    const auto& masks = content::imageMasks();
    const auto mask = std::ranges::find(masks, name, &content::ImageMask::name);
    CHECK(mask != masks.end(), "no mask is called {}", name);
    return *mask;
}

void showPicture(const ImageStyle& style, StageMedia& media, content::ImageNode& node) {
    if (media.video) {
        content::setVideo(node, std::move(media.video));
        content::videoOf(node)->hidesWhenStopped = style.hideAtEnd;
    } else {
        node.setImage(media.picture ? media.picture : stage::Nodes::placeholder());
    }
    node.file = *style.image;
}

void styleImage(const ImageStyle& style, StageMedia& media, content::ImageNode& node) {
    const ImageStyle now = styleOf(node);
    if (style.image && style.image != now.image)
        showPicture(style, media, node);
    else if (!style.image && now.image)
        node.setImage(stage::Nodes::placeholder());
    if (style.mask && style.mask != now.mask)
        node.setCurrentMask(maskNamed(*style.mask));
    if (style.flipH.value_or(node.hFlipped) != node.hFlipped ||
        style.flipV.value_or(node.vFlipped) != node.vFlipped) {
        node.hFlipped = style.flipH.value_or(node.hFlipped);
        node.vFlipped = style.flipV.value_or(node.vFlipped);
        node.updateContent();
    }
    if (style.quarterTurns && style.quarterTurns != now.quarterTurns) {
        node.orientationRotationNode->removeAllActions();
        node.orientationRotationNode->setEulerAngles(
            {0, 0, -glm::half_pi<float>() * static_cast<float>(*style.quarterTurns)});
    }
    // As in the window, any change of the picture shows it.
    LayoutStyle layout = style;
    layout.visible = style.visible.value_or(true);
    styleLayout(layout, now, node);
}

/// A file that could not be read gives an object without anything in it, which keeps its name.
[[nodiscard]] scene::SCNReferenceNodePtr
objectOf(const std::filesystem::path& file, StageMedia& media) {
    auto object = std::make_shared<scene::SCNReferenceNode>(file);
    if (media.object)
        object->load(std::move(*media.object));
    for (const std::string& warning : object->warnings())
        foundation::logLine("zelvo: " + file.filename().string() + ": " + warning);
    object->castsShadow = false;
    return object;
}

/// An object keeps its own materials if the style has no material and no colour.
void styleMedia(const MediaStyle& style, StageMedia& media, content::MediaNode& node) {
    const MediaStyle before = styleOf(node);
    const bool losesMaterial = style.object && !style.material && !style.color && before.material;
    if (style.object && (style.object != before.object || losesMaterial))
        node.setCustomNode(objectOf(*style.object, media));
    if (style.shape && style.shape != styleOf(node).shape)
        node.setShape(content::MediaNode::shapeNamed(*style.shape));
    if (style.material && style.material != styleOf(node).material)
        node.setCurrentMaterialName(materialTitled(*style.material));
    if (style.color && style.color != styleOf(node).color)
        node.setFrontColor(*style.color);
    styleLayout(style, styleOf(node), node);
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

void styleContent(const Style& style, StageMedia media, stage::Nodes& stage) {
    for (const auto& node : {stage.textNode1, stage.textNode2}) {
        const auto text = style.nodes.find(node->shortName);
        if (text != style.nodes.end())
            styleText(text->second, stage.fonts(), *node);
    }
    if (style.object)
        styleMedia(*style.object, media, *stage.mediaNode);
    if (style.picture)
        styleImage(*style.picture, media, *stage.imageNode);
}

std::vector<foundation::Problem> addFonts(const Style& style, text::FontRegistry& fonts) {
    std::vector<foundation::Problem> missing;
    for (const auto& [name, text] : style.nodes) {
        if (!text.font)
            continue;
        foundation::Result<void> added;
        if (text.fontFile && fonts.addedFileOf(*text.font) != *text.fontFile)
            added = fonts.addFile(*text.fontFile);
        if (fonts.find(*text.font))
            continue;
        const auto known = engineNames().fonts;
        missing.push_back(
            {text.fontLine.number,
             added ? foundation::unknownName("font", *text.font, known) : added.error().message});
    }
    return missing;
}

node::NodePtr nodeNamed(std::string_view shortName, const stage::Nodes& stage) {
    for (const node::NodePtr& node : stage.content()) {
        if (node->shortName == shortName)
            return node;
    }
    FATAL("no node is called {}", shortName);
}

} // namespace zelvo::document
