// SPDX-License-Identifier: MIT
#pragma once

#include "ui/audio/SongBeats.h"
#include "ui/audio/SongWaveform.h"
#include "ui/controls/Services.h"

#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <filesystem>

namespace zelvo::ui {

/// The music behind the marks of a time line: its waveform, where it lies in the movie, and its beats.
/// Times are in seconds.
class TimelineMusic final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::SongWaveform* waveform READ waveformObject CONSTANT)
    Q_PROPERTY(bool hasSong READ hasSong NOTIFY changed)
    Q_PROPERTY(double begins READ begins NOTIFY changed)
    Q_PROPERTY(double length READ length NOTIFY changed)
    Q_PROPERTY(double songTime READ songTime NOTIFY changed)
    Q_PROPERTY(double songDuration READ songDuration NOTIFY changed)
    Q_PROPERTY(QList<double> beats READ beats NOTIFY changed)

public:
    /// `songBeats` may be null: then there are no beats.
    TimelineMusic(const Services& given, SongBeats* songBeats, QObject* parent = nullptr);

    /// Call it when the song may have changed. The waveform is only made anew for another file.
    void refresh();

    [[nodiscard]] bool hasSong() const;

    /// Movie time at which the music begins.
    [[nodiscard]] double begins() const;
    [[nodiscard]] double length() const;
    /// Song time at which the music begins.
    [[nodiscard]] double songTime() const;
    [[nodiscard]] double songDuration() const;

    /// Movie times, ascending. Empty while marks do not snap to beats.
    [[nodiscard]] QList<double> beats() const;

    [[nodiscard]] bool isSnapping() const;
    void setSnapping(bool snaps);

    [[nodiscard]] SongWaveform* waveformObject() { return &waveform; }

Q_SIGNALS:
    void changed();

private:
    Services services;
    SongBeats* songBeats;
    SongWaveform waveform;
    std::filesystem::path loaded; ///< empty: no song
};

} // namespace zelvo::ui
