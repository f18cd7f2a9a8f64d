// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"

#include <QColor>
#include <QList>
#include <QObject>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QUrl>
#include <QtQml/qqml.h>

#include <optional>

namespace zelvo::ui {

/// How touches are shown.
struct TouchVisualizerConfiguration {
    std::optional<QColor> color{}; ///< absent: a bluish white
    std::optional<QUrl> image{};   ///< absent: a drawn disc
    QSizeF defaultSize{56, 56};    ///< device-independent pixels
    bool showsTimer = false;
    bool showsTouchRadius = false;
    bool showsLog = false;
};

/// A finger shown on the screen. Used again when its touch is over and it has faded.
class TouchView final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QPointF center READ center NOTIFY moved)
    Q_PROPERTY(double ratio READ ratio NOTIFY moved)
    Q_PROPERTY(bool isShown READ isShown NOTIFY isShownChanged)
    Q_PROPERTY(QString timerLabel READ timerLabel NOTIFY timerLabelChanged)
    Q_PROPERTY(QSizeF size READ size NOTIFY isShownChanged)
    Q_PROPERTY(QColor color READ color NOTIFY isShownChanged)
    Q_PROPERTY(QUrl image READ image NOTIFY isShownChanged)
    Q_PROPERTY(int fadeMilliseconds READ fadeMilliseconds CONSTANT)

public:
    static constexpr int kNoTouch = -1;

    explicit TouchView(foundation::RunLoop& loop, QObject* parent = nullptr);

    int touch = kNoTouch; ///< whose finger it is; none: free for another

    [[nodiscard]] static int fadeMilliseconds();

    void begin(int id, const TouchVisualizerConfiguration& configuration);
    /// Radius in device-independent pixels; 0 where the device tells none.
    void moveTo(QPointF place, double radius);
    /// Fades out and is free afterwards.
    void end();

    [[nodiscard]] bool isFading() const { return fading.isValid(); }

    [[nodiscard]] QPointF center() const { return center_; }

    /// Of the shown size to the default size.
    [[nodiscard]] double ratio() const { return previousRatio; }

    [[nodiscard]] bool isShown() const { return touch != kNoTouch && !isFading(); }

    /// Seconds since the touch began; empty unless asked for.
    [[nodiscard]] QString timerLabel() const { return lastTimeString.value_or(QString()); }

    [[nodiscard]] QSizeF size() const { return config.defaultSize; }

    [[nodiscard]] QColor color() const;

    [[nodiscard]] QUrl image() const { return config.image.value_or(QUrl()); }

Q_SIGNALS:
    void moved();
    void isShownChanged();
    void timerLabelChanged();

private:
    void update();

    foundation::RunLoop& runLoop;
    foundation::Timer timer;
    foundation::Timer fading;
    TouchVisualizerConfiguration config;
    QPointF center_;
    double previousRatio = 1;
    std::optional<double> startDate; ///< of the run loop's clock
    std::optional<QString> lastTimeString;
};

/// What a list of fingers holds, for the tools of QML.
struct TouchViewList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<zelvo::ui::TouchView*>)
    QML_SEQUENTIAL_CONTAINER(zelvo::ui::TouchView*)
};

} // namespace zelvo::ui
