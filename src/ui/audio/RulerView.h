// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QList>
#include <QQuickPaintedItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// The marks of a ruler at a zoom.
struct RulerScale {
    double leastPoints; ///< this scale is used from so many points a second on
    double tickSeconds; ///< between two ticks
    int ticksALabel;    ///< each of these ticks is long and has a label
    bool countsSeconds; ///< labels are numbers of seconds, otherwise minutes and seconds

    [[nodiscard]] static const RulerScale& at(double pointsPerSecond);
    /// Of the tick with that number.
    [[nodiscard]] QString label(int tick) const;
};

/// A ruler of seconds that begins at 0. It draws only what is in view, so it is as wide as its window
/// on the timeline; `origin` says where 0 is. Lengths are in device-independent pixels (points).
class RulerView : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double pointsPerSecond MEMBER pointsPerSecond NOTIFY looksChanged)
    Q_PROPERTY(double origin MEMBER origin NOTIFY looksChanged)
    Q_PROPERTY(int labelSize MEMBER labelSize NOTIFY looksChanged)
    Q_PROPERTY(QList<double> beats MEMBER beats NOTIFY looksChanged)
    Q_PROPERTY(QColor fillColor MEMBER fillColor CONSTANT)
    Q_PROPERTY(int multiplier READ multiplierOf CONSTANT)

public:
    static constexpr int multiplier = 30; ///< points a second, unless the user zooms

    explicit RulerView(QQuickItem* parent = nullptr);

    const QColor fillColor = QColor::fromRgbF(0.6499F, 0.6566F, 0.7102F);

    void paint(QPainter* painter) override;

    [[nodiscard]] static int multiplierOf() { return multiplier; }

Q_SIGNALS:
    void looksChanged();

private:
    void paintBeats(QPainter& painter) const;

    double pointsPerSecond = multiplier;
    double origin = 0;
    int labelSize = 10;
    QList<double> beats; ///< movie times in order, in seconds; faint marks
};

} // namespace zelvo::ui
