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

constexpr auto kFallbackFont = "HelveticaNeue-Bold"; // wide coverage, and heavy enough for a title

// For scripts that no font of the list has: Hebrew and Arabic, then Chinese, Japanese and Korean.
constexpr auto kScriptFonts =
    std::to_array<std::string_view>({"DejaVuSans-Bold.ttf", "DroidSansFallback.ttf"});

/// A font that has no name in the list; null if it is missing, which only letters of its scripts
/// show.
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
