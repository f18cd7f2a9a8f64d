// SPDX-License-Identifier: MIT
#pragma once

#include "ui/audio/SongWaveform.h"
#include "ui/audio/WaveformBars.h"

#include <QColor>
#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace zelvo::ui {

/// Draws the waveform of a song, or the part of it that the item shows. The item can be as wide as a
/// song of a day: only what its clipping ancestors leave visible is drawn.
class WaveformItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(zelvo::ui::SongWaveform* waveform READ waveform WRITE setWaveform NOTIFY changed)
    Q_PROPERTY(double pointsPerSecond READ pointsPerSecond WRITE setPointsPerSecond NOTIFY changed)
    /// The time of the song at the left edge, in seconds.
    Q_PROPERTY(double songTime READ songTime WRITE setSongTime NOTIFY changed)
    /// The duration of the song in seconds; the values are spread over it. 0: not known.
    Q_PROPERTY(double duration READ duration WRITE setDuration NOTIFY changed)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)

public:
    explicit WaveformItem(QQuickItem* parent = nullptr);

    [[nodiscard]] SongWaveform* waveform() const { return shown; }

    void setWaveform(SongWaveform* waveform);

    [[nodiscard]] double pointsPerSecond() const { return pointsPerSecond_; }

    void setPointsPerSecond(double points);

    [[nodiscard]] double songTime() const { return songTime_; }

    void setSongTime(double seconds);

    [[nodiscard]] double duration() const { return duration_; }

    void setDuration(double seconds);

    [[nodiscard]] QColor color() const { return color_; }

    void setColor(const QColor& color);

Q_SIGNALS:
    void changed();

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    template <class Value> void set(Value& member, const Value& value);
    void followAncestors();
    [[nodiscard]] QRectF visiblePart() const;
    [[nodiscard]] double pointsPerValue() const;
    [[nodiscard]] std::vector<WaveformBar> bars(const QRectF& visible) const;

    QPointer<SongWaveform> shown; ///< may be destroyed first
    double pointsPerSecond_ = 30.0;
    double songTime_ = 0.0;
    double duration_ = 0.0;
    QColor color_ = QColor::fromRgbF(0.873F, 0.882F, 0.954F);
    std::vector<QMetaObject::Connection> followed;
};

} // namespace zelvo::ui
