// SPDX-License-Identifier: MIT
#include "platform/object/reading/OBJPolygons.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace zelvo::object {

namespace {

constexpr float kNoColor = -1;

/// An index as written: from 1, or negative to count back. Moves `at` behind it; 0 if there is none.
[[nodiscard]] std::int64_t readIndex(const char*& at, const char* end) {
    const bool isNegative = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+'))
        ++at;
    constexpr std::int64_t kMost = 1LL << 40U; // keeps the sum from running over
    std::int64_t value = 0;
    for (; at != end && *at >= '0' && *at <= '9'; ++at)
        value = std::min(value * 10 + (*at - '0'), kMost);
    return isNegative ? -value : value;
}

/// The index from 0, kNone if it is wrong. It may be above what was read so far.
[[nodiscard]] std::uint32_t resolved(std::int64_t index, std::size_t readSoFar) {
    const std::int64_t fromZero =
        index > 0 ? index - 1 : index + static_cast<std::int64_t>(readSoFar);
    const bool isGood = index != 0 && fromZero >= 0 && fromZero < Polygons::kNone;
    return isGood ? static_cast<std::uint32_t>(fromZero) : Polygons::kNone;
}

[[nodiscard]] glm::u8vec4 bytesOf(const glm::vec4& color) {
    return {glm::round(glm::clamp(color, glm::vec4(0), glm::vec4(1)) * 255.0F)};
}

} // namespace

OBJPolygons::OBJPolygons(std::uint64_t bytes) {
    // What a file of triangles needs. Memory that is set aside, but not used, costs nothing.
    constexpr std::uint64_t kMaxExpected = 512U << 20U;
    const std::uint64_t expected = std::min(bytes, kMaxExpected);
    polygons.points.reserve(expected / 150);
    polygons.uvs.reserve(expected / 150);
    polygons.normals.reserve(expected / 150);
    polygons.corners.reserve(expected / 25);
    polygons.faces.reserve(expected / 75);
}

bool OBJPolygons::take(std::string_view line) {
    if (line.starts_with("#MRGB ")) {
        takeZBrushColors(line);
        return true;
    }
    Words words(line);
    const std::string_view keyword = words.next();
    const auto is = [keyword](std::string_view name) {
        return std::ranges::equal(
            keyword, name, [](char a, char b) { return a == b || (a | ' ') == b; });
    };
    if (is("v")) {
        takePoint(words);
    } else if (is("vt")) {
        const double u = words.number().value_or(0);
        polygons.uvs.emplace_back(u, 1 - words.number().value_or(0));
    } else if (is("vn")) {
        const double x = words.number().value_or(0);
        const double y = words.number().value_or(0);
        polygons.normals.emplace_back(x, y, words.number().value_or(0));
    } else if (is("f") || is("fo")) {
        takeFace(words);
    } else if (is("s")) {
        takeSmoothing(words);
    } else if (is("usemtl")) {
        nextMaterial = words.name();
    } else if (is("mtllib")) {
        takeLibrary(words.name());
    } else if (is("o") || is("g")) {
        (is("o") ? isNewObject : isNewGroup) = true;
    }
    return polygons.points.size() <= Limits::kMaxPoints &&
           polygons.uvs.size() <= Limits::kMaxCorners &&
           polygons.normals.size() <= Limits::kMaxCorners &&
           polygons.corners.size() <= Limits::kMaxCorners &&
           materialNames.size() <= Limits::kMaxMaterials;
}

/// Three numbers, then a weight, or a colour with or without alpha. A point that cannot be read
/// stays in the list: otherwise all later ones would have other numbers.
void OBJPolygons::takePoint(Words& words) {
    std::array<double, 7> numbers{};
    std::size_t count = 0;
    while (count < numbers.size()) {
        const auto number = words.number();
        if (!number)
            break;
        numbers[count++] = *number;
    }
    polygons.points.emplace_back(numbers[0], numbers[1], numbers[2]);
    if (count < 6)
        return;
    colors.resize(polygons.points.size() - 1, glm::vec4(kNoColor));
    colors.emplace_back(numbers[3], numbers[4], numbers[5], count == 7 ? numbers[6] : 1);
}

