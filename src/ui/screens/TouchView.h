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
    std::optional<QColor> color{}; ///< empty: a bluish white
    std::optional<QUrl> image{};   ///< empty: a drawn disc
    QSizeF defaultSize{56, 56};    ///< device-independent pixels
    bool showsTimer = false;
    bool showsTouchRadius = false;
    bool showsLog = false;
};

/// Shows a finger on the screen. It is reused after its touch has ended and it has faded out.
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

    int touch = kNoTouch; ///< the finger's id; none: free for another finger

    [[nodiscard]] static int fadeMilliseconds();

    void begin(int id, const TouchVisualizerConfiguration& configuration);
    /// `radius` is in device-independent pixels; 0 if the device does not report it.
    void moveTo(QPointF place, double radius);
    /// Fades out; then it is free.
    void end();

    [[nodiscard]] bool isFading() const { return fading.isValid(); }

    [[nodiscard]] QPointF center() const { return center_; }

    /// The shown size divided by the default size.
    [[nodiscard]] double ratio() const { return previousRatio; }

    [[nodiscard]] bool isShown() const { return touch != kNoTouch && !isFading(); }

    /// Seconds since the touch began; empty unless requested.
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
    std::optional<double> startDate; ///< time of the run loop
    std::optional<QString> lastTimeString;
};

/// Makes the list type known to QML's tools.
struct TouchViewList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<zelvo::ui::TouchView*>)
    QML_SEQUENTIAL_CONTAINER(zelvo::ui::TouchView*)
};

} // namespace zelvo::ui
