// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"
#include "platform/scene/SCNShapes.h"
#include "platform/scene/SkeletonCache.h"

#include <utility>

namespace zelvo::scene {

namespace {

void checkExtrusion(const geometry::ExtrusionOptions& options) {
    CHECK(options.depth > 0, "a solid cannot be {} deep", options.depth);
    CHECK(options.flatness > 0, "a flatness of {} has no end", options.flatness);
    CHECK(options.chamferRadius >= 0, "a chamfer radius cannot be {}", options.chamferRadius);
}

} // namespace

SCNText::SCNText(std::string letters, text::TextAttributes style, double extrusionDepth)
    : string(std::move(letters))
    , attributes(std::move(style))
    , extrusionDepth_(extrusionDepth) {}

void SCNText::setExtrusionDepth(double depth) {
    if (depth == extrusionDepth_)
        return;
    extrusionDepth_ = depth;
    setNeedsRebuild();
}

void SCNText::setFlatness(double value) {
    if (value == flatness)
        return;
    flatness = value;
    extruder.reset();
    setNeedsRebuild();
}

void SCNText::setChamferRadius(double radius) {
    if (radius == chamferRadius_)
        return;
    chamferRadius_ = radius;
    setNeedsRebuild();
}

void SCNText::setChamferProfile(const geometry::BezierPath& profile) {
    chamferProfile = profile;
    setNeedsRebuild();
}

geometry::Mesh SCNText::build() const {
    const geometry::ExtrusionOptions options{
        .depth = static_cast<float>(extrusionDepth_),
        .chamferRadius = static_cast<float>(chamferRadius_),
        .flatness = static_cast<float>(flatness),
        .chamferProfile = chamferProfile,
        .hasOpenness = true};
    checkExtrusion(options);
    if (!extruder)
        extruder = std::make_unique<geometry::Extruder>(skeletonOf(string, attributes, flatness));
    return extruder->extrude(options);
}

SCNShape::SCNShape(geometry::BezierPath outline, double extrusionDepth)
    : path(std::move(outline)) {
    options.depth = static_cast<float>(extrusionDepth);
}

void SCNShape::setExtrusionDepth(double depth) {
    if (static_cast<float>(depth) == options.depth)
        return;
    options.depth = static_cast<float>(depth);
    setNeedsRebuild();
}

void SCNShape::setFlatness(double flatness) {
    if (static_cast<float>(flatness) == options.flatness)
        return;
    options.flatness = static_cast<float>(flatness);
    skeleton.reset();
    setNeedsRebuild();
}

void SCNShape::setChamferRadius(double radius) {
    if (static_cast<float>(radius) == options.chamferRadius)
        return;
    options.chamferRadius = static_cast<float>(radius);
    setNeedsRebuild();
}

void SCNShape::setChamferProfile(const geometry::BezierPath& profile) {
    options.chamferProfile = profile;
    setNeedsRebuild();
}

geometry::Mesh SCNShape::build() const {
    checkExtrusion(options);
    if (!skeleton)
        skeleton = geometry::makeSkeleton(path, options.flatness);
    return geometry::extrude(*skeleton, options);
}

} // namespace zelvo::scene
