// SPDX-License-Identifier: MIT
#include "document/EngineNames.h"

#include "audio/AudioPlayer.h"
#include "catalogue/Catalogue.h"
#include "content/FontManager.h"
#include "content/ImageMask.h"
#include "content/MediaShape.h"
#include "environments/SceneManager.h"
#include "look/XMAT.h"
#include "model/AnimationRatio.h"
#include "platform/foundation/Check.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace zelvo::document {

namespace {

template <class Range, class Projection>
[[nodiscard]] std::vector<std::string> collected(const Range& range, Projection nameOf) {
    std::vector<std::string> names;
    names.reserve(std::size(range));
    for (const auto& item : range)
        names.emplace_back(nameOf(item));
    return names;
}

} // namespace

Names engineNames() {
    Names names;
    names.fonts =
        collected(content::FontManager::builtInFonts(), [](const auto& font) { return font.name; });
    names.materials = collected(look::kPairs, [](const auto& row) { return row.title; });
    for (const auto& row : look::kPairs) {
        if (row.use == look::PairUse::everyNode)
            names.objectMaterials.emplace_back(row.title);
    }
    names.shapes = collected(content::mediaShapes(), [](const auto& shape) { return shape->name; });
    names.masks = collected(content::imageMasks(), [](const auto& mask) { return mask->name; });
    names.speeds = collected(model::kSpeeds, [](const auto& row) { return row.title; });
    names.fades = collected(audio::kFades, [](const auto& row) { return row.name; });
    names.scenes = collected(environments::kEnvironments, [](const auto& row) { return row.name; });
    for (const auto& tab : catalogue::tabs()) {
        TabNames row{.tab = std::string(tab.shortTitle), .titles = {}};
        for (const auto& button : tab.buttons()) {
            row.titles.emplace_back(button.title);
            if (button.isHold())
                row.held.emplace_back(button.title);
        }
        names.tabs.push_back(std::move(row));
    }
    return names;
}

int sceneIndexOf(const std::string& name) {
    const auto& names = environments::SceneManager::sceneNames;
    const auto* const found = std::ranges::find(names, name);
    CHECK(found != names.end(), "no scene is called {}", name);
    return static_cast<int>(std::distance(names.begin(), found));
}

} // namespace zelvo::document
