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

/// The one kind of Font there is: a face read by HarfBuzz, which checks every table before it
/// believes it.
class FontFace final : public Font {
public:
    struct Metrics {
        double ascent = 0; ///< em; the descent counts downwards
        double descent = 0;
        double leading = 0;
    };

    /// Takes the face over.
    explicit FontFace(hb_face_t* face);
    ~FontFace() override;
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    [[nodiscard]] const std::string& postScriptName() const override { return postScriptName_; }

    [[nodiscard]] const std::string& fullName() const override { return fullName_; }

    [[nodiscard]] const std::string& family() const override { return family_; }

    [[nodiscard]] geometry::BezierPath outline(std::uint32_t glyph, double size) const override;

    [[nodiscard]] Metrics metrics() const;
    [[nodiscard]] double unitsPerEm() const;

    /// The glyph of a character on its own; 0 where the font has none, or has an empty drawing for
    /// a character that is no blank.
    [[nodiscard]] std::uint32_t drawnGlyph(char32_t character) const;

    /// For shaping. Lengths are font units.
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

/// The faces in a font file's bytes, at least one. Errors: malformed, tooLarge.
[[nodiscard]] foundation::Result<std::vector<std::shared_ptr<const FontFace>>>
readFaces(std::string bytes);

constexpr std::size_t kMaxFontFile = std::size_t{64} << 20; ///< bytes

} // namespace zelvo::text
