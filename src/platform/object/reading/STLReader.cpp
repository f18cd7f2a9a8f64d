// SPDX-License-Identifier: MIT
#include "platform/object/reading/STLReader.h"

#include "platform/object/PlaceTable.h"
#include "platform/object/Polygons.h"
#include "platform/object/reading/Words.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <memory>
#include <utility>

namespace zelvo::object {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

constexpr std::size_t kHead = 84;     ///< bytes: 80 of text and the number of triangles
constexpr std::size_t kTriangle = 50; ///< bytes: normal, three points, two of attributes

/// Joins points at the same place.
class PointList {
public:
    explicit PointList(Polygons& target)
        : polygons(target) {}

    void addCorner(const glm::vec3& given) {
        const glm::dvec3 point = cleaned(given);
        const auto added = static_cast<std::uint32_t>(polygons.points.size());
        const std::uint32_t found = table.find(
            hashOf(point),
            added,
            [&](std::uint32_t other) { return polygons.points[other] == point; },
            [&](std::uint32_t other) { return hashOf(polygons.points[other]); });
        if (found == added)
            polygons.points.push_back(point);
        polygons.corners.push_back({found});
    }

    void endFace(std::size_t firstCorner) {
        polygons.faces.push_back(
            {static_cast<std::uint32_t>(polygons.corners.size() - firstCorner)});
    }

private:
    [[nodiscard]] static glm::dvec3 cleaned(const glm::vec3& point) {
        constexpr float kMax = 1e30F; // beyond, and what is no number, is a fault
        glm::dvec3 result;
        for (int i = 0; i < 3; ++i)
            result[i] = std::abs(point[i]) <= kMax ? point[i] + 0.0F : 0; // -0 becomes 0
        return result;
    }

    [[nodiscard]] static std::uint64_t hashOf(const glm::dvec3& point) {
        std::uint64_t hash = 0;
        for (int i = 0; i < 3; ++i)
            hash = mixed(hash, std::bit_cast<std::uint64_t>(point[i]));
        return hash;
    }

    Polygons& polygons;
    PlaceTable table;
};

/// Reads until the target is full or the file ends.
std::size_t readFully(const ByteSource& source, std::span<char> target) {
    std::size_t count = 0;
    while (count < target.size()) {
        const std::size_t more = source(target.subspan(count));
        if (more == 0)
            break;
        count += more;
    }
    return count;
}

[[nodiscard]] bool isStopped(const Watch& watch, std::size_t faces) {
    constexpr std::size_t kEvery = 65536;
    return faces % kEvery == 0 && watch.stop.stop_requested();
}

/// Reads as many triangles as are there; the number in the head is not always right.
Result<void> readBinary(const ByteSource& source, Polygons& polygons, const Watch& watch) {
    PointList points(polygons);
    std::array<char, kTriangle> bytes{};
    while (readFully(source, bytes) == bytes.size()) {
        if (polygons.corners.size() > Limits::kMaxCorners - 3)
            return fail(Cause::tooLarge, "the object has too many triangles");
        if (isStopped(watch, polygons.faces.size()))
            return tl::unexpected(cancelledError());
        std::array<glm::vec3, 4> vectors{}; // the first is the normal
        static_assert(std::endian::native == std::endian::little);
        std::memcpy(vectors.data(), bytes.data(), sizeof vectors);
        const std::size_t first = polygons.corners.size();
        for (int corner = 1; corner <= 3; ++corner)
            points.addCorner(vectors.at(static_cast<std::size_t>(corner)));
        points.endFace(first);
    }
    return {};
}

Result<void> readText(ByteSource source, Polygons& polygons, const Watch& watch) {
    PointList points(polygons);
    TextLines lines(std::move(source));
    std::size_t first = 0;
    while (const auto line = lines.next()) {
        Words words(*line);
        const std::string keyword = lowered(words.next());
        if (keyword == "vertex") {
            const auto x = words.number();
            const auto y = words.number();
            const auto z = words.number();
            points.addCorner(glm::vec3(x.value_or(0), y.value_or(0), z.value_or(0)));
        } else if (keyword == "endloop" || keyword == "endfacet") {
            if (polygons.corners.size() > first)
                points.endFace(first);
            first = polygons.corners.size();
        }
        if (polygons.corners.size() > Limits::kMaxCorners)
            return fail(Cause::tooLarge, "the object has too many triangles");
        if (isStopped(watch, polygons.faces.size()))
            return tl::unexpected(cancelledError());
    }
    polygons.corners.resize(first);
    return {};
}

/// Binary files may begin with "solid", too. The size tells, or a byte that no text has.
[[nodiscard]] bool isText(std::span<const char> head, std::uint64_t size) {
    const std::string_view start(head.data(), head.size());
    const std::size_t visible = start.find_first_not_of(" \t\r\n");
    if (visible == std::string_view::npos || !lowered(start.substr(visible)).starts_with("solid"))
        return false;
    if (head.size() < kHead)
        return true;
    std::uint32_t count = 0;
    std::memcpy(&count, head.data() + kHead - sizeof count, sizeof count);
    return size != kHead + std::uint64_t{count} * kTriangle &&
           start.find('\0') == std::string_view::npos;
}

} // namespace

Result<ObjectScene>
readSTL(const ByteSource& source, std::uint64_t size, const std::string& name, const Watch& watch) {
    std::array<char, kHead> head{};
    const std::size_t headBytes = readFully(source, head);
    Polygons polygons;
    Result<void> read;
    if (isText(std::span(head).first(headBytes), size)) {
        // The head comes back before the rest.
        auto left = std::make_shared<std::string>(head.data(), headBytes);
        read = readText(
            [left, source](std::span<char> target) {
                const std::size_t given = left->copy(target.data(), target.size());
                left->erase(0, given);
                return given > 0 ? given : source(target);
            },
            polygons,
            watch);
    } else {
        read = readBinary(source, polygons, watch);
    }
    if (!read)
        return tl::unexpected(read.error());
    dropBrokenFaces(polygons);

    ObjectScene scene;
    scene.upAxis = UpAxis::z;
    scene.figures = {1, polygons.points.size(), polygons.faces.size()};
    constexpr double kCrease = 30;
    const auto pieces =
        addPieces(scene, std::move(polygons), {name, true, glm::radians(kCrease)}, watch);
    if (!pieces)
        return tl::unexpected(pieces.error());
    place(scene, *pieces, glm::dmat4(1));
    completeFigures(scene);
    if (scene.figures.triangles == 0)
        return fail(Cause::malformed, "there are no triangles in it");
    return scene;
}

} // namespace zelvo::object
