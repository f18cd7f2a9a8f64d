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

/// A face of a font file, without a size. The sizes below are the em in scene units. Main thread
/// only.
class Font {
public:
    virtual ~Font() = default;

    [[nodiscard]] virtual const std::string& postScriptName() const = 0;
    [[nodiscard]] virtual const std::string& fullName() const = 0;
    [[nodiscard]] virtual const std::string& family() const = 0;

    /// The outline of a glyph, y up, starting at the origin. Empty for blanks.
    [[nodiscard]] virtual geometry::BezierPath outline(std::uint32_t glyph, double size) const = 0;
};

using FontPtr = std::shared_ptr<const Font>;

/// Finds fonts by name: those of the program and those added by the user.
///
/// A name is compared with PostScript names, then full names, then families, then aliases. There is
/// no search by similarity.
class FontRegistry {
public:
    FontRegistry();
    ~FontRegistry();
    FontRegistry(const FontRegistry&) = delete;
    FontRegistry& operator=(const FontRegistry&) = delete;

    /// Reads the names of a font file and adds the font. Errors: `notFound`, `unreadable`,
    /// `malformed`, `tooLarge` (over 64 MiB).
    foundation::Result<void>
    registerFile(const std::filesystem::path& file, const std::vector<std::string>& aliases = {});
    void unregisterFile(const std::filesystem::path& file);

    /// Null if no font has this name.
    [[nodiscard]] FontPtr find(std::string_view name) const;

    /// The fallback fonts, in order. The first one is used for text without a known font, all of
    /// them for letters that a font lacks. If none was set, this is the first registered font.
    [[nodiscard]] std::vector<FontPtr> fallbacks() const;
    void setFallbacks(std::vector<FontPtr> fonts);

    /// The first fallback; null before any font is registered.
    [[nodiscard]] FontPtr fallback() const;

private:
    struct State;
    std::unique_ptr<State> state;
};

/// Reads the full name of a font file without registering it. Errors as for registerFile.
[[nodiscard]] foundation::Result<std::string> fullNameOfFile(const std::filesystem::path& file);

} // namespace zelvo::text
