// SPDX-License-Identifier: MIT
#include "ui/controls/PainterPath.h"

namespace zelvo::ui {

namespace {

QPointF pointAt(glm::vec2 point) {
    return {point.x, -point.y};
}

} // namespace

QPainterPath painterPath(const geometry::BezierPath& outline) {
    using Verb = geometry::BezierPath::Verb;
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const auto& element : outline.elements()) {
        const QPointF end = pointAt(element.point);
        switch (element.verb) {
        case Verb::move:
            path.moveTo(end);
            break;
        case Verb::line:
            path.lineTo(end);
            break;
        case Verb::quad:
            path.quadTo(pointAt(element.control1), end);
            break;
        case Verb::cubic:
            path.cubicTo(pointAt(element.control1), pointAt(element.control2), end);
            break;
        case Verb::close:
            path.closeSubpath();
            break;
        }
    }
    return path;
}

} // namespace zelvo::ui
