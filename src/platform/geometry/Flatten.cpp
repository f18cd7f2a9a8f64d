// SPDX-License-Identifier: MIT
#include "platform/geometry/Flatten.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>
#include <span>

namespace zelvo::geometry {

namespace {

constexpr int kMaxPieces = 64;
// of a curve within one chord: larger turns show in the shading
constexpr double kMaxTurn = std::numbers::pi / 4;
constexpr double kMinStep = 0.004; // scene units; nearer points are merged

// A line, quadratic or cubic curve, as 2 to 4 control points.
using Curve = std::span<const glm::dvec2>;

glm::dvec2 unitOrZero(glm::dvec2 v) {
    const double length = glm::length(v);
    return length > 1e-12 ? v / length : glm::dvec2(0);
}

// De Casteljau: the point at t. The direction is that of the last two intermediate points.
struct CurvePoint {
    glm::dvec2 position;
    glm::dvec2 direction;
};

CurvePoint evaluate(Curve curve, double t) {
    std::array<glm::dvec2, 4> points{};
    std::copy(curve.begin(), curve.end(), points.begin());
    glm::dvec2 direction{};
    for (std::size_t count = curve.size(); count > 1; --count) {
        if (count == 2)
            direction = points[1] - points[0];
        for (std::size_t i = 0; i + 1 < count; ++i) {
            points[i] += (points[i + 1] - points[i]) * t;
        }
    }
    return {.position = points[0], .direction = unitOrZero(direction)};
}

// The first direction that is not zero: control points may lie on the ends.
glm::dvec2 startDirection(Curve curve) {
    for (const glm::dvec2& point : curve.subspan(1)) {
        const glm::dvec2 direction = unitOrZero(point - curve.front());
        if (direction != glm::dvec2(0))
            return direction;
    }
    return {};
}

glm::dvec2 endDirection(Curve curve) {
    for (std::size_t i = curve.size() - 1; i-- > 0;) {
        const glm::dvec2 direction = unitOrZero(curve.back() - curve[i]);
        if (direction != glm::dvec2(0))
            return direction;
    }
    return {};
}

double turnBetween(glm::dvec2 a, glm::dvec2 b) {
    return std::abs(std::atan2(a.x * b.y - a.y * b.x, glm::dot(a, b)));
}

// Wang's bound: if the second differences of a curve of degree n are at most M, the chords of k
// equal pieces are at most n (n - 1) M / (8 k^2) away from the curve.
int pieceCount(Curve curve, double flatness) {
    if (curve.size() == 2)
        return 1;
    double largest = 0;
    double turn = 0;
    for (std::size_t i = 0; i + 2 < curve.size(); ++i) {
        largest = std::max(largest, glm::length(curve[i] - 2.0 * curve[i + 1] + curve[i + 2]));
        turn += turnBetween(
            unitOrZero(curve[i + 1] - curve[i]), unitOrZero(curve[i + 2] - curve[i + 1]));
    }
    const auto degree = static_cast<double>(curve.size() - 1);
    const double byFlatness = std::sqrt(degree * (degree - 1) * largest / (8 * flatness));
    const double pieces = std::max(byFlatness, turn / kMaxTurn);
    return std::clamp(static_cast<int>(std::ceil(pieces)), 1, kMaxPieces);
}

bool isUsable(glm::dvec2 point) {
    return std::isfinite(point.x) && std::isfinite(point.y) &&
           std::max(std::abs(point.x), std::abs(point.y)) <= kMaxCoordinate;
}

// Takes the elements of a path one by one and collects the contours.
class Flattener {
public:
    explicit Flattener(double flatness_)
        : flatness(flatness_) {}

    void add(const BezierPath::Element& element) {
        using Verb = BezierPath::Verb;
        const glm::dvec2 point(element.point);
        const glm::dvec2 control1(element.control1);
        const glm::dvec2 control2(element.control2);
        switch (element.verb) {
        case Verb::move:
            finish();
            start(point);
            break;
        case Verb::line:
            addCurve(std::array{pen, point});
            break;
        case Verb::quad:
            addCurve(std::array{pen, control1, point});
            break;
        case Verb::cubic:
            addCurve(std::array{pen, control1, control2, point});
            break;
        case Verb::close:
            finish();
            start(point);
            break;
        }
    }

    void finish() {
        if (isSound && contour.size() > 1)
            contours.push_back(std::move(contour));
        contour.clear();
    }

    std::vector<FlatContour> contours;

private:
    void start(glm::dvec2 point) {
        isSound = isUsable(point);
        pen = point;
        contour.push_back({.position = point});
    }

    void addCurve(Curve curve) {
        isSound = isSound && std::all_of(curve.begin(), curve.end(), isUsable);
        if (!isSound)
            return;
        const int count = pieceCount(curve, flatness);
        for (int i = 1; i <= count; ++i) {
            addPiece(curve, i, count);
        }
        pen = curve.back();
    }

    void addPiece(Curve curve, int i, int count) {
        const bool isLast = i == count;
        const CurvePoint end = evaluate(curve, static_cast<double>(i) / count);
        const glm::dvec2 position = isLast ? curve.back() : end.position;
        const glm::dvec2 direction = isLast ? endDirection(curve) : end.direction;
        if (glm::distance(position, contour.back().position) < kMinStep)
            return;
        if (i == 1 || contour.back().directionOut == glm::dvec2(0)) {
            contour.back().directionOut =
                i == 1 ? startDirection(curve)
                       : evaluate(curve, static_cast<double>(i - 1) / count).direction;
        }
        contour.push_back({.position = position, .directionIn = direction});
        if (!isLast)
            contour.back().directionOut = direction;
    }

    double flatness;
    FlatContour contour;
    glm::dvec2 pen{};
    bool isSound = true;
};

// Joins a contour's end to its start: drops the last point if it equals the first, otherwise adds
// the closing line.
void closeContour(FlatContour& contour) {
    FlatVertex& first = contour.front();
    FlatVertex& last = contour.back();
    if (contour.size() > 1 && glm::distance(first.position, last.position) < kMinStep) {
        first.directionIn = last.directionIn;
        contour.pop_back();
        return;
    }
    last.directionOut = unitOrZero(first.position - last.position);
    first.directionIn = last.directionOut;
}

} // namespace

std::vector<FlatContour> flatten(const BezierPath& path, double flatness) {
    Flattener flattener(flatness);
    for (const BezierPath::Element& element : path.elements()) {
        flattener.add(element);
    }
    flattener.finish();
    for (FlatContour& contour : flattener.contours) {
        closeContour(contour);
    }
    std::erase_if(
        flattener.contours, [](const FlatContour& contour) { return contour.size() < 3; });
    return std::move(flattener.contours);
}

FlatContour flattenOpen(const BezierPath& path, double flatness) {
    Flattener flattener(flatness);
    for (const BezierPath::Element& element : path.elements()) {
        flattener.add(element);
    }
    flattener.finish();
    return flattener.contours.empty() ? FlatContour{} : std::move(flattener.contours.front());
}

} // namespace zelvo::geometry
