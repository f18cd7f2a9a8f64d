// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Folders.h"
#include "platform/text/FontRegistry.h"

#include <span>
#include <string_view>

namespace zelvo::content {

/// A font that comes with the program: its name, and its file in fonts/ of the resources.
struct BuiltInFont {
    std::string_view name;
    std::string_view file;
};

/// Registers the built-in fonts, so that they are found by name.
class FontManager {
public:
    explicit FontManager(text::FontRegistry& fonts);

    /// In the order of the table; the user sees them sorted.
    [[nodiscard]] static std::span<const BuiltInFont> builtInFonts();

    /// Registers all built-in fonts of the bundle and sets the registry's fallbacks. A missing or
    /// broken font is reported on the console; texts with that font are set in the fallback.
    void registerBuiltIns(const foundation::Bundle& bundle);

private:
    text::FontRegistry& registry;
};

} // namespace zelvo::content
