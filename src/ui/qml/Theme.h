// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/InterfaceColors.h"
#include "ui/qml/DesktopMotion.h"

#include <QColor>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// The colours, radii, fonts and pace of the interface; in QML the singleton `Theme`. Lengths are in
/// device-independent pixels.
class Theme final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QColor accent MEMBER accent CONSTANT)
    Q_PROPERTY(QColor accentText MEMBER accentText CONSTANT)
    Q_PROPERTY(QColor record MEMBER record CONSTANT)
    Q_PROPERTY(QColor buttonFill MEMBER buttonFill CONSTANT)
    Q_PROPERTY(QColor buttonFillClear MEMBER buttonFillClear CONSTANT)
    Q_PROPERTY(QColor background MEMBER background CONSTANT)
    Q_PROPERTY(QColor bar MEMBER bar CONSTANT)
    Q_PROPERTY(QColor dimmedPanel MEMBER dimmedPanel CONSTANT)
    Q_PROPERTY(QColor ground MEMBER ground CONSTANT)
    Q_PROPERTY(QColor separator MEMBER separator CONSTANT)
    Q_PROPERTY(QColor row MEMBER row CONSTANT)
    Q_PROPERTY(QColor ringTrack MEMBER ringTrack CONSTANT)
    Q_PROPERTY(QColor text MEMBER text CONSTANT)
    Q_PROPERTY(QColor mutedText MEMBER mutedText CONSTANT)
    Q_PROPERTY(QColor waveform MEMBER waveform CONSTANT)
    Q_PROPERTY(QColor hint MEMBER hint CONSTANT)
    Q_PROPERTY(QColor howto MEMBER howto CONSTANT)
    Q_PROPERTY(qreal dimmed MEMBER dimmed CONSTANT)
    Q_PROPERTY(qreal radius MEMBER radius CONSTANT)
    Q_PROPERTY(QString digitsFamily MEMBER digitsFamily CONSTANT)
    /// The user wants an interface that does not move. The stage still does.
    Q_PROPERTY(bool isMotionReduced READ isMotionReduced NOTIFY motionChanged)
    /// Multiply the duration of every animation of the interface by it: 1, or 0 for no motion.
    Q_PROPERTY(int motion READ motion NOTIFY motionChanged)

public:
    explicit Theme(QObject* parent = nullptr);

    /// Scales a text size with the system's font: `size` is for an application font of 12 pixels,
    /// the usual size.
    Q_INVOKABLE [[nodiscard]] int px(qreal size) const { return qRound(size * textScale); }

    [[nodiscard]] bool isMotionReduced() const { return desktopMotion.isReduced(); }

    [[nodiscard]] int motion() const { return isMotionReduced() ? 0 : 1; }

    const QColor accent = kAccentColor;
    const QColor accentText = accent.lighter(140); ///< legible on dark
    const QColor record = kRecordColor;
    const QColor buttonFill = kButtonColor;
    const QColor buttonFillClear = kClearButtonColor;
    const QColor background = QColor::fromRgbF(0.01261f, 0.01274f, 0.01378f);
    const QColor bar = QColor::fromRgbF(0.01261f, 0.01274f, 0.01378f, 0.7f);
    const QColor dimmedPanel = QColor::fromRgbF(0.01261f, 0.01274f, 0.01378f, 0.4f);
    /// Behind bars and panels, so that texts stay readable on a white stage.
    const QColor ground = QColor::fromRgbF(0.01261f, 0.01274f, 0.01378f, 0.7f);
    const QColor separator = QColor::fromRgbF(0.194f, 0.196f, 0.212f);
    const QColor row = QColor::fromRgbF(0.0388f, 0.0392f, 0.0424f);
    const QColor ringTrack = QColor::fromRgbF(0.1455f, 0.147f, 0.159f);
    const QColor text = kTextColor;
    const QColor mutedText = QColor::fromRgbF(0.485f, 0.49f, 0.53f);
    const QColor waveform = kAccentColor.darker(160); ///< behind marks, fainter than they are
    const QColor hint{0xF7, 0xCF, 0x50};
    const QColor howto{0xC8, 0x8E, 0x01};
    const qreal dimmed = 0.45; ///< opacity of disabled controls, which must still be visible
    const qreal radius = 6;
    const QString digitsFamily; ///< the system's font with digits of equal width

Q_SIGNALS:
    void motionChanged();

private:
    qreal textScale;
    DesktopMotion desktopMotion;
};

} // namespace zelvo::ui
