// SPDX-License-Identifier: MIT
#include "content/TextNode.h"

#include "content/CrashGuard.h"
#include "content/StylePresets.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/RunLoop.h"
#include "platform/scene/SCNTransaction.h"
#include "platform/scene/SkeletonCache.h"

#include <glm/common.hpp>
#include <glm/gtc/matrix_transform.hpp>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelvo::content {
namespace {

constexpr double kFlatness = 0.1;      // scene units
constexpr double kShallowestDepth = 1; // scene units; limit for changes of depth
constexpr double kThinnest = 0.01;     // scene units; a solid needs some depth
constexpr auto kLineMeasure = "_";     // measures the end of a line, including trailing blanks

geometry::BezierPath makeLinearProfile() {
    geometry::BezierPath path;
    path.moveTo({0, 1});
    path.lineTo({1, 0});
    return path;
}

geometry::BezierPath makeRoundedProfile() {
    geometry::BezierPath path;
    path.moveTo({0, 1});
    path.quadTo({1, 1}, {1, 0});
    return path;
}

glm::mat4 translation(float x, float y) {
    return glm::translate(glm::mat4(1), {x, y, 0});
}

/// The advance of the whole line. It is the position of the measuring character, if there is one.
float lineAdvance(const std::vector<TextCoords>& coordinates, std::size_t letterCount) {
    float end = 0;
    for (std::size_t i = 0; i < letterCount; ++i) {
        end = std::max(end, coordinates[i].x + coordinates[i].width);
    }
    if (coordinates.size() == letterCount)
        return end;
    return coordinates.back().x;
}

/// The extra character is left of the letters, where a line ends that is written right to left.
bool endsLeft(const std::vector<TextCoords>& coordinates) {
    return coordinates.back().x < coordinates.front().x;
}

std::vector<TextCoords>
coordinatesOf(const std::string& line, const text::TextAttributes& attributes) {
    std::vector<TextCoords> coordinates;
    for (const text::PlacedCharacter& place : text::layoutLine(line, attributes)) {
        const float below = static_cast<float>(place.descent) + static_cast<float>(place.leading);
        coordinates.push_back(
            {static_cast<float>(place.x),
             std::ceil(below + 7.0f),
             static_cast<float>(place.width)});
    }
    return coordinates;
}

/// Where a letter starts in its material's pictures. The steps never repeat, and neighbours are far
/// apart (Roberts 2018, "The Unreasonable Effectiveness of Quasirandom Sequences").
glm::vec2 textureShiftOf(std::size_t letter) {
    return glm::fract(static_cast<float>(letter) * glm::vec2(0.7548777f, 0.5698403f));
}

bool isSameStyle(const text::TextAttributes& a, const text::TextAttributes& b) {
    return a.font == b.font && a.fallbacks == b.fallbacks && a.size == b.size && a.kern == b.kern;
}

} // namespace

TextNodePtr TextNode::make(Options options, const node::Surroundings& surroundings) {
    auto node = std::make_shared<TextNode>(Key{}, std::move(options), surroundings);
    node->link();
    node->updateContent();
    return node;
}

TextNode::TextNode(Key key, Options options, const node::Surroundings& surroundings)
    : Node(key, options.position, options.scale, surroundings)
    , inititalText(options.text)
    , linearProfile(makeLinearProfile())
    , roundedProfile(makeRoundedProfile())
    , text_(std::move(options.text))
    , fontName_(std::move(options.fontName)) {
    for (look::XMATPtr& pair : look::makePairs(look::PairUse::textsOnly)) {
        allMaterials.push_back(std::move(pair));
    }
    name = "TextNode";
    shortName = std::move(options.shortName);
}

TextNode::~TextNode() {
    if (isNewestCancelled)
        *isNewestCancelled = true;
}

void TextNode::setText(std::string text) {
    coming.text.reset();
    text_ = std::move(text);
    updateContent();
}

void TextNode::setFontName(std::string wanted) {
    coming.fontName.reset();
    fontName_ = std::move(wanted);
    updateContent();
}

void TextNode::setTextSoon(std::string text) {
    coming.text = std::move(text);
    prepareComing();
}

void TextNode::setFontNameSoon(std::string wanted) {
    coming.fontName = std::move(wanted);
    prepareComing();
}

void TextNode::settle() {
    if (isNewestCancelled)
        *isNewestCancelled = true;
    coming.guard.reset();
    const auto text = std::exchange(coming.text, {});
    const auto font = std::exchange(coming.fontName, {});
    if (!text && !font)
        return;
    text_ = text.value_or(text_);
    fontName_ = font.value_or(fontName_);
    updateContent();
}

