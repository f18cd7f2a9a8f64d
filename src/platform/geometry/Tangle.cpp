// SPDX-License-Identifier: MIT
#include "platform/geometry/Tangle.h"

#include "platform/geometry/Cross.h"

#include <algorithm>

namespace zelvo::geometry {

namespace {

constexpr std::size_t kMostPieces = 40'000;
constexpr std::size_t kMostCrossings = 300'000;

struct Piece {
    glm::dvec2 left;
    glm::dvec2 right;

    [[nodiscard]] double bottom() const { return std::min(left.y, right.y); }

    [[nodiscard]] double top() const { return std::max(left.y, right.y); }
};

std::size_t pieceCount(const std::vector<FlatContour>& contours) {
    std::size_t count = 0;
    for (const FlatContour& contour : contours)
        count += contour.size();
    return count;
}

/// Sorted by their left ends.
std::vector<Piece> piecesOf(const std::vector<FlatContour>& contours) {
    std::vector<Piece> pieces;
    pieces.reserve(pieceCount(contours));
    for (const FlatContour& contour : contours) {
        for (std::size_t i = 0; i < contour.size(); ++i) {
            const glm::dvec2 a = contour[i].position;
            const glm::dvec2 b = contour[(i + 1) % contour.size()].position;
            pieces.push_back(a.x < b.x ? Piece{a, b} : Piece{b, a});
        }
    }
    std::ranges::sort(pieces, {}, [](const Piece& piece) { return piece.left.x; });
    return pieces;
}

/// Whether the ends of `b` are on both sides of `a`. Pieces that only touch do not count.
bool splits(const Piece& a, const Piece& b) {
    const glm::dvec2 along = a.right - a.left;
    return cross(along, b.left - a.left) * cross(along, b.right - a.left) < 0;
}

bool areCrossing(const Piece& a, const Piece& b) {
    return a.bottom() < b.top() && b.bottom() < a.top() && splits(a, b) && splits(b, a);
}

} // namespace

bool isTangle(const std::vector<FlatContour>& contours) {
    if (pieceCount(contours) > kMostPieces)
        return true;
    const std::vector<Piece> pieces = piecesOf(contours);
    std::size_t crossings = 0;
    for (auto piece = pieces.begin(); piece != pieces.end() && crossings <= kMostCrossings;
         ++piece) {
        const auto beyond = std::ranges::upper_bound(
            piece, pieces.end(), piece->right.x, {}, [](const Piece& other) {
                return other.left.x;
            });
        crossings += static_cast<std::size_t>(
            std::count_if(piece + 1, std::max(piece + 1, beyond), [piece](const Piece& other) {
                return areCrossing(*piece, other);
            }));
    }
    return crossings > kMostCrossings;
}

} // namespace zelvo::geometry
