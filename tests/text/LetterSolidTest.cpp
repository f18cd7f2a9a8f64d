// SPDX-License-Identifier: MIT

// The solids of letters, over all fonts that come with the program.

#include "geometry/SolidChecks.h"
#include "platform/geometry/Extrusion.h"
#include "platform/text/LineLayout.h"
#include "text/TestFonts.h"

#include <glm/geometric.hpp>

#include <cmath>
#include <string_view>
#include <vector>

namespace zelvo::text {

namespace {

using namespace geometry;

TextAttributes attributesOf(FontPtr font) {
    TextAttributes attributes;
    attributes.font = std::move(font);
    return attributes;
}

ExtrusionOptions optionsOf(float depth, float radius, const BezierPath& profile) {
    ExtrusionOptions options;
    options.depth = depth;
    options.chamferRadius = radius;
    options.chamferProfile = profile;
    return options;
}

std::vector<ExtrusionOptions> allOptions() {
    BezierPath rounded;
    rounded.moveTo({0, 1});
    rounded.quadTo({1, 1}, {1, 0});
    std::vector<ExtrusionOptions> all;
    for (const float depth : {24.0F, 1.0F, 150.0F}) {
        for (const float radius : {0.0F, 0.3F, 1.8F, 3.0F, 4.0F}) {
            for (const BezierPath& profile : {BezierPath{}, rounded}) {
                all.push_back(optionsOf(depth, radius, profile));
            }
        }
    }
    return all;
}

/// The outline's own measures, by a plain slab of it that is 1 thick.
struct Slab {
    double area = 0;      ///< square units
    double perimeter = 0; ///< units

    explicit Slab(const OutlineSkeleton& skeleton) {
        const Mesh slab = extrude(skeleton, optionsOf(1, 0, {}));
        area = inspect(slab).volume;
        const auto& walls = slab.elements.at(2);
        const auto place = [&](std::uint32_t i) {
            return slab.vertices[slab.indices[walls.firstIndex + i]].position;
        };
        for (std::uint32_t i = 0; i < walls.indexCount; i += 3)
            perimeter +=
                glm::length(glm::cross(place(i + 1) - place(i), place(i + 2) - place(i))) / 2;
    }
};

void expectSoundLetter(
    const OutlineSkeleton& skeleton, const ExtrusionOptions& options, const std::string& name) {
    const Mesh solid = extrude(skeleton, options);
    const SolidReport report = inspect(solid);
    EXPECT_EQ(report.badNumbers, 0U) << name;
    EXPECT_EQ(report.openSides, 0U) << name;
    EXPECT_EQ(report.folded, 0U) << name;
    const Slab slab(skeleton);
    EXPECT_EQ(report.triangles == 0, slab.area == 0) << name;
    const auto depth = static_cast<double>(options.depth);
    const auto radius = static_cast<double>(options.chamferRadius);
    const double whole = slab.area * depth;
    const double most = whole * (1 + 1e-4) + 1e-3;
    // The chamfers take less than two slanted strips along the whole outline.
    const double height = std::min(radius, depth / 2);
    const double least = whole - slab.perimeter * radius * height * (1 + radius) - 1e-4 * whole;
    EXPECT_LE(report.volume, most) << name;
    EXPECT_GE(report.volume, radius == 0 ? whole * (1 - 1e-4) : least) << name;
}

TEST(LetterSolid, IsClosedInEveryFontAtEveryBevel) {
    constexpr std::string_view kCharacters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789&@#$%?!_";
    const std::vector<ExtrusionOptions> all = allOptions();
    std::size_t turn = 0;
    std::size_t fonts = 0;
    for (const auto& file : allFontFiles()) {
        const TextAttributes attributes = attributesOf(fontOf(file));
        ++fonts;
        for (const char character : kCharacters) {
            const std::string string(1, character);
            const auto skeleton = makeSkeleton(outlineOf(string, attributes), 0.1F);
            const ExtrusionOptions& options = all[turn % all.size()];
            turn += 7; // shares no factor with the number of options, so fonts and letters mix
            expectSoundLetter(
                *skeleton,
                options,
                file.stem().string() + " " + string + " " + std::to_string(turn % all.size()));
        }
    }
    EXPECT_EQ(fonts, 56U);
}

// Faces that narrow to nothing between a curve and a reflex corner: chords of their rims cross
// wherever the two sides round the same curve differently.
TEST(LetterSolid, DoesNotFoldWhereFacesNarrow) {
    struct Row {
        const char* font;
        std::string_view characters;
    };

    // clang-format off
    const Row rows[] = {
        {"FugazOne-Regular",       "m" },
        {"InterTight-Bold",        "g" },
        {"LeagueGothic-Regular",   "w" },
        {"LondrinaShadow-Regular", "Ng"},
        {"Michroma-Regular",       "A4"},
        {"TitanOne",               "@" },
        {"AmaticSC-Bold",          "c" },
    };
    // clang-format on
    for (const Row& row : rows) {
        const TextAttributes attributes = attributesOf(fontOf(fontFile(row.font)));
        for (const char character : row.characters) {
            const std::string string(1, character);
            const auto skeleton = makeSkeleton(outlineOf(string, attributes), 0.1F);
            for (const ExtrusionOptions& options : allOptions()) {
                expectSoundLetter(*skeleton, options, row.font + (" " + string));
            }
        }
    }
}

TEST(LetterSolid, LosesVolumeAsTheBevelGrows) {
    for (const char* font : {"Monoton-Regular", "Flavors-Regular", "Gelasio-Bold"}) {
        const TextAttributes attributes = attributesOf(fontOf(fontFile(font)));
        for (const char* string : {"A", "b", "8", "@"}) {
            const auto skeleton = makeSkeleton(outlineOf(string, attributes), 0.1F);
            double last = Slab(*skeleton).area * 24 * 1.0001;
            for (const float radius : {0.0F, 0.1F, 0.3F, 1.0F, 1.8F, 2.5F, 3.0F, 3.7F, 4.0F}) {
                const ExtrusionOptions options = optionsOf(24, radius, {});
                const double volume = inspect(extrude(*skeleton, options)).volume;
                EXPECT_LT(volume, last) << font << " " << string << " " << radius;
                last = volume;
            }
        }
    }
}

// A hole takes 2 from the corners - sides + triangles of a solid, each further body adds 2.
TEST(LetterSolid, KeepsItsCountersOpen) {
    struct Row {
        const char* string;
        long euler;
    };

    // clang-format off
    const Row rows[] = {
        {"I", 2 },
        {"A", 0 },
        {"B", -2},
        {"8", -2},
        {"O", 0 },
        {"i", 4 },
        {"%", 2 },
        {"@", 0 }
    };
    // clang-format on
    for (const char* font : {"NunitoSans-Medium", "Abel-Regular", "Gelasio-Regular"}) {
        const TextAttributes attributes = attributesOf(fontOf(fontFile(font)));
        for (const Row& row : rows) {
            for (const float radius : {0.0F, 2.0F}) {
                const ExtrusionOptions options = optionsOf(24, radius, {});
                const Mesh solid = extrude(outlineOf(row.string, attributes), options);
                EXPECT_EQ(inspect(solid).euler, row.euler) << font << " " << row.string;
            }
        }
    }
}

} // namespace

} // namespace zelvo::text
