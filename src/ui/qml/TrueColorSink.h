// SPDX-License-Identifier: MIT
#pragma once

#include <QVideoFrame>
#include <QVideoSink>
#include <QtQml/qqmlregistration.h>

#include <mutex>

namespace zelvo::ui {

/// Stands between a player and the item that shows its movie, and gives the pictures their colours
/// itself: the toolkit's own conversion of BT.709 takes the two weights of green for each other, at
/// least up to Qt 6.4, and shows saturated colours some thirty levels off. In QML:
///
///     MediaPlayer { videoOutput: sink }
///     TrueColorSink { id: sink; target: output.videoSink }
///
/// Pictures come, are converted and go on on the player's thread, which the player must have ended
/// (stop) before the target goes.
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

/// The picture in red, green and blue if it is 4:2:0, BT.709 and of video range, as the program's
/// movies are; else as it came.
[[nodiscard]] QVideoFrame withTrueColors(const QVideoFrame& frame);

} // namespace zelvo::ui
