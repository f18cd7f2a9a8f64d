// SPDX-License-Identifier: MIT
#pragma once

#include "content/ImageMask.h"
#include "content/MediaShape.h"
#include "look/XMAT.h"

#include <string>

namespace zelvo::content {

/// All style settings of a text.
struct TextStylePreset {
    image::Color frontColor = image::Color::white(1);
    image::Color bandColor = image::Color::white(0);
    look::XMATClasses material = look::XMATClasses::plain;
    std::string fontName = "DaysOne-Regular";
    look::BevelProfile bevelProfile = look::BevelProfile::linear;
    double bevelRadius = 1.8;
    look::BevelInnerOuter bevelInnerOuter = look::BevelInnerOuter::inner;
    double extrusionDepth = 24;
};

/// All style settings of the image node.
struct ImageStylePreset {
    image::ImagePtr image;
    ImageMaskPtr mask;
    bool isVisible = false;
};

/// All style settings of the media node.
struct MediaStylePreset {
    MediaShapePtr shape;
    image::Color color = image::Color::white(1);
    look::XMATClasses material = look::XMATClasses::oldMetal;
};

} // namespace zelvo::content
