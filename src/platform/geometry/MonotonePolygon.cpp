// SPDX-License-Identifier: MIT
#include "platform/geometry/MonotonePolygon.h"

namespace zelvo::geometry {

namespace {

constexpr double kNoArea = 1e-9;

double twiceArea(glm::dvec2 a, glm::dvec2 b, glm::dvec2 c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

} // namespace

std::span<const std::array<std::uint32_t, 3>> MonotoneTriangulator::cut(
    std::span<const MonotoneCorner> bottom, std::span<const MonotoneCorner> top) {
    triangles.clear();
    if (bottom.size() + top.size() < 3)
        return triangles;
    merge(bottom, top);
    stack.assign({sequence[0], sequence[1]});
    for (std::size_t i = 2; i + 1 < sequence.size(); ++i) {
        if (sequence[i].isTop != stack.back().isTop) {
            addOpposite(sequence[i]);
        } else {
            addSameSide(sequence[i]);
        }
    }
    // The rightmost corner belongs to both chains. It closes whatever is left.
    MonotoneCorner last = sequence.back();
    last.isTop = !stack.back().isTop;
    addOpposite(last);
    return triangles;
}

void MonotoneTriangulator::merge(
    std::span<const MonotoneCorner> bottom, std::span<const MonotoneCorner> top) {
    sequence.clear();
    sequence.push_back(bottom.front());
    std::size_t b = 1;
    std::size_t t = 0;
    while (b + 1 < bottom.size() || t < top.size()) {
        const bool takesTop =
            t < top.size() && (b + 1 >= bottom.size() || top[t].at.x < bottom[b].at.x);
        sequence.push_back(takesTop ? top[t++] : bottom[b++]);
        sequence.back().isTop = takesTop;
    }
    sequence.push_back(bottom.back());
}

// A corner on the other chain sees the whole stack.
void MonotoneTriangulator::addOpposite(const MonotoneCorner& corner) {
    for (std::size_t i = 0; i + 1 < stack.size(); ++i) {
        if (corner.isTop) {
            emit(corner, stack[i], stack[i + 1]);
        } else {
            emit(corner, stack[i + 1], stack[i]);
        }
    }
    const MonotoneCorner last = stack.back();
    stack.assign({last, corner});
}

void MonotoneTriangulator::addSameSide(const MonotoneCorner& corner) {
    while (stack.size() > 1) {
        const MonotoneCorner& near = stack.back();
        const MonotoneCorner& far = stack[stack.size() - 2];
        const double area = twiceArea(far.at, near.at, corner.at);
        if ((corner.isTop ? -area : area) <= kNoArea)
            break;
        if (corner.isTop) {
            emit(corner, near, far);
        } else {
            emit(far, near, corner);
        }
        stack.pop_back();
    }
    stack.push_back(corner);
}

void MonotoneTriangulator::emit(
    const MonotoneCorner& a, const MonotoneCorner& b, const MonotoneCorner& c) {
    triangles.push_back({a.id, b.id, c.id});
}

} // namespace zelvo::geometry
