// SPDX-License-Identifier: MIT
#include "content/FontManager.h"

#include "platform/foundation/Console.h"

#include <fmt/format.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace zelvo::content {
namespace {

// covers many languages, and is heavy enough for a title
constexpr auto kFallbackFont = "HelveticaNeue-Bold";

// For scripts that the list does not cover: Hebrew and Arabic; Chinese, Japanese and Korean.
constexpr auto kScriptFonts =
    std::to_array<std::string_view>({"DejaVuSans-Bold.ttf", "DroidSansFallback.ttf"});

/// A font that is not in the list; null if the file is missing. Only texts in its scripts need it.
text::FontPtr scriptFont(const foundation::Bundle& bundle, std::string_view name) {
    const auto file = bundle.path(fmt::format("fonts/{}", name));
    text::FontRegistry alone;
    if (file.empty() || !alone.registerFile(file)) {
        foundation::logLine(fmt::format("the font {} is missing", name));
        return nullptr;
    }
    return alone.fallback();
}

} // namespace

FontManager::FontManager(text::FontRegistry& fonts)
    : registry(fonts) {}

void FontManager::registerBuiltIns(const foundation::Bundle& bundle) {
    for (const BuiltInFont& font : builtInFonts()) {
        const auto file = bundle.path(fmt::format("fonts/{}", font.file));
        if (file.empty()) {
            foundation::logLine(fmt::format("the built-in font {} is missing", font.name));
            continue;
        }
        const auto registered = registry.registerFile(file, {std::string(font.name)});
        if (!registered)
            foundation::logLine(registered.error().message);
    }
    std::vector<text::FontPtr> fallbacks{registry.find(kFallbackFont)};
    for (const std::string_view font : kScriptFonts)
        fallbacks.push_back(scriptFont(bundle, font));
    registry.setFallbacks(std::move(fallbacks));
}

} // namespace zelvo::content
