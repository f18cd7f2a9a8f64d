// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/MyButton.h"
#include "ui/controls/Services.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>

namespace zelvo::ui {

/// The button that gives the stage a random style: the scene fades out, three dots count up, the
/// style changes unseen, the scene fades in again. It is off until its title is back.
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
    static constexpr double kDark = 0.6;    ///< from the last dot's end until the scene returns
    static constexpr double kFadeIn = 0.4;  ///< of the scene, then of the title

    explicit Inspirator(const Services& given, QObject* parent = nullptr);
    /// Never leaves the scene dark.
    ~Inspirator() override;
    Inspirator(const Inspirator&) = delete;
    Inspirator& operator=(const Inspirator&) = delete;

    MyButton button;
    /// Brings the scene's opacity there within that many seconds; may be empty.
    std::function<void(double alpha, double seconds)> fadeScene;

    void inspiratorAction();

    [[nodiscard]] MyButton* buttonObject() { return &button; }

    [[nodiscard]] double titleAlpha() const { return titleAlpha_; }

    [[nodiscard]] int titleFadeMilliseconds() const;

Q_SIGNALS:
    void changed();

private:
    void countDots(int shown);
    void bringBack();
    void setTitle(const QString& title);
    void fade(double alpha, double seconds) const;
    void after(double delay, std::function<void()> call);

    Services services;
    double titleAlpha_ = 1;
    std::shared_ptr<const bool> alive =
        std::make_shared<const bool>(true); ///< queued calls may outlive this
};

} // namespace zelvo::ui
