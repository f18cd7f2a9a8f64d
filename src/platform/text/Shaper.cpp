// SPDX-License-Identifier: MIT
#include "platform/text/Shaper.h"

#include "platform/foundation/Check.h"
#include "platform/text/LineOrder.h"

#include <hb.h>

#include <QString>

#include <algorithm>
#include <array>
#include <string_view>

namespace zelvo::text {

namespace {

// Letters are drawn one by one, so they must not form ligatures or join as Arabic ones do.
constexpr auto kFeatures = std::to_array<hb_feature_t>({
    {HB_TAG('l', 'i', 'g', 'a'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('c', 'l', 'i', 'g'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('c', 'a', 'l', 't'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('r', 'l', 'i', 'g'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('i', 'n', 'i', 't'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('m', 'e', 'd', 'i'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('f', 'i', 'n', 'a'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('k', 'e', 'r', 'n'), 1, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
});

// Families with old-style digits by default; lining digits are wanted.
constexpr auto kLiningFamilies = std::to_array<std::string_view>({"Baskervville"});
constexpr hb_feature_t kLiningDigits{
    HB_TAG('l', 'n', 'u', 'm'), 1, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END};

// A range of characters with one face and one level.
struct Run {
    std::size_t first = 0;
    std::size_t count = 0;
    std::size_t place = 0; ///< of its leftmost character
    bool isRightToLeft = false;
};

/// From left to right.
std::vector<Run>
runsOf(const std::vector<FacePtr>& faces, const std::vector<CharacterOrder>& order) {
    std::vector<Run> runs;
    for (std::size_t i = 0; i < faces.size(); ++i) {
        const bool continues =
            i > 0 && faces[i] == faces[i - 1] && order[i].level == order[i - 1].level;
        if (!continues) {
            runs.push_back(
                {.first = i, .place = order[i].place, .isRightToLeft = order[i].level % 2 == 1});
        }
        ++runs.back().count;
        runs.back().place = std::min(runs.back().place, order[i].place);
    }
    std::ranges::sort(runs, {}, &Run::place);
    return runs;
}

bool hasAll(const FontFace& face, const std::u32string& character) {
    return std::all_of(character.begin(), character.end(), [&face](char32_t part) {
        return face.drawnGlyph(part) != 0;
    });
}

// HarfBuzz composes letters and marks into glyphs of the font, so a mark alone may be missing.
bool canSet(const FontFace& face, const std::u32string& character) {
    if (hasAll(face, character))
        return true;
    const QString composed =
        QString::fromUcs4(character.data(), static_cast<qsizetype>(character.size()))
            .normalized(QString::NormalizationForm_C);
    return hasAll(face, composed.toStdU32String());
}

class LineShaper {
public:
    LineShaper(ShapedLine& line_, const TextAttributes& attributes_)
        : line(line_)
        , attributes(attributes_) {
        for (const std::string& character : line.characters) {
            characters.push_back(QString::fromStdString(character).toStdU32String());
        }
    }

    void shape() {
        chooseFaces();
        std::u32string firsts; // a character of several code points follows its first one
        for (const std::u32string& character : characters) {
            firsts += character.front();
        }
        for (const Run& run : runsOf(line.faces, orderOf(firsts))) {
            if (line.faces[run.first] != nullptr)
                shapeRun(run);
        }
    }

private:
    void chooseFaces() {
        std::vector<FacePtr> faces;
        const auto add = [&faces](const FontPtr& font) {
            if (auto face = std::dynamic_pointer_cast<const FontFace>(font))
                faces.push_back(std::move(face));
        };
        add(attributes.font);
        std::for_each(attributes.fallbacks.begin(), attributes.fallbacks.end(), add);
        if (faces.empty())
            faces.push_back(nullptr);
        for (const std::u32string& character : characters) {
            const auto first = std::find_if(faces.begin(), faces.end(), [&](const FacePtr& face) {
                return face != nullptr && canSet(*face, character);
            });
            line.faces.push_back(first != faces.end() ? *first : faces.front());
        }
    }

    void shapeRun(const Run& run) {
        const std::unique_ptr<hb_buffer_t, decltype(&hb_buffer_destroy)> owner(
            hb_buffer_create(), &hb_buffer_destroy);
        hb_buffer_t* buffer = owner.get();
        for (std::size_t i = run.first; i < run.first + run.count; ++i) {
            for (const char32_t part : characters[i]) {
                hb_buffer_add(buffer, part, static_cast<unsigned>(i));
            }
        }
        hb_buffer_set_content_type(buffer, HB_BUFFER_CONTENT_TYPE_UNICODE);
        hb_buffer_set_cluster_level(buffer, HB_BUFFER_CLUSTER_LEVEL_MONOTONE_CHARACTERS);
        hb_buffer_set_direction(buffer, run.isRightToLeft ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
        hb_buffer_guess_segment_properties(buffer);
        hb_buffer_set_language(buffer, hb_language_from_string("en", -1));
        const FacePtr& face = line.faces[run.first];
        const std::vector<hb_feature_t> features = featuresOf(*face);
        hb_shape(face->handle(), buffer, features.data(), static_cast<unsigned>(features.size()));
        takeGlyphs(buffer, face);
    }

    [[nodiscard]] static std::vector<hb_feature_t> featuresOf(const FontFace& face) {
        std::vector<hb_feature_t> features(kFeatures.begin(), kFeatures.end());
        if (std::find(kLiningFamilies.begin(), kLiningFamilies.end(), face.family()) !=
            kLiningFamilies.end()) {
            features.push_back(kLiningDigits);
        }
        return features;
    }

    void takeGlyphs(hb_buffer_t* buffer, const FacePtr& face) {
        unsigned count = 0;
        const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
        const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, &count);
        const double scale = attributes.size / face->unitsPerEm();
        for (unsigned i = 0; i < count; ++i) {
            // Only after the last glyph of a character: a mark must not add a second kern.
            const bool isLast = i + 1 == count || infos[i + 1].cluster != infos[i].cluster;
            const double advance = positions[i].x_advance * scale + (isLast ? attributes.kern : 0);
            line.glyphs.push_back(
                {.face = face,
                 .glyph = infos[i].codepoint,
                 .character = infos[i].cluster,
                 .pen = pen,
                 .advance = advance,
                 .offsetX = positions[i].x_offset * scale,
                 .offsetY = positions[i].y_offset * scale});
            pen += advance;
        }
    }

    ShapedLine& line;
    const TextAttributes& attributes;
    std::vector<std::u32string> characters;
    double pen = 0;
};

} // namespace

ShapedLine shapeLine(std::string_view string, const TextAttributes& attributes) {
    CHECK(attributes.size > 0, "no text is {} units high", attributes.size);
    ShapedLine line{.characters = charactersOf(string), .faces = {}, .glyphs = {}};
    LineShaper(line, attributes).shape();
    return line;
}

} // namespace zelvo::text
