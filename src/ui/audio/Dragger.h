// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

namespace zelvo::audio {
class AudioPlayer;
} // namespace zelvo::audio

namespace zelvo::ui {

/// What a Dragger moves.
enum class DraggedPart {
    stretch, ///< the whole stretch along the movie
    start,   ///< its left handle
    end      ///< its right handle
};

/// One of the three things that are moved on the timeline of the audio editor, by pointer or keys. It
/// writes into the AudioPlayer.
///
///     movie   0 ......... audioPreRoll ========================= songEnd()
///                    start |                stretch               | end
///     song            audioIn                                  audioEnd
///
/// If the start moves, the stretch keeps its left end, and the song slides under it. Times are in
/// seconds. A song that is shorter than kLeastStretch gets a start before its beginning: it sounds
/// from its beginning then.
class Dragger final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString name READ name NOTIFY moved)
    Q_PROPERTY(QString timeText READ timeText NOTIFY moved)
    Q_PROPERTY(double place READ place NOTIFY moved)
    Q_PROPERTY(bool isHeld READ isHeld NOTIFY heldChanged)

public:
    static constexpr double kLeastStretch = 2.0; ///< seconds

    struct Calls {
        std::function<double()> movieDuration;
        std::function<void()> willDrag;
        std::function<void()> didMove;
    };

    Dragger(DraggedPart dragged, audio::AudioPlayer& written, Calls given);

    /// x is a time on the ruler.
    Q_INVOKABLE void beginDrag(double x);
    Q_INVOKABLE void dragTo(double x);
    Q_INVOKABLE void endDrag();
    /// Arrow keys move by 0.1 s, with Shift by 1 s. Home and End move to the first and the last
    /// place that is possible; the last one of the stretch ends with the movie. False: another key.
    Q_INVOKABLE bool pressKey(int key, int modifiers);

    /// For screen readers.
    [[nodiscard]] QString name() const;
    /// Of the movie for the stretch, else of the song.
    [[nodiscard]] QString timeText() const;
    /// On the ruler.
    [[nodiscard]] double place() const;

    [[nodiscard]] bool isHeld() const { return drag.has_value(); }

Q_SIGNALS:
    void moved();
    void heldChanged();

private:
    /// What a drag began with.
    struct Drag {
        double second = 0; ///< of the pointer
        double audioIn = 0;
        double audioEnd = 0;
        double audioPreRoll = 0;
    };

    [[nodiscard]] Drag begun(double x) const;
    void move(const Drag& from, double seconds);
    void nudge(double seconds);
    void moveToLimit(bool isLast);
    [[nodiscard]] double time() const;

    DraggedPart part;
    audio::AudioPlayer& player;
    Calls calls;
    std::optional<Drag> drag;
};

} // namespace zelvo::ui
