// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/geometry/BezierPath.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::text {

/// One face of a font file, at no particular size. Sizes below are the em in scene units. Main
/// thread only.
class Font {
public:
    virtual ~Font() = default;

    [[nodiscard]] virtual const std::string& postScriptName() const = 0;
    [[nodiscard]] virtual const std::string& fullName() const = 0;
    [[nodiscard]] virtual const std::string& family() const = 0;

    /// A glyph's outline, pen at the origin, y up. Empty for blanks.
    [[nodiscard]] virtual geometry::BezierPath outline(std::uint32_t glyph, double size) const = 0;
};

using FontPtr = std::shared_ptr<const Font>;

/// The fonts that can be found by name: those that come with the program and those a user added.
///
/// A name is looked up as PostScript name, then full name, then family, then alias; family and
/// weight are never matched by likeness.
class FontRegistry {
public:
    FontRegistry();
    ~FontRegistry();
    FontRegistry(const FontRegistry&) = delete;
    FontRegistry& operator=(const FontRegistry&) = delete;

    /// Reads the names of a font file and makes it findable. Errors: notFound, unreadable,
    /// malformed, tooLarge (over 64 MiB).
    foundation::Result<void>
    registerFile(const std::filesystem::path& file, const std::vector<std::string>& aliases = {});
    void unregisterFile(const std::filesystem::path& file);

    /// Absent (null) if no font has the name.
    [[nodiscard]] FontPtr find(std::string_view name) const;

    /// The fonts for what has none, in the order in which they are tried: the first for text
    /// without a known font, all for letters that a font lacks. Where none was set, the first font
    /// that was registered.
    [[nodiscard]] std::vector<FontPtr> fallbacks() const;
    void setFallbacks(std::vector<FontPtr> fonts);

    /// The first of them; null before a font was registered.
    [[nodiscard]] FontPtr fallback() const;

private:
    struct State;
    std::unique_ptr<State> state;
};

/// Reads a font file's full name without registering it; the errors of registerFile.
[[nodiscard]] foundation::Result<std::string> fullNameOfFile(const std::filesystem::path& file);

} // namespace zelvo::text
