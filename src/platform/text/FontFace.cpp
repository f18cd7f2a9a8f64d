// SPDX-License-Identifier: MIT
#include "platform/text/FontFace.h"

#include "platform/text/WebFont.h"

#include <hb-ot.h>
#include <hb.h>

#include <QChar>

#include <array>
#include <cmath>

namespace zelvo::text {

namespace {

using geometry::BezierPath;

constexpr unsigned kMaxFaces = 64; // in one file
// in one outline; real fonts have fewer than a thousand
constexpr std::size_t kMaxElements = 40000;
constexpr unsigned kLongestName = 256; // bytes

std::string nameIn(hb_face_t* face, hb_ot_name_id_t id, hb_language_t language) {
    std::array<char, kLongestName> text{};
    unsigned size = kLongestName;
    hb_ot_name_get_utf8(face, id, language, &size, text.data());
    return {text.data(), std::min(size, kLongestName - 1)};
}

// The English name, or else the first in any language.
std::string nameOf(hb_face_t* face, hb_ot_name_id_t id) {
    std::string english = nameIn(face, id, hb_language_from_string("en", -1));
    if (!english.empty())
        return english;
    unsigned count = 0;
    const hb_ot_name_entry_t* entries = hb_ot_name_list_names(face, &count);
    for (unsigned i = 0; i < count; ++i) {
        if (entries[i].name_id != id)
            continue;
        std::string name = nameIn(face, id, entries[i].language);
        if (!name.empty())
            return name;
    }
    return {};
}

// Collects the outline from HarfBuzz's drawing callbacks.
struct Pen {
    BezierPath path;
    float scale = 1;
    bool isOverfull = false;

    [[nodiscard]] glm::vec2 at(float x, float y) const { return {x * scale, y * scale}; }