// A job that is replaced stops after the letter it is at; so jobs never queue up.
void TextNode::prepareComing() {
    if (isNewestCancelled)
        *isNewestCancelled = true;
    const std::string& font = coming.fontName.value_or(fontName_);
    auto missing = scene::missingSkeletons(
        text::charactersOf(coming.text.value_or(text_)), attributesWith(font), kFlatness);
    if (missing.empty() || !currentMaterialName())
        return settle();
    coming.guard.reset();
    coming.guard = std::make_unique<CrashGuard>(surroundings(), font);
    isNewestCancelled = std::make_shared<std::atomic<bool>>(false);
    if (!outlineQueue)
        outlineQueue = surroundings().runLoop->makeSerialQueue("outlines");
    const auto finish = lifetime.guard([this] { settle(); });
    outlineQueue->async([missing = std::move(missing),
                         isCancelled = isNewestCancelled,
                         finish,
                         &loop = *surroundings().runLoop]() mutable {
        for (scene::MissingSkeleton& letter : missing) {
            if (*isCancelled)
                break;
            letter.compute();
        }
        loop.post([missing = std::move(missing), isCancelled, finish] {
            for (const scene::MissingSkeleton& letter : missing)
                letter.keep();
            if (!*isCancelled)
                finish();
        });
    });
}

void TextNode::setBevelRadius(float radius) {
    bevelRadius_ = static_cast<double>(radius);
    updateContent();
}

void TextNode::setKerning(float kerning) {
    kerning_ = static_cast<double>(kerning);
    updateContent();
}

void TextNode::setBevelProfile(look::BevelProfile profile) {
    bevelProfile_ = profile;
    updateContent();
}

void TextNode::setBevelInnerOuter(look::BevelInnerOuter fill) {
    bevelInnerOuter_ = fill;
    updateContent();
}

void TextNode::setExtrusionDepth(double depth) {
    extrusionDepth_ = depth;
    updateExtrusion();
}

void TextNode::applyStyle(const TextStylePreset& preset) {
    setFrontColor(preset.frontColor);
    setBandColor(preset.bandColor);
    // A single rebuild at the end is enough.
    keepMaterialName(preset.material);
    coming.fontName.reset();
    fontName_ = preset.fontName;
    bevelProfile_ = preset.bevelProfile;
    bevelRadius_ = preset.bevelRadius;
    bevelInnerOuter_ = preset.bevelInnerOuter;
    extrusionDepth_ = preset.extrusionDepth;
    scene::SCNTransaction::begin();
    updateContent();
    scene::SCNTransaction::commit();
}

void TextNode::updateContent() {
    if (!currentMaterialName()) {
        CrashGuard::removeMark(surroundings());
        return;
    }
    const CrashGuard guard(surroundings(), fontName_);
    isFontCorrupt = guard.isFontCorrupt();
    takeUpMaterial();
    currentMaterial->bevelInnerOuter = bevelInnerOuter_;
    currentMaterial->updateMaterials();
    buildLetters();
    updateOutline();
}

std::vector<CharNodePtr> TextNode::letters() const {
    std::vector<CharNodePtr> found;
    for (const scene::SCNNodePtr& child : contentNode->childNodes()) {
        if (auto letter = std::dynamic_pointer_cast<CharNode>(child)) {
            found.push_back(std::move(letter));
        }
    }
    return found;
}

text::TextAttributes TextNode::attributesWith(const std::string& font) const {
    const text::FontRegistry& fonts = *surroundings().fonts;
    text::TextAttributes attributes;
    attributes.font = fonts.find(font);
    attributes.fallbacks = fonts.fallbacks();
    if (!attributes.font)
        attributes.font = fonts.fallback();
    attributes.size = kFontSize;
    attributes.kern = kerning_;
    return attributes;
}

bool TextNode::isFitted() const {
    return maxWidth_ && positionNode->scale.value().x == fittedScale_;
}

std::optional<double> TextNode::maxWidth() const {
    return isFitted() ? maxWidth_ : std::nullopt;
}

float TextNode::fullScale() const {
    return isFitted() ? fullScale_ : positionNode->scale.value().x;
}

void TextNode::setMaxWidth(std::optional<double> most) {
    fullScale_ = fullScale();
    if (isFitted() && !most) {
        scale2D = fullScale_;
        positionNode->scale = glm::vec3(scale2D);
    }
    maxWidth_ = most;
    fitWidth();
}

void TextNode::fitWidth() {
    if (!maxWidth_)
        return;
    const geometry::Box box = layoutBox();
    const double width = box.isEmpty() ? 0 : double{box.max.x} - double{box.min.x};
    const bool isTooWide = width * double{fullScale_} > *maxWidth_;
    fittedScale_ = isTooWide ? static_cast<float>(*maxWidth_ / width) : fullScale_;
    scale2D = fittedScale_;
    positionNode->scale = glm::vec3(scale2D);
    updateOutline();
}

