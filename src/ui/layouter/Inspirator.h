// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "ui/controls/MyButton.h"
#include "ui/controls/Services.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace zelvo::ui {

/// The button for a random style: the scene fades out, three dots count up, the style changes while
/// the scene is dark, and the scene fades in. The button is disabled until its title is back.
class Inspirator final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::MyButton* button READ buttonObject CONSTANT)
    Q_PROPERTY(double titleAlpha READ titleAlpha NOTIFY changed)
    Q_PROPERTY(int titleFadeMilliseconds READ titleFadeMilliseconds NOTIFY changed)

public:
    static constexpr double kFadeOut = 0.2; ///< seconds, of the scene
    static constexpr double kDot = 0.12;    ///< between two dots
    /// Seconds from the end of the last dot until the scene returns.
    static constexpr double kDark = 0.6;
    static constexpr double kFadeIn = 0.4; ///< of the scene, then of the button's title

    explicit Inspirator(const Services& given, QObject* parent = nullptr);
    /// Makes the scene visible if it is dark.
    ~Inspirator() override;
    Inspirator(const Inspirator&) = delete;
    Inspirator& operator=(const Inspirator&) = delete;

    MyButton button;
    /// Fades the scene's opacity to `alpha` in that time; may be empty.
    std::function<void(double alpha, double seconds)> fadeScene;

    void inspiratorAction();

    [[nodiscard]] MyButton* buttonObject() { return &button; }

    [[nodiscard]] double titleAlpha() const { return titleAlpha_; }

    [[nodiscard]] int titleFadeMilliseconds() const;

Q_SIGNALS:
    void changed();

private:
    void countDots(int shown);
    void hideTitle();
    void bringBack();
    void setTitle(const QString& title);
    void fade(double alpha, double seconds) const;
    void after(double delay, std::function<void()> call);

    Services services;
    double titleAlpha_ = 1;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
