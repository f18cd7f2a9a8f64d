// SPDX-License-Identifier: MIT
#pragma once

#include "node/Surroundings.h"
#include "platform/foundation/RunLoop.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// The dark blur over the main screen behind the export screen; there is at most one.
class BlurCover final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(bool isPresent READ isPresent NOTIFY changed)
    Q_PROPERTY(double alpha READ alpha NOTIFY changed)
    Q_PROPERTY(int fadeMilliseconds READ fadeMilliseconds CONSTANT)

public:
    /// Small screens get no cover, because the export fills them, except two phones whose screen
    /// has a `nativeHeight` of 1920 or 2208 pixels.
    explicit BlurCover(
        foundation::RunLoop& loop,
        node::DeviceIdiom idiom = node::DeviceIdiom::tablet,
        double nativeHeight = 0);

    /// Whether there is a cover; true until it has faded out.
    [[nodiscard]] bool isPresent() const { return present; }

    /// The target of the cover's opacity, which changes linearly.
    [[nodiscard]] double alpha() const { return alpha_; }

    [[nodiscard]] static int fadeMilliseconds();

    /// Does nothing if there already is a cover.
    void show();
    void hide();

Q_SIGNALS:
    void changed();

private:
    foundation::RunLoop& runLoop;
    foundation::Timer removal;
    bool isWanted;
    bool present = false;
    double alpha_ = 0;
};

} // namespace zelvo::ui
