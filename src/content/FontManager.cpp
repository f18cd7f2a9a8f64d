// SPDX-License-Identifier: MIT
#include "content/FontManager.h"

#include "platform/foundation/Process.h"

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

/// A font that is not in the list; null if the file is missing or damaged.
text::FontPtr scriptFont(const foundation::Bundle& bundle, std::string_view name) {
    text::FontRegistry alone;
    const auto registered = alone.registerFile(bundle.path(fmt::format("fonts/{}", name)));
    return registered ? alone.fallback() : nullptr;
}

} // namespace

FontManager::FontManager(text::FontRegistry& fonts)
    : registry(fonts) {}

void FontManager::registerBuiltIns(const foundation::Bundle& bundle) {
    std::vector<std::string_view> missing;
    for (const BuiltInFont& font : builtInFonts()) {
        const auto file = bundle.path(fmt::format("fonts/{}", font.file));
        if (!registry.registerFile(file, {std::string(font.name)}))
            missing.push_back(font.file);
    }
    std::vector<text::FontPtr> fallbacks{registry.find(kFallbackFont)};
    for (const std::string_view font : kScriptFonts) {
        fallbacks.push_back(scriptFont(bundle, font));
        if (fallbacks.back() == nullptr)
            missing.push_back(font);
    }
    if (!missing.empty()) {
        foundation::endWithoutResource(fmt::format(
            "{} built-in fonts are missing or damaged, {} first", missing.size(), missing.front()));
    }
    registry.setFallbacks(std::move(fallbacks));
}

} // namespace zelvo::content