void OBJPolygons::takeFace(Words& words) {
    const std::size_t first = polygons.corners.size();
    const char* at = words.rest().data();
    const char* const end = at + words.rest().size();
    while (true) {
        while (at != end && *at == ' ')
            ++at;
        if (at == end || *at == '#')
            break;
        Polygons::Corner corner;
        const char* const start = at;
        corner.point = resolved(readIndex(at, end), polygons.points.size());
        if (at != start && at != end && *at == '/')
            corner.uv = resolved(readIndex(++at, end), polygons.uvs.size());
        if (at != start && at != end && *at == '/')
            corner.normal = resolved(readIndex(++at, end), polygons.normals.size());
        polygons.corners.push_back(corner); // a word that is no index has made a point out of range
        at = std::find_if(at, end, [](char c) { return c == ' ' || c == '#'; });
    }
    const std::size_t count = polygons.corners.size() - first;
    if (count < 3) {
        polygons.corners.resize(first);
        return;
    }
    if (nextMaterial)
        takeMaterial(std::exchange(nextMaterial, std::nullopt).value_or(""));
    polygons.faces.push_back({static_cast<std::uint32_t>(count), material, smoothing});
    objects_ += std::exchange(isNewObject, false) ? 1 : 0;
    groups += std::exchange(isNewGroup, false) ? 1 : 0;
}

void OBJPolygons::takeSmoothing(Words& words) {
    hasSmoothing = true;
    const std::string word = lowered(words.next());
    const auto number = Words(word).number();
    const double group = number.value_or(word == "on" ? 1 : 0);
    smoothing = group >= 1 && group < Polygons::kByAngle ? static_cast<std::uint32_t>(group)
                                                         : Polygons::kFlat;
}

void OBJPolygons::takeMaterial(std::string_view name) {
    if (name.empty()) {
        material = Polygons::kNone;
        return;
    }
    const auto known = materialNumbers.find(name);
    if (known != materialNumbers.end()) {
        material = known->second;
        return;
    }
    material = static_cast<std::uint32_t>(materialNames.size());
    materialNumbers.emplace(name, material);
    materialNames.emplace_back(name);
}

void OBJPolygons::takeLibrary(std::string_view names) {
    constexpr std::size_t kMaxLibraries = 100;
    if (libraries_.size() < kMaxLibraries &&
        std::ranges::find(libraries_, names) == libraries_.end())
        libraries_.emplace_back(names);
}

/// Eight hexadecimal digits a point: mask, red, green, blue.
void OBJPolygons::takeZBrushColors(std::string_view line) {
    constexpr std::size_t kDigits = 8;
    Words words(line.substr(line.find(' ')));
    const std::string_view digits = words.next();
    for (std::size_t at = 0; at + kDigits <= digits.size(); at += kDigits) {
        const char* const from = digits.data() + at;
        std::uint32_t value = 0;
        if (std::from_chars(from, from + kDigits, value, 16).ptr != from + kDigits ||
            zBrushColors.size() >= Limits::kMaxPoints) {
            return;
        }
        zBrushColors.emplace_back(value >> 16U & 0xFFU, value >> 8U & 0xFFU, value & 0xFFU, 0xFFU);
    }
}

/// Colours are 0 to 1; if any is above, they are 0 to 255.
void OBJPolygons::setPointColors() {
    if (colors.empty() && zBrushColors.empty())
        return;
    const bool isBytes = std::ranges::any_of(
        colors, [](const glm::vec4& color) { return color.r > 1 || color.g > 1 || color.b > 1; });
    const glm::vec4 unit = isBytes ? glm::vec4(255, 255, 255, 1) : glm::vec4(1);
    polygons.pointColors.reserve(polygons.points.size());
    for (const glm::vec4& color : colors)
        polygons.pointColors.push_back(
            color.r == kNoColor ? glm::u8vec4(255) : bytesOf(color / unit));
    if (colors.empty())
        polygons.pointColors = std::move(zBrushColors);
    polygons.pointColors.resize(polygons.points.size(), glm::u8vec4(255));
}

Polygons OBJPolygons::finish() {
    setPointColors();
    if (!hasSmoothing) {
        for (Polygons::Face& face : polygons.faces)
            face.smoothing = Polygons::kByAngle;
    }
    dropBrokenFaces(polygons);
    return std::move(polygons);
}

} // namespace zelvo::object
