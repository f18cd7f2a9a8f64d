// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Folders.h"
#include "platform/text/FontRegistry.h"

#include <span>
#include <string_view>

namespace zelvo::content {

/// A font that comes with the program: the name it is asked by, and its file below fonts/ in the
/// resources.
struct BuiltInFont {
    std::string_view name;
    std::string_view file;
};

/// The store of fonts: the built-in list, made findable in the registry by name.
class FontManager {
public:
    explicit FontManager(text::FontRegistry& fonts);

    /// In the order of the list that the user sees before sorting.
    [[nodiscard]] static std::span<const BuiltInFont> builtInFonts();

    /// Registers every built-in font that the bundle holds and sets the registry's fallbacks. A
    /// font that is missing or broken is said on the console; texts that name it are set in the
    /// fallback.
    void registerBuiltIns(const foundation::Bundle& bundle);

private:
    text::FontRegistry& registry;
};

} // namespace zelvo::content
