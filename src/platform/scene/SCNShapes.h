// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Extrusion.h"
#include "platform/scene/SCNGeometry.h"
#include "platform/text/LineLayout.h"

#include <memory>
#include <string>

namespace zelvo::scene {

/// Extruded text. Elements: front, back, sides and, with a chamfer, front and back chamfer. The
/// text starts at x 0, its baseline is y 0, its middle z 0. Outlines of letters are kept in a cache
/// of limited size, so that changing depth or bevel is fast. A change of depth alone is fastest.
class SCNText final : public SCNGeometry {
public:
    SCNText(std::string letters, text::TextAttributes style, double extrusionDepth);

    void setExtrusionDepth(double depth); ///< scene units, > 0
    void setFlatness(double value);       ///< scene units, default 0.6
    void setChamferRadius(double radius); ///< scene units, default 0
    /// in the unit square, from (0, 1) to (1, 0)
    void setChamferProfile(const geometry::BezierPath& profile);

    [[nodiscard]] double extrusionDepth() const { return extrusionDepth_; }

    [[nodiscard]] double chamferRadius() const { return chamferRadius_; }

protected:
    [[nodiscard]] geometry::Mesh build() const override;

private:
    std::string string;
    text::TextAttributes attributes;
    double extrusionDepth_;
    double flatness = 0.6;
    double chamferRadius_ = 0;
    geometry::BezierPath chamferProfile;
    mutable std::unique_ptr<geometry::Extruder> extruder; ///< null until the first build
};

/// A filled path as an extruded solid. Elements as in SCNText.
class SCNShape final : public SCNGeometry {
public:
    SCNShape(geometry::BezierPath outline, double extrusionDepth);

    void setExtrusionDepth(double depth);
    void setFlatness(double flatness);
    void setChamferRadius(double radius);
    void setChamferProfile(const geometry::BezierPath& profile);

protected:
    [[nodiscard]] geometry::Mesh build() const override;

private:
    geometry::BezierPath path;
    geometry::ExtrusionOptions options;
    mutable std::shared_ptr<const geometry::OutlineSkeleton> skeleton;
};

/// In the xy plane, facing +z.
class SCNPlane final : public SCNGeometry {
public:
    SCNPlane(double width = 1, double height = 1);

    void setWidth(double width);
    void setHeight(double height);

    [[nodiscard]] double width() const { return width_; }

    [[nodiscard]] double height() const { return height_; }

protected:
    [[nodiscard]] geometry::Mesh build() const override;

private:
    double width_;
    double height_;
};

class SCNBox final : public SCNGeometry {
public:
    SCNBox(double boxWidth, double boxHeight, double boxLength, double radius);

protected:
    [[nodiscard]] geometry::Mesh build() const override;

private:
    double width;
    double height;
    double length;
    double chamferRadius;
};

class SCNSphere final : public SCNGeometry {
public:
    explicit SCNSphere(double radius);

    void setSegmentCount(int count); ///< around the equator, default 48

    [[nodiscard]] double radius() const { return radius_; }

    [[nodiscard]] int segmentCount() const { return segmentCount_; }

protected:
    [[nodiscard]] geometry::Mesh build() const override;

private:
    double radius_;
    int segmentCount_ = 48;
};

/// Its axis is y.
class SCNTorus final : public SCNGeometry {
public:
    SCNTorus(double ringRadius, double pipeRadius);

    [[nodiscard]] double ringRadius() const { return ringRadius_; }

    [[nodiscard]] double pipeRadius() const { return pipeRadius_; }

protected:
    [[nodiscard]] geometry::Mesh build() const override;

private:
    double ringRadius_;
    double pipeRadius_;
};

} // namespace zelvo::scene
