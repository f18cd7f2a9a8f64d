// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"
#include "platform/text/FontRegistry.h"

#include <QColor>
#include <QPointF>

#include <string>
#include <utility>

class QImage;
class QPainter;

namespace zelvo::app {

/// Colours of the pictures that commands draw.
inline const QColor kGround(24, 25, 28);
inline const QColor kInk(214, 216, 220);

/// Writes lines on pictures. They are drawn as outlines, because Qt's own fonts need a
/// QGuiApplication, and a command has none.
class Lettering {
public:
    struct Line {
        std::string text;
        double size = 15.0;    ///< of the font, pixels
        double maxWidth = 0.0; ///< a wider line is made narrower
    };

    /// Errors: the font cannot be read.
    [[nodiscard]] static foundation::Result<Lettering> open();

    /// `start` is the left end of the baseline.
    void draw(QPainter& painter, const Line& line, QPointF start, const QColor& color) const;

private:
    explicit Lettering(text::FontPtr face)
        : font(std::move(face)) {}

    text::FontPtr font;
};

/// The same picture, without Qt.
[[nodiscard]] image::Image copied(const QImage& canvas);

} // namespace zelvo::app
