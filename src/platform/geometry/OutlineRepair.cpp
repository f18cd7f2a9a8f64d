// SPDX-License-Identifier: MIT
#include "platform/geometry/OutlineRepair.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>

namespace zelvo::geometry {

namespace {

constexpr double kContact = 1.5; // grid steps; nearer corners touch
constexpr double kStep = 3;      // grid steps by which a touching corner is moved
constexpr int kMaxRounds = 6;
// Grid steps; a corner nearer to the line of its neighbours is useless.
constexpr double kStraight = 0.75;

std::int64_t cross(GridPoint a, GridPoint b) {
    return std::int64_t{a.x} * b.y - std::int64_t{a.y} * b.x;
}

// Distance from p to the piece a-b.
double distanceToPiece(glm::dvec2 p, glm::dvec2 a, glm::dvec2 b) {
    const glm::dvec2 along = b - a;
    const double square = glm::dot(along, along);
    const double t = square > 0 ? glm::clamp(glm::dot(p - a, along) / square, 0.0, 1.0) : 0.0;
    return glm::distance(p, a + along * t);
}

// A corner is useless if it is on the line of its neighbours or the tip of a spike without width.
bool isIdle(GridPoint before, GridPoint here, GridPoint after) {
    if (here == before || here == after || before == after)
        return true;
    return distanceToPiece(here, before, after) < kStraight ||
           distanceToPiece(after, before, here) < kStraight ||
           distanceToPiece(before, here, after) < kStraight;
}

GridLoop withoutIdleCorners(const GridLoop& loop) {
    GridLoop kept;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const GridPoint before = kept.empty() ? loop.back() : kept.back();
        GridPoint after = kept.empty() ? loop.front() : kept.front();
        if (i + 1 < loop.size())
            after = loop[i + 1];
        if (!isIdle(before, loop[i], after))
            kept.push_back(loop[i]);
    }
    return kept;
}

// Dropping a corner can make its neighbour useless.
void dropIdleCorners(GridLoop& loop) {
    std::size_t before = 0;
    do {
        before = loop.size();
        loop = withoutIdleCorners(loop);
    } while (loop.size() < before && loop.size() > 2);
}

// A piece of a loop with its bounds, for the sweep.
struct Piece {
    std::uint32_t loop;
    std::uint32_t index;
    GridPoint a, b;
    int minX, maxX, minY, maxY;
};

std::vector<Piece> piecesByX(const std::vector<GridLoop>& loops) {
    std::vector<Piece> pieces;
    for (std::uint32_t l = 0; l < loops.size(); ++l) {
        for (std::uint32_t i = 0; i < loops[l].size(); ++i) {
            const GridPoint a = loops[l][i];
            const GridPoint b = loops[l][(i + 1) % loops[l].size()];
            const auto [minX, maxX] = std::minmax(a.x, b.x);
            const auto [minY, maxY] = std::minmax(a.y, b.y);
            pieces.push_back({l, i, a, b, minX, maxX, minY, maxY});
        }
    }
    std::sort(pieces.begin(), pieces.end(), [](const Piece& p, const Piece& q) {
        return p.minX < q.minX;
    });
    return pieces;
}

bool doCross(const Piece& p, const Piece& q) {
    const auto side = [](const Piece& piece, GridPoint point) {
        const std::int64_t value = cross(piece.b - piece.a, point - piece.a);
        return std::clamp<std::int64_t>(value, -1, 1);
    };
    return side(p, q.a) * side(p, q.b) < 0 && side(q, p.a) * side(q, p.b) < 0;
}

// The result of the sweep over all pairs of pieces.
struct Contacts {
    std::vector<std::vector<char>> touching; // by loop and corner
    bool any = false;
    bool anyCrossing = false;
};

class ContactFinder {
public:
    explicit ContactFinder(const std::vector<GridLoop>& loops_)
        : loops(loops_) {
        for (const GridLoop& loop : loops) {
            found.touching.emplace_back(loop.size(), char{0});
        }
    }

    Contacts find() {
        const std::vector<Piece> pieces = piecesByX(loops);
        std::vector<const Piece*> active;
        for (const Piece& piece : pieces) {
            std::erase_if(active, [&piece](const Piece* other) {
                return other->maxX + kMargin < piece.minX;
            });
            for (const Piece* other : active) {
                compare(piece, *other);
            }
            active.push_back(&piece);
        }
        return std::move(found);
    }

private:
    static constexpr int kMargin = 2;

    void compare(const Piece& p, const Piece& q) {
        if (p.minY > q.maxY + kMargin || q.minY > p.maxY + kMargin)
            return;
        if (doCross(p, q))
            found.any = found.anyCrossing = true;
        markStart(p, q);
        markStart(q, p);
    }

    // Marks p's start corner if it touches q. Every corner is the start of one piece.
    void markStart(const Piece& p, const Piece& q) {
        if (p.loop == q.loop) {
            const auto count = static_cast<std::uint32_t>(loops[p.loop].size());
            if (p.index == q.index || (q.index + 1) % count == p.index)
                return;
        }
        if (distanceToPiece(glm::dvec2(p.a), glm::dvec2(q.a), glm::dvec2(q.b)) >= kContact)
            return;
        found.touching[p.loop][p.index] = 1;
        found.any = true;
    }

    const std::vector<GridLoop>& loops;
    Contacts found;
};

// Moves a corner to the side where its angle is less than half a turn. What it touches is on the
// other side.
GridPoint movedIntoNarrowSide(GridPoint before, GridPoint here, GridPoint after) {
    const glm::dvec2 toBefore = glm::normalize(glm::dvec2(before - here));
    const glm::dvec2 toAfter = glm::normalize(glm::dvec2(after - here));
    glm::dvec2 middle = toBefore + toAfter;
    if (glm::length(middle) < 1e-6)
        middle = {-toAfter.y, toAfter.x};
    return here + GridPoint(glm::round(glm::normalize(middle) * kStep));
}

void moveTouching(std::vector<GridLoop>& loops, const Contacts& contacts) {
    for (std::size_t l = 0; l < loops.size(); ++l) {
        const GridLoop old = loops[l];
        for (std::size_t i = 0; i < old.size(); ++i) {
            if (contacts.touching[l][i] == 0)
                continue;
            const std::size_t last = old.size() - 1;
            loops[l][i] =
                movedIntoNarrowSide(old[i > 0 ? i - 1 : last], old[i], old[i < last ? i + 1 : 0]);
        }
    }
}

} // namespace

RepairedLoops drawApart(std::vector<GridLoop> loops) {
    for (int round = 0; round < kMaxRounds; ++round) {
        for (GridLoop& loop : loops) {
            dropIdleCorners(loop);
        }
        std::erase_if(loops, [](const GridLoop& loop) { return loop.size() < 3; });
        const Contacts contacts = ContactFinder(loops).find();
        if (!contacts.any)
            return {.loops = std::move(loops), .isClean = true};
        if (contacts.anyCrossing && round > 0)
            break;
        moveTouching(loops, contacts);
    }
    return {.loops = std::move(loops), .isClean = false};
}

} // namespace zelvo::geometry
