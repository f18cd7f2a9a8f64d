// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/sound/BeatEstimate.h"
#include "ui/controls/Services.h"

#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <filesystem>

namespace zelvo::ui {

/// The beats of the movie's music, and the choice to record presses at them. It must live as long as
/// presses are recorded, so it belongs to the window, not to the audio editor. Whether presses snap is
/// kept in the settings; it is off at first.
class SongBeats final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    /// Movie times in seconds, ascending.
    Q_PROPERTY(QList<double> marks READ marks NOTIFY changed)
    Q_PROPERTY(bool isSnapping READ isSnapping WRITE setSnapping NOTIFY snappingChanged)

public:
    explicit SongBeats(const Services& given, QObject* parent = nullptr);
    ~SongBeats() override;
    SongBeats(const SongBeats&) = delete;
    SongBeats& operator=(const SongBeats&) = delete;

    /// Call it after each change of the song or its stretch. A run does so by itself when it starts.
    void refresh();

    /// Empty while another song is estimated.
    [[nodiscard]] QList<double> marks() const;

    [[nodiscard]] bool isSnapping() const { return isSnapping_; }

    void setSnapping(bool snaps);

    /// The time of the beat that is nearest to a time of the clock, both with the count-in; the same
    /// time if no beat is within half the distance of two beats, as before and after the music.
    [[nodiscard]] double snapped(double clockTime) const;

Q_SIGNALS:
    void changed();
    void snappingChanged();

private:
    /// What the beats were estimated of.
    struct Stretch {
        std::filesystem::path song;
        double from = 0.0;
        double to = 0.0;

        friend bool operator==(const Stretch&, const Stretch&) = default;
    };

    [[nodiscard]] Stretch present() const;

    Services services;
    Stretch asked;
    bool isSnapping_ = false;
    sound::BeatEstimate estimate;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
