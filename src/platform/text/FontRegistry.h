// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/geometry/BezierPath.h"

#include <cstdint>
#include <filesystem>
#include <functional>
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
    /// The face's place in its file; 0 unless the file is a collection.
    [[nodiscard]] virtual unsigned faceIndex() const = 0;

    /// The outline of a glyph, y up, starting at the origin. Empty for blanks.
    [[nodiscard]] virtual geometry::BezierPath outline(std::uint32_t glyph, double size) const = 0;
};

using FontPtr = std::shared_ptr<const Font>;

/// The name that a user sees: the full name, or else the PostScript name.
[[nodiscard]] const std::string& shownName(const Font& font);

/// Finds fonts by name: those of the program, then those that were added.
///
/// A name is compared with PostScript names, then full names, then aliases; last of all, and after
/// the lookup, with families: "Sans" is a font of that name, and "Sans Bold" only if there is none.
/// There is no search by similarity. An added font takes no name away from the program's fonts.
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
    /// The same for fonts of the user or the system.
    foundation::Result<void> addFile(const std::filesystem::path& file);
    /// Adds a file, and a further name for one of its faces.
    foundation::Result<void>
    addFace(const std::filesystem::path& file, unsigned faceIndex, const std::string& alias);
    void unregisterFile(const std::filesystem::path& file);

    /// The file of an added font; empty for those of the program and for an unknown name.
    [[nodiscard]] std::filesystem::path addedFileOf(std::string_view name) const;

    /// The faces of a registered file; empty if it is not registered.
    [[nodiscard]] std::vector<FontPtr> facesOf(const std::filesystem::path& file) const;

    /// Called with a name that is not known; may add fonts. It must not call `find`.
    using Lookup = std::function<void(std::string_view name)>;
    void setLookup(Lookup lookup);

    /// Null if no font has this name.
    [[nodiscard]] FontPtr find(std::string_view name) const;
    /// The same without the lookup and without families.
    [[nodiscard]] FontPtr findKnown(std::string_view name) const;

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

/// Reads the name of a font file's first face without registering it. Errors as for registerFile.
[[nodiscard]] foundation::Result<std::string> fullNameOfFile(const std::filesystem::path& file);

/// Reads a whole font file. Errors: `notFound`, `unreadable`, `tooLarge`.
[[nodiscard]] foundation::Result<std::string> readFontBytes(const std::filesystem::path& file);
/// The name of the first face in a font file's bytes. Errors: `malformed`, `tooLarge`.
[[nodiscard]] foundation::Result<std::string> nameOfFontBytes(std::string bytes);

} // namespace zelvo::text
