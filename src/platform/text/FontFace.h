// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/text/FontRegistry.h"

#include <memory>
#include <string>
#include <vector>

struct hb_face_t;
struct hb_font_t;

namespace zelvo::text {

/// The implementation of Font: a face read by HarfBuzz, which checks every table before use.
class FontFace final : public Font {
public:
    struct Metrics {
        double ascent = 0; ///< em; the descent is negative
        double descent = 0;
        double leading = 0;
    };

    /// Takes ownership of the face.
    explicit FontFace(hb_face_t* face);
    ~FontFace() override;
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    [[nodiscard]] const std::string& postScriptName() const override { return postScriptName_; }

    [[nodiscard]] const std::string& fullName() const override { return fullName_; }

    [[nodiscard]] const std::string& family() const override { return family_; }

    [[nodiscard]] unsigned faceIndex() const override;

    [[nodiscard]] geometry::BezierPath outline(std::uint32_t glyph, double size) const override;

    [[nodiscard]] Metrics metrics() const;
    [[nodiscard]] double unitsPerEm() const;

    /// The glyph for a single character. 0 if the font has none, or if its glyph is empty but the
    /// character is not a blank.
    [[nodiscard]] std::uint32_t drawnGlyph(char32_t character) const;

    /// For shaping. Lengths are in font units.
    [[nodiscard]] hb_font_t* handle() const { return font.get(); }

private:
    struct FontDeleter {
        void operator()(hb_font_t* handle) const;
    };

    struct FaceDeleter {
        void operator()(hb_face_t* handle) const;
    };

    std::unique_ptr<hb_face_t, FaceDeleter> face;
    std::unique_ptr<hb_font_t, FontDeleter> font;
    std::string postScriptName_;
    std::string fullName_;
    std::string family_;
};

/// Reads the faces in a font file's bytes; at least one. TrueType and OpenType fonts, collections of
/// them, and their packed forms for the web (WOFF, WOFF2). Faces without a name or without outlines
/// are left out. Errors: `malformed`, `tooLarge`.
[[nodiscard]] foundation::Result<std::vector<std::shared_ptr<const FontFace>>>
readFaces(std::string bytes);

constexpr std::size_t kMaxFontFile = std::size_t{64} << 20; ///< bytes

} // namespace zelvo::text
