// SPDX-License-Identifier: MIT
#include "platform/scene/SCNShapes.h"

#include "platform/foundation/Check.h"
#include "platform/geometry/Primitives.h"

#include <utility>

namespace zelvo::scene {

namespace {

constexpr int kTorusRingSegments = 96;
constexpr int kTorusPipeSegments = 32;

} // namespace

SCNPlane::SCNPlane(double width, double height)
    : width_(width)
    , height_(height) {}

void SCNPlane::setWidth(double width) {
    if (width == width_)
        return;
    width_ = width;
    setNeedsRebuild();
}

void SCNPlane::setHeight(double height) {
    if (height == height_)
        return;
    height_ = height;
    setNeedsRebuild();
}

geometry::Mesh SCNPlane::build() const {
    return geometry::makePlane(static_cast<float>(width_), static_cast<float>(height_));
}

SCNBox::SCNBox(double boxWidth, double boxHeight, double boxLength, double radius)
    : width(boxWidth)
    , height(boxHeight)
    , length(boxLength)
    , chamferRadius(radius) {}

geometry::Mesh SCNBox::build() const {
    return geometry::makeBox(
        static_cast<float>(width),
        static_cast<float>(height),
        static_cast<float>(length),
        static_cast<float>(chamferRadius));
}

SCNSphere::SCNSphere(double radius)
    : radius_(radius) {}

void SCNSphere::setSegmentCount(int count) {
    CHECK(count >= 3, "a sphere cannot have {} segments", count);
    if (count == segmentCount_)
        return;
    segmentCount_ = count;
    setNeedsRebuild();
}

geometry::Mesh SCNSphere::build() const {
    return geometry::makeSphere(static_cast<float>(radius_), segmentCount_);
}

SCNTorus::SCNTorus(double ringRadius, double pipeRadius)
    : ringRadius_(ringRadius)
    , pipeRadius_(pipeRadius) {}

geometry::Mesh SCNTorus::build() const {
    return geometry::makeTorus(
        static_cast<float>(ringRadius_),
        static_cast<float>(pipeRadius_),
        kTorusRingSegments,
        kTorusPipeSegments);
}

} // namespace zelvo::scene