void TextNode::buildLetters() {
    const bool wasFitted = isFitted();
    const std::vector<scene::SCNNodePtr> former = contentNode->childNodes();
    for (const scene::SCNNodePtr& letter : former)
        letter->removeFromParentNode();

    const text::TextAttributes style = attributesWith(fontName_);
    const std::vector<std::string> characters = text::charactersOf(text_);
    std::vector<TextCoords> coordinates = coordinatesOf(text_ + kLineMeasure, style);
    // Some characters join with the next one; such a line is measured without the extra character.
    // So is a line that ends on the left: its letters must begin at zero.
    if (coordinates.size() == characters.size() || endsLeft(coordinates))
        coordinates = coordinatesOf(text_, style);
    CHECK(
        coordinates.size() >= characters.size(),
        "{} characters, but only {} places on the line",
        characters.size(),
        coordinates.size());

    makeSolids(characters, style);
    float maxHeight = 0;
    float widthSum = 0;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const auto letter = std::make_shared<CharNode>();
        letter->wrapperNode = std::static_pointer_cast<Node>(shared_from_this());
        letter->geometry = solids.at(characters[i]);
        letter->textureShift = textureShiftOf(i);
        contentNode->addChildNode(letter);
        const geometry::Box box = letter->boundingBox();
        maxHeight = std::max(maxHeight, box.max.y);
        widthSum += box.max.x;
        const glm::vec3 place{coordinates[i].x, 0, 0};
        letter->position = place;
        letter->originalPosition = place;
    }
    centreLetters(widthSum, maxHeight, lineAdvance(coordinates, characters.size()));
    if (wasFitted)
        fitWidth();
}

geometry::Box TextNode::layoutBox() const {
    geometry::Box all;
    for (const auto& letter : letters()) {
        const geometry::Box box = letter->geometry->boundingBox();
        if (box.isEmpty())
            continue; // a blank
        const glm::vec3 place =
            letter->originalPosition.value_or(glm::vec3(0)) - glm::vec3(letter->pivot[3]);
        all.include(box.min + place);
        all.include(box.max + place);
    }
    return all;
}

// Keeps the solids of characters that stay: a keystroke builds only the new letter.
void TextNode::makeSolids(
    const std::vector<std::string>& characters, const text::TextAttributes& style) {
    const Solids former = isSameStyle(style, solidStyle) && bevelProfile_ == solidProfile
                              ? std::exchange(solids, {})
                              : Solids();
    solids.clear();
    solidStyle = style;
    solidProfile = bevelProfile_;
    for (const std::string& character : characters) {
        std::shared_ptr<scene::SCNText>& solid = solids[character];
        if (solid)
            continue;
        const auto kept = former.find(character);
        if (kept != former.end()) {
            solid = kept->second;
        } else {
            solid = std::make_shared<scene::SCNText>(character, style, kThinnest);
            solid->setFlatness(kFlatness);
            solid->setChamferProfile(
                bevelProfile_ == look::BevelProfile::linear ? linearProfile : roundedProfile);
        }
        form(*solid);
    }
}

void TextNode::form(scene::SCNText& solid) const {
    solid.setExtrusionDepth(std::max(extrusionDepth_, kThinnest));
    solid.setChamferRadius(isFontCorrupt ? 0 : std::max(bevelRadius_, 0.0));
    solid.materials = currentMaterial->materials;
}

void TextNode::centreLetters(float widthSum, float maxHeight, float advance) {
    const std::vector<scene::SCNNodePtr>& nodes = contentNode->childNodes();
    contentNode->pivot = glm::mat4(1);
    if (nodes.empty())
        return; // no average without letters
    const float averageWidth = widthSum / static_cast<float>(nodes.size());
    // All letters rotate around the same relative point, so that narrow letters do not wobble.
    for (const scene::SCNNodePtr& letter : nodes) {
        letter->pivot = translation(averageWidth * 0.5f, maxHeight * 0.5f);
    }
    // Correct for the shift that the letters' pivots cause.
    contentNode->pivot = translation(advance * 0.5f - averageWidth * 0.5f, 0);
}

void TextNode::updateExtrusion() {
    for (const scene::SCNNodePtr& child : contentNode->childNodes()) {
        if (const auto solid = std::dynamic_pointer_cast<scene::SCNText>(child->geometry)) {
            solid->setExtrusionDepth(std::max(extrusionDepth_, kShallowestDepth));
        }
    }
}

} // namespace zelvo::content
