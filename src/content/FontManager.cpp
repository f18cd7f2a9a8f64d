// SPDX-License-Identifier: MIT
#include "content/FontManager.h"

#include "platform/foundation/Console.h"

#include <fmt/format.h>

#include <string>

namespace zelvo::content {
namespace {

constexpr auto kFallbackFont = "HelveticaNeue-Bold"; // wide coverage, and heavy enough for a title

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
    registry.setFallback(registry.find(kFallbackFont));
}

} // namespace zelvo::content
