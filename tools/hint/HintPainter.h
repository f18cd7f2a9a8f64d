// SPDX-License-Identifier: MIT
#pragma once

#include "HintScript.h"

#include <QFont>
#include <QImage>

#include <string>
#include <vector>

class QPainter;

namespace zelvo::hint {

/// Paints a simple drawing of the main screen over a picture of the stage, and the hand on top.
class HintPainter {
public:
    static constexpr int kWidth = 640; ///< pixels
    static constexpr int kHeight = 360;

    /// `labels` are written on the catalogue's buttons. Needs a QGuiApplication.
    HintPainter(std::vector<std::string> labels, QString fontFamily);

    /// Paints over the stage's picture of that moment. Its size must be kWidth x kHeight.
    void paint(QImage& picture, const Moment& moment) const;

private:
    void paintBar(QPainter& painter, const Moment& moment) const;
    void paintButtons(QPainter& painter, const Moment& moment) const;
    void paintCaption(QPainter& painter, const Moment& moment) const;
    void paintHand(QPainter& painter, const Moment& moment) const;

    std::vector<std::string> labels;
    QString family;
};

} // namespace zelvo::hint
