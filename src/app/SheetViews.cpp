// SPDX-License-Identifier: MIT
#include "app/SheetViews.h"

#include "app/EngineNames.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/Folders.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace zelvo::app {

namespace {

constexpr auto kHeavyFont = "BowlbyOneSC-Regular";
constexpr auto kSample = "Rag8"; // round and straight strokes, a counter, a descender

/// Each environment in a colour that suits its mood, and its two lines in materials that take its
/// light well.
struct SceneStyle {
    std::string_view scene;
    std::uint32_t background;
    const char* first;
    const char* second;
    std::uint32_t accent; ///< of the second line
};

// clang-format off
constexpr auto kSceneStyles = std::to_array<SceneStyle>({
    {"Flat",       0x19B2E6, "Flat",      "Flat",     0xE6E619},
    {"Plain",      0xE6B219, "Plain",     "Plain",    0xE61919},
    {"Shiny",      0x194CE6, "Iron",      "Plate",    0xFFC83C},
    {"Spherical",  0xE67F19, "Iron",      "Grained",  0xFFB85C},
    {"Ancient",    0xE6B219, "Rock",      "Grained",  0xFFD9A0},
    {"Backlight",  0x19B2E6, "Iron",      "Plastic",  0xFF4C9F},
    {"Stage",      0xE61919, "Old Metal", "Plain",    0xFFC83C},
    {"SpaceBox",   0x194CE6, "Old Metal", "Circuits", 0x9FE8FF},
    {"Brilliance", 0xE6197F, "Iron",      "Dynamic",  0xE619BF},
    {"Subtle",     0x19E6E6, "Grained",   "Plate",    0xFFA64C},
    {"Flares",     0xE61919, "Plastic",   "Plate",    0xFFE680},
});

// clang-format on

[[nodiscard]] const SceneStyle& styleOf(std::string_view scene) {
    const auto* const row = std::ranges::find(kSceneStyles, scene, &SceneStyle::scene);
    return row == kSceneStyles.end() ? kSceneStyles.front() : *row;
}

/// Each material in colours that it is likely to be used with.
struct MaterialColours {
    std::string_view material;
    std::uint32_t front;
    std::uint32_t band;
};

// clang-format off
constexpr auto kMaterialColours = std::to_array<MaterialColours>({
    {"Flat",                 0xE6B219, 0xE64C19},
    {"Plain",                0xF2EFE8, 0xE64C19},
    {"Plastic",              0xE6194C, 0xE6B219},
    {"Iron",                 0xDDE2E8, 0xB8C4D6},
    {"Plate",                0xE6A03C, 0xB06A28},
    {"Dynamic",              0xFF7A19, 0xE62A19},
    {"Circuits",             0x2FB37A, 0xE6B219},
    {"Rock",                 0xB9A48C, 0x8C7A66},
    {"Grained",              0x9C5821, 0x4A3222},
    {"Old Metal",            0xC89A5A, 0x8A5A30},
    {"Cracked",              0xD0713E, 0x6E4630},
    {"Reflecting",           0x16357C, 0x0C1C44},
    {"Iron / Circuit",       0xDDE2E8, 0x2FB37A},
    {"Iron / Plastic",       0xDDE2E8, 0xE6194C},
    {"Plastic / Reflecting", 0xE6B219, 0x16357C},
    {"Dynamic / Flat",       0x19CCE6, 0x0C1C44},
    {"Flat / Dynamic",       0x14141C, 0xE619BF},
});

// clang-format on

[[nodiscard]] const MaterialColours& coloursOf(std::string_view material) {
    const auto* const row =
        std::ranges::find(kMaterialColours, material, &MaterialColours::material);
    return row == kMaterialColours.end() ? kMaterialColours.front() : *row;
}

[[nodiscard]] bool isForShapes(const std::string& material) {
    return std::ranges::count(engineNames().objectMaterials, material) > 0;
}

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
[[nodiscard]] Performance emptyStage(std::string scene) {
    Performance stage;
    stage.background = image::Color::hex(styleOf(scene).background);
    stage.scene = std::move(scene);
    stage.nodes["TX1"] = hiddenText();
    stage.nodes["TX2"] = hiddenText();
    stage.picture.emplace();
    stage.picture->visible = false;
    stage.object.emplace();
    stage.object->visible = false;
    return stage;
}

/// Letters in the material and, where shapes can have it, a ball beside them: it shows at a glance
/// how a surface takes the light.
[[nodiscard]] SheetView materialView(const std::string& material) {
    SheetView view{.caption = material, .stage = emptyStage("Subtle"), .fitted = {}};
    view.stage.background = image::Color::hex(0x197FE6);
    const auto& colours = coloursOf(material);
    const bool hasBall = isForShapes(material);
    auto& text = view.stage.nodes["TX1"] = shownText(hasBall ? "R8" : "Rag", kHeavyFont, material);
    text.frontColor = image::Color::hex(colours.front);
    text.bandColor = image::Color::hex(colours.band);
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

[[nodiscard]] SheetView sceneView(const std::string& scene) {
    SheetView view{.caption = scene, .stage = emptyStage(scene), .fitted = {}};
    const auto& style = styleOf(scene);
    auto& first = view.stage.nodes["TX1"] = shownText("OPEN", kHeavyFont, style.first);
    first.frontColor = image::Color::white(1);
    first.bandColor = image::Color::hex(style.background);
    first.position = glm::dvec3(0, 52, 0);
    first.scale = 1.25;
    auto& second = view.stage.nodes["TX2"] = shownText("TONIGHT", kHeavyFont, style.second);
    second.frontColor = image::Color::hex(style.accent);
    second.bandColor = image::Color::white(0.2F);
    second.position = glm::dvec3(0, -52, 0);
    second.scale = 0.95;
    return view;
}

[[nodiscard]] SheetView shapeView(const std::string& shape) {
    SheetView view{.caption = shape, .stage = emptyStage("Subtle"), .fitted = "OBJ"};
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
    SheetView view{.caption = mask, .stage = emptyStage("Plain"), .fitted = "IMG"};
    view.stage.background = image::Color::white(0.16F);
    auto& picture = *view.stage.picture;
    picture.image = foundation::mainBundle().path("Postcard.png");
    picture.mask = mask;
    picture.position = glm::dvec3(0);
    picture.visible = true;
    return view;
}

[[nodiscard]] SheetView fontView(const std::string& font) {
    SheetView view{.caption = font, .stage = emptyStage("Plain"), .fitted = "TX1"};
    view.stage.background = image::Color::white(0.16F);
    auto& text = view.stage.nodes["TX1"] = shownText(kSample, font, "Plain");
    text.frontColor = image::Color::white(1);
    text.bandColor = image::Color::hex(0xE64C19);
    text.bevel = 1.8;
    text.depth = 24;
    return view;
}

template <class MakeView>
[[nodiscard]] std::vector<SheetView>
viewsOfAll(const std::vector<std::string>& names, MakeView makeView) {
    std::vector<SheetView> views;
    views.reserve(names.size());
    for (const auto& name : names)
        views.push_back(makeView(name));
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
    case SheetKind::fonts:
        return {.columns = 6, .tile = {252, 126}, .fitWidth = 640, .fitHeight = 270};
    }
    FATAL("no sheet {}", static_cast<int>(kind));
}

std::vector<SheetView> viewsOf(SheetKind kind) {
    switch (kind) {
    case SheetKind::materials:
        return viewsOfAll(listed(Listing::materials), materialView);
    case SheetKind::scenes:
        return viewsOfAll(listed(Listing::scenes), sceneView);
    case SheetKind::shapes:
        return viewsOfAll(listed(Listing::shapes), shapeView);
    case SheetKind::masks:
        return viewsOfAll(listed(Listing::masks), maskView);
    case SheetKind::fonts:
        return viewsOfAll(listed(Listing::fonts), fontView);
    }
    FATAL("no sheet {}", static_cast<int>(kind));
}

} // namespace zelvo::app
