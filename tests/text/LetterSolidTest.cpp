// SPDX-License-Identifier: MIT

// The solids of letters, for all built-in fonts.

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

ExtrusionOptions optionsOf(float depth, float radius, const BezierPath& profile) {
    return {.depth = depth, .chamferRadius = radius, .chamferProfile = profile};
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

/// Area and perimeter of an outline, measured on a solid of depth 1 without chamfer.
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
    EXPECT_EQ(report.badNumbers + report.openSides + report.folded, 0U) << name;
    const Slab slab(skeleton);
    EXPECT_EQ(report.triangles == 0, slab.area == 0) << name;
    const auto depth = static_cast<double>(options.depth);
    const auto radius = static_cast<double>(options.chamferRadius);
    const double whole = slab.area * depth;
    const double most = whole * (1 + 1e-4) + 1e-3;
    // The chamfers remove less than two slanted strips along the whole outline.
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
        const TextAttributes attributes{.font = fontOf(file)};
        ++fonts;
        for (const char character : kCharacters) {
            const std::string string(1, character);
            const auto skeleton = makeSkeleton(outlineOf(string, attributes), 0.1F);
            const ExtrusionOptions& options = all[turn % all.size()];
            turn += 7; // no common factor with the number of options, so fonts and letters mix
            expectSoundLetter(
                *skeleton,
                options,
                file.stem().string() + " " + string + " " + std::to_string(turn % all.size()));
        }
    }
    EXPECT_EQ(fonts, 56U);
}

// These letters have faces that become very narrow between a curve and a reflex corner. The two
// sides of the rim must not cross there.
TEST(LetterSolid, DoesNotFoldWhereFacesNarrow) {
    using Row = std::pair<const char*, std::string_view>;

    for (const auto& [font, characters] :
         {Row{"FugazOne-Regular", "m"},
          {"InterTight-Bold", "g"},
          {"LeagueGothic-Regular", "w"},
          {"LondrinaShadow-Regular", "Ng"},
          {"Michroma-Regular", "A4"},
          {"TitanOne", "@"},
          {"AmaticSC-Bold", "c"}}) {
        const TextAttributes attributes{.font = fontOf(fontFile(font))};
        for (const char character : characters) {
            const std::string string(1, character);
            const auto skeleton = makeSkeleton(outlineOf(string, attributes), 0.1F);
            for (const ExtrusionOptions& options : allOptions()) {
                expectSoundLetter(*skeleton, options, font + (" " + string));
            }
        }
    }
}

// Euler's formula: corners - sides + triangles of a solid is 2; each hole subtracts 2, each further
// body adds 2.
TEST(LetterSolid, KeepsItsCountersOpen) {
    using Row = std::pair<const char*, long>;

    // clang-format off
    const Row rows[] = {
        {"I", 2}, {"A", 0}, {"B", -2}, {"8", -2}, {"O", 0}, {"i", 4}, {"%", 2}, {"@", 0},
    };
    // clang-format on
    for (const char* font : {"NunitoSans-Medium", "Abel-Regular", "Gelasio-Regular"}) {
        const TextAttributes attributes{.font = fontOf(fontFile(font))};
        for (const auto& [string, euler] : rows) {
            for (const float radius : {0.0F, 2.0F}) {
                const ExtrusionOptions options = optionsOf(24, radius, {});
                const Mesh solid = extrude(outlineOf(string, attributes), options);
                EXPECT_EQ(inspect(solid).euler, euler) << font << " " << string;
            }
        }
    }
}

} // namespace

} // namespace zelvo::text
