// SPDX-License-Identifier: MIT
#pragma once

#include "node/Surroundings.h"
#include "platform/foundation/RunLoop.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// The dark blur over the main screen while the export screen stands before it, at most one.
class BlurCover final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(bool isPresent READ isPresent NOTIFY changed)
    Q_PROPERTY(double alpha READ alpha NOTIFY changed)
    Q_PROPERTY(int fadeMilliseconds READ fadeMilliseconds CONSTANT)

public:
    /// Small screens get no cover, as the export fills them, but for the two phones whose screen is
    /// `nativeHeight` 1920 or 2208 pixels.
    explicit BlurCover(
        foundation::RunLoop& loop,
        core::DeviceIdiom idiom = core::DeviceIdiom::tablet,
        double nativeHeight = 0);

    /// There is a cover, and stays until it has faded.
    [[nodiscard]] bool isPresent() const { return present; }

    /// What the cover's opacity goes to, in a straight line.
    [[nodiscard]] double alpha() const { return alpha_; }

    [[nodiscard]] static int fadeMilliseconds();

    /// Nothing happens where there is one already.
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
