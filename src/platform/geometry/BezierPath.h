// SPDX-License-Identifier: MIT
#pragma once

#include <glm/mat3x2.hpp>
#include <glm/vec2.hpp>

#include <vector>

namespace zelvo::geometry {

/// An outline of straight lines, quadratic and cubic curves, in scene units, y up. Several contours
/// make one shape. The path does not say what is inside; this project always uses non-zero winding.
class BezierPath {
public:
    enum class Verb { move, line, quad, cubic, close };

    struct Element {
        Verb verb;
        glm::vec2 control1{}; ///< quad, cubic
        glm::vec2 control2{}; ///< cubic
        glm::vec2 point{};    ///< the end point; for close, the contour's start
    };

    void moveTo(glm::vec2 point);
    void lineTo(glm::vec2 point);
    void quadTo(glm::vec2 control, glm::vec2 point);
    void cubicTo(glm::vec2 control1, glm::vec2 control2, glm::vec2 point);
    void close();

    void append(const BezierPath& other);
    void transform(const glm::mat3x2& matrix);

    [[nodiscard]] bool isEmpty() const { return elements_.empty(); }

    [[nodiscard]] const std::vector<Element>& elements() const { return elements_; }

private:
    std::vector<Element> elements_;
};

} // namespace zelvo::geometry
