// SPDX-License-Identifier: MIT
#include "app/SheetViews.h"

#include "app/Listed.h"
#include "environments/Environments.h"
#include "look/XMAT.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/Folders.h"

#include <iterator>
#include <string_view>
#include <utility>

namespace zelvo::app {

namespace {

using document::Performance;
using document::TextStyle;

constexpr auto kHeavyFont = "BowlbyOneSC-Regular";
constexpr auto kDim = image::Color::white(0.16F);
constexpr auto kSample = "Rag8"; // round and straight strokes, a counter, a descender

[[nodiscard]] TextStyle hiddenText() {
    TextStyle style;
    style.visible = false;
    return style;
}

[[nodiscard]] TextStyle shownText(std::string text, std::string font, std::string material) {
    TextStyle style;
    style.text = std::move(text);
    style.font = std::move(font);
    style.material = std::move(material);
    style.depth = 34;
    style.bevel = 3;
    style.profile = "rounded";
    style.fill = "outer";
    style.position = glm::dvec3(0);
    style.visible = true;
    return style;
}

/// An environment with nothing on its stage.
[[nodiscard]] Performance emptyStage(std::string_view scene, const image::Color& background) {
    Performance stage;
    stage.background = background;
    stage.scene = scene;
    stage.nodes["TX1"] = hiddenText();
    stage.nodes["TX2"] = hiddenText();
    stage.picture.emplace();
    stage.picture->visible = false;
    stage.object.emplace();
    stage.object->visible = false;
    return stage;
}

[[nodiscard]] std::string titleOf(look::XMATClasses pair) {
    return std::string(look::pairRow(pair).title);
}

/// Letters in the material, and a ball if shapes can have it: a ball shows best how a surface
/// reflects light.
[[nodiscard]] SheetView materialView(const look::PairRow& pair) {
    const std::string material(pair.title);
    SheetView view{
        .caption = material,
        .stage = emptyStage("Subtle", image::Color::hex(0x197FE6)),
        .fitted = {},
        .object = {}};
    const bool hasBall = pair.use == look::PairUse::everyNode;
    auto& text = view.stage.nodes["TX1"] = shownText(hasBall ? "R8" : "Rag", kHeavyFont, material);
    text.frontColor = image::Color::hex(pair.sampleFront);
    text.bandColor = image::Color::hex(pair.sampleBand);
    text.position = glm::dvec3(hasBall ? -105 : 0, 10, 0);
    text.scale = 2.0;
    text.rotation = glm::dvec3(-0.15, 0.25, 0);
    if (!hasBall)
        return view;
    auto& ball = *view.stage.object;
    ball.shape = "Sphere";
    ball.material = material;
    ball.color = text.frontColor;
    ball.position = glm::dvec3(150, 10, 0);
    ball.scale = 1.15;
    ball.visible = true;
    return view;
}

[[nodiscard]] SheetView sceneView(const environments::EnvironmentRow& environment) {
    const environments::SampleTitle& sample = environment.sample;
    const auto background = image::Color::hex(sample.background);
    SheetView view{
        .caption = std::string(environment.name),
        .stage = emptyStage(environment.name, background),
        .fitted = {},
        .object = {}};
    auto& first = view.stage.nodes["TX1"] = shownText("OPEN", kHeavyFont, titleOf(sample.first));
    first.frontColor = image::Color::white(1);
    first.bandColor = background;
    first.position = glm::dvec3(0, 52, 0);
    first.scale = 1.25;
    auto& second = view.stage.nodes["TX2"] =
        shownText("TONIGHT", kHeavyFont, titleOf(sample.second));
    second.frontColor = image::Color::hex(sample.accent);
    second.bandColor = image::Color::white(0.2F);
    second.position = glm::dvec3(0, -52, 0);
    second.scale = 0.95;
    return view;
}

[[nodiscard]] SheetView shapeView(const std::string& shape) {
    SheetView view{
        .caption = shape,
        .stage = emptyStage("Subtle", image::Color::hex(0x19E6E6)),
        .fitted = "OBJ",
        .object = {}};
    auto& object = *view.stage.object;
    object.shape = shape;
    object.material = "Iron";
    object.color = image::Color::hex(0xFFD98C);
    object.position = glm::dvec3(0, 12, 0);
    object.rotation = glm::dvec3(-0.2, 0.45, 0);
    object.visible = true;
    return view;
}

[[nodiscard]] SheetView maskView(const std::string& mask) {
    SheetView view{
        .caption = mask, .stage = emptyStage("Plain", kDim), .fitted = "IMG", .object = {}};
    auto& picture = *view.stage.picture;
    picture.image = foundation::mainBundle().path("Postcard.png");
    picture.mask = mask;
    picture.position = glm::dvec3(0);
    picture.visible = true;
    return view;
}

[[nodiscard]] SheetView fontView(const std::string& font) {
    SheetView view{
        .caption = font, .stage = emptyStage("Plain", kDim), .fitted = "TX1", .object = {}};
    auto& text = view.stage.nodes["TX1"] = shownText(kSample, font, "Plain");
    text.frontColor = image::Color::white(1);
    text.bandColor = image::Color::hex(0xE64C19);
    text.bevel = 1.8;
    text.depth = 24;
    return view;
}

/// In the file's own materials, which are best seen in even light.
[[nodiscard]] SheetView objectView(const std::filesystem::path& file) {
    SheetView view{
        .caption = file.filename().string(),
        .stage = emptyStage("Subtle", kDim),
        .fitted = "OBJ",
        .object = file};
    auto& object = *view.stage.object;
    object.position = glm::dvec3(0);
    object.rotation = glm::dvec3(0.25, -0.5, 0);
    object.visible = true;
    return view;
}

template <class Range, class MakeView>
[[nodiscard]] std::vector<SheetView> viewsOfAll(const Range& range, MakeView makeView) {
    std::vector<SheetView> views;
    views.reserve(std::size(range));
    for (const auto& item : range)
        views.push_back(makeView(item));
    return views;
}

} // namespace

SheetFormat formatOf(SheetKind kind) {
    switch (kind) {
    case SheetKind::materials:
    case SheetKind::scenes:
        return {.columns = 4, .tile = {384, 216}, .fitWidth = 560, .fitHeight = 250};
    case SheetKind::masks:
        return {.columns = 6, .tile = {252, 168}, .fitWidth = 500, .fitHeight = 330};
    case SheetKind::shapes:
        return {.columns = 6, .tile = {252, 168}, .fitWidth = 440, .fitHeight = 270};
    case SheetKind::objects:
        return {.columns = 4, .tile = {384, 288}, .fitWidth = 420, .fitHeight = 300};
    case SheetKind::fonts:
        return {.columns = 6, .tile = {252, 126}, .fitWidth = 640, .fitHeight = 270};
    }
    FATAL("no sheet {}", static_cast<int>(kind));
}

std::vector<SheetView> viewsOf(const SheetCommand& command) {
    switch (command.what) {
    case SheetKind::materials:
        return viewsOfAll(look::kPairs, materialView);
    case SheetKind::scenes:
        return viewsOfAll(environments::kEnvironments, sceneView);
    case SheetKind::shapes:
        return viewsOfAll(listed(Listing::shapes), shapeView);
    case SheetKind::masks:
        return viewsOfAll(listed(Listing::masks), maskView);
    case SheetKind::fonts:
        return viewsOfAll(listed(Listing::fonts), fontView);
    case SheetKind::objects:
        return viewsOfAll(command.files, objectView);
    }
    FATAL("no sheet {}", static_cast<int>(command.what));
}

} // namespace zelvo::app
