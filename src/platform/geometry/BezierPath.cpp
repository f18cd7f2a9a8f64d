// SPDX-License-Identifier: MIT
#include "platform/geometry/BezierPath.h"

#include "platform/foundation/Check.h"

#include <glm/mat2x2.hpp>

namespace zelvo::geometry {

void BezierPath::moveTo(glm::vec2 point) {
    elements_.push_back({.verb = Verb::move, .point = point});
}

void BezierPath::lineTo(glm::vec2 point) {
    CHECK(!elements_.empty(), "a path starts with a move");
    elements_.push_back({.verb = Verb::line, .point = point});
}

void BezierPath::quadTo(glm::vec2 control, glm::vec2 point) {
    CHECK(!elements_.empty(), "a path starts with a move");
    elements_.push_back({.verb = Verb::quad, .control1 = control, .point = point});
}

void BezierPath::cubicTo(glm::vec2 control1, glm::vec2 control2, glm::vec2 point) {
    CHECK(!elements_.empty(), "a path starts with a move");
    elements_.push_back(
        {.verb = Verb::cubic, .control1 = control1, .control2 = control2, .point = point});
}

void BezierPath::close() {
    if (elements_.empty())
        return;
    auto start = elements_.rbegin();
    while (start->verb != Verb::move && start->verb != Verb::close) {
        ++start;
    }
    elements_.push_back({.verb = Verb::close, .point = start->point});
}

void BezierPath::append(const BezierPath& other) {
    elements_.insert(elements_.end(), other.elements_.begin(), other.elements_.end());
}

void BezierPath::transform(const glm::mat3x2& matrix) {
    const auto apply = [&matrix](glm::vec2 point) { return matrix * glm::vec3(point, 1.0f); };
    for (Element& element : elements_) {
        element.control1 = apply(element.control1);
        element.control2 = apply(element.control2);
        element.point = apply(element.point);
    }
}

} // namespace zelvo::geometry
