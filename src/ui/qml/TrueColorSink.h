// SPDX-License-Identifier: MIT
#pragma once

#include <QVideoFrame>
#include <QVideoSink>
#include <QtQml/qqmlregistration.h>

#include <mutex>

namespace zelvo::ui {

/// Converts the colours of a movie between its player and the item that shows it. Qt's own
/// conversion of BT.709 exchanges the two weights of green (at least up to 6.4), so saturated
/// colours are wrong by about thirty levels. In QML:
///
///     MediaPlayer { videoOutput: sink }
///     TrueColorSink { id: sink; target: output.videoSink }
///
/// Frames are converted and passed on on the player's thread. Stop the player before the target is
/// destroyed.
class TrueColorSink : public QVideoSink {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QVideoSink* target READ target WRITE setTarget NOTIFY targetChanged)

public:
    explicit TrueColorSink(QObject* parent = nullptr);

    [[nodiscard]] QVideoSink* target() const;
    void setTarget(QVideoSink* sink);

Q_SIGNALS:
    void targetChanged();

private:
    void pass(const QVideoFrame& frame) const;

    mutable std::mutex mutex; ///< guards target_
    QVideoSink* target_ = nullptr;
};

/// Converts a frame to RGB if it is 4:2:0, BT.709 and video range, as in the program's movies;
/// returns other frames unchanged.
[[nodiscard]] QVideoFrame withTrueColors(const QVideoFrame& frame);

} // namespace zelvo::ui