    [[nodiscard]] bool hasRoom() {
        isOverfull = isOverfull || path.elements().size() >= kMaxElements;
        return !isOverfull;
    }
};

Pen& penOf(void* data) {
    return *static_cast<Pen*>(data);
}

void moveTo(hb_draw_funcs_t*, void* pen, hb_draw_state_t*, float x, float y, void*) {
    if (penOf(pen).hasRoom())
        penOf(pen).path.moveTo(penOf(pen).at(x, y));
}

void lineTo(hb_draw_funcs_t*, void* pen, hb_draw_state_t*, float x, float y, void*) {
    if (penOf(pen).hasRoom())
        penOf(pen).path.lineTo(penOf(pen).at(x, y));
}

// NOLINTNEXTLINE(readability-function-size): the library's own signature
void quadTo(
    hb_draw_funcs_t*, void* pen, hb_draw_state_t*, float cx, float cy, float x, float y, void*) {
    Pen& p = penOf(pen);
    if (p.hasRoom())
        p.path.quadTo(p.at(cx, cy), p.at(x, y));
}

// NOLINTNEXTLINE(readability-function-size): the library's own signature
void cubicTo(
    hb_draw_funcs_t*,
    void* pen,
    hb_draw_state_t*,
    float ax,
    float ay,
    float bx,
    float by,
    float x,
    float y,
    void*) {
    Pen& p = penOf(pen);
    if (p.hasRoom())
        p.path.cubicTo(p.at(ax, ay), p.at(bx, by), p.at(x, y));
}

void closePath(hb_draw_funcs_t*, void* pen, hb_draw_state_t*, void*) {
    if (penOf(pen).hasRoom())
        penOf(pen).path.close();
}

hb_draw_funcs_t* makePenFunctions() {
    hb_draw_funcs_t* functions = hb_draw_funcs_create();
    hb_draw_funcs_set_move_to_func(functions, &moveTo, nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(functions, &lineTo, nullptr, nullptr);
    hb_draw_funcs_set_quadratic_to_func(functions, &quadTo, nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(functions, &cubicTo, nullptr, nullptr);
    hb_draw_funcs_set_close_path_func(functions, &closePath, nullptr, nullptr);
    hb_draw_funcs_make_immutable(functions);
    return functions;
}

void drawGlyph(hb_font_t* font, std::uint32_t glyph, Pen& pen) {
    static hb_draw_funcs_t* const functions = makePenFunctions(); // never deleted
#if HB_VERSION_ATLEAST(7, 0, 0)
    hb_font_draw_glyph(font, glyph, functions, &pen);
#else
    hb_font_get_glyph_shape(font, glyph, functions, &pen);
#endif
}

// Blanks, control characters, and characters that only change their neighbours have no outline.
bool isBlank(char32_t character) {
    const QChar::Category category = QChar::category(character);
    return QChar::isSpace(character) || category == QChar::Other_Format ||
           category == QChar::Other_Control ||
           (character >= 0xFE00 && character <= 0xFE0F); // variation selectors
}

} // namespace

void FontFace::FontDeleter::operator()(hb_font_t* handle) const {
    hb_font_destroy(handle);
}

void FontFace::FaceDeleter::operator()(hb_face_t* handle) const {
    hb_face_destroy(handle);
}

FontFace::FontFace(hb_face_t* face_)
    : face(face_)
    , font(hb_font_create(face_))
    , postScriptName_(nameOf(face_, HB_OT_NAME_ID_POSTSCRIPT_NAME))
    , fullName_(nameOf(face_, HB_OT_NAME_ID_FULL_NAME))
    , family_(nameOf(face_, HB_OT_NAME_ID_TYPOGRAPHIC_FAMILY)) {
    if (family_.empty())
        family_ = nameOf(face_, HB_OT_NAME_ID_FONT_FAMILY);
}

FontFace::~FontFace() = default;

geometry::BezierPath FontFace::outline(std::uint32_t glyph, double size) const {
    Pen pen{.path = {}, .scale = static_cast<float>(size / unitsPerEm())};
    drawGlyph(font.get(), glyph, pen);
    return pen.isOverfull ? BezierPath{} : std::move(pen.path);
}

unsigned FontFace::faceIndex() const {
    return hb_face_get_index(face.get());
}

double FontFace::unitsPerEm() const {
    return hb_face_get_upem(face.get());
}

FontFace::Metrics FontFace::metrics() const {
    hb_font_extents_t extents{};
    hb_font_get_h_extents(font.get(), &extents);
    const double em = unitsPerEm();
    return {
        .ascent = extents.ascender / em,
        .descent = -extents.descender / em,
        .leading = extents.line_gap / em};
}

std::uint32_t FontFace::drawnGlyph(char32_t character) const {
    hb_codepoint_t glyph = 0;
    if (hb_font_get_nominal_glyph(font.get(), character, &glyph) == 0)
        return 0;
    if (isBlank(character))
        return glyph;
    hb_glyph_extents_t extents{};
    const bool isDrawn = hb_font_get_glyph_extents(font.get(), glyph, &extents) != 0 &&
                         (extents.width != 0 || extents.height != 0);
    return isDrawn ? glyph : 0;
}

namespace {

using Faces = std::vector<std::shared_ptr<const FontFace>>;
using foundation::Cause;

bool hasTable(hb_face_t* face, hb_tag_t tag) {
    hb_blob_t* const table = hb_face_reference_table(face, tag);
    const bool isThere = hb_blob_get_length(table) > 0;
    hb_blob_destroy(table);
    return isThere;
}

// A font of pictures (emoji) has glyphs, but nothing that can become a solid.
bool hasOutlines(hb_face_t* face) {
    return hb_face_get_glyph_count(face) > 0 && (hasTable(face, HB_TAG('g', 'l', 'y', 'f')) ||
                                                 hasTable(face, HB_TAG('C', 'F', 'F', ' ')) ||
                                                 hasTable(face, HB_TAG('C', 'F', 'F', '2')));
}

hb_blob_t* ownedBlob(std::string bytes) {
    auto kept = std::make_unique<std::string>(std::move(bytes));
    const char* data = kept->data();
    const auto size = static_cast<unsigned>(kept->size());
    return hb_blob_create(data, size, HB_MEMORY_MODE_READONLY, kept.release(), [](void* text) {
        delete static_cast<std::string*>(text); // NOLINT: HarfBuzz owns it
    });
}

// Tells a font that lacks something from what is no font at all.
struct Lack {
    bool isNameless = false;
    bool isWithoutOutlines = false;

    [[nodiscard]] const char* text() const {
        if (isNameless)
            return "is a font without a name, so it could not be found; use another copy of it";
        if (isWithoutOutlines)
            return "is a font of pictures, without outlines that could become solids";
        return "is no TrueType or OpenType font, or is damaged; use another copy of it";
    }
};

foundation::Result<Faces> facesIn(std::string bytes) {
    hb_blob_t* const blob = ownedBlob(std::move(bytes));
    Faces faces;
    Lack lack;
    const unsigned count = std::min(hb_face_count(blob), kMaxFaces);
    for (unsigned i = 0; i < count; ++i) {
        auto face = std::make_shared<const FontFace>(hb_face_create(blob, i));
        hb_face_t* const handle = hb_font_get_face(face->handle());
        const bool hasName = !shownName(*face).empty();
        if (hasName && hasOutlines(handle)) {
            faces.push_back(std::move(face));
        } else if (hb_face_get_glyph_count(handle) > 0) {
            (hasName ? lack.isWithoutOutlines : lack.isNameless) = true;
        }
    }
    hb_blob_destroy(blob);
    if (faces.empty())
        return foundation::fail(Cause::malformed, lack.text());
    return faces;
}

} // namespace

foundation::Result<Faces> readFaces(std::string bytes) {
    if (bytes.size() > kMaxFontFile)
        return foundation::fail(Cause::tooLarge, "is over 64 MiB, more than a font file may have");
    if (isWebFont(bytes))
        return unpackWebFont(bytes).and_then(facesIn);
    return facesIn(std::move(bytes));
}

} // namespace zelvo::text
